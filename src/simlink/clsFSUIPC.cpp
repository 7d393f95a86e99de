#include "simlink/clsFSUIPC.h"

#include <algorithm>
#include <array>

#include "base/ProcessEnd.h"
#include "base/RuntimeError.h"
#include "base/bytes.h"
#include "base/text.h"
#include "platform/EventLoop.h"
#include "platform/Operator.h"
#include "platform/StatusLine.h"
#include "simlink/Snapshot.h"

namespace vorlent {
namespace {

constexpr std::uint32_t OffsetVersion = 0x3304;
constexpr std::uint32_t OffsetSimulator = 0x3308;
constexpr std::uint32_t OffsetLibVersion = 0x330A;
constexpr std::uint32_t OffsetXPlaneMark = 0x6FFF;
constexpr std::uint32_t OldestVersion = 0x19980005;
constexpr std::uint32_t SimulatorMark = 0xFADE0000;

constexpr std::size_t ReadHeader_bytes = 16;
constexpr std::size_t WriteHeader_bytes = 12;
constexpr std::size_t ClosingZero_bytes = 4;
constexpr std::size_t MostReads = clsFSUIPC::MaxRequest_bytes / ReadHeader_bytes;
constexpr std::uint16_t ReadId = 1;
constexpr std::uint16_t WriteId = 2;

constexpr int OpenTries = 25;
constexpr int OpenPause_ms = 100;
constexpr int SendRetries = 10;
constexpr int SendPause_ms = 100;

const std::string MessageText = "FSASMLIB:IPC";

constexpr std::array SimulatorNames = {"Any",   "FS98",  "FS2K", "CFS2", "CFS1",    "FLY",
                                       "FS2K2", "FS2K4", "FSX",  "ESP",  "Prepar3D"};

std::vector<std::string> resultTable(const std::string& name) {
  return {"Okay",
          "Attempt to Open when already Open",
          "Cannot link to " + name +
              "; Possible cause: FSUIPC not installed, inaccessible, or wrong version",
          "Failed to Register common message with Windows",
          "Failed to create Atom for mapping filename",
          "Failed to create a file mapping object",
          "Failed to open a view to the file map",
          "Incorrect version of " + name + ", or not " + name,
          "Sim is not version requested",
          "Call cannot execute, link not Open",
          "Call cannot execute: no requests accumulated",
          "IPC timed out all retries",
          "IPC sendmessage failed all retries",
          "IPC request contains bad data",
          "Maybe running on WideClient, but FS not running on Server, or wrong " + name,
          "Read or Write request cannot be added, memory for Process is full"};
}

/// Behind the longest request there is room for more than these bytes, and a size that the compiler
/// knows needs no call.
void clearRoom(std::byte* room, std::uint32_t size) {
  constexpr std::uint32_t Small_bytes = 8;
  std::memset(room, 0, Small_bytes);
  if (size > Small_bytes) std::memset(room, 0, size);
}

/// A read record at `next`; returns where the next one goes. `reader` is the number of what waits
/// for it, 0 for none.
std::byte* writeRead(std::byte* next, std::uint32_t offset, std::uint32_t size,
                     std::uint32_t reader) {
  const std::array<std::uint32_t, 4> header = {ReadId, offset, size, reader};
  std::memcpy(next, header.data(), ReadHeader_bytes);
  clearRoom(next + ReadHeader_bytes, size);
  return next + ReadHeader_bytes + size;
}

/// One that is newer than the table has its number for a name.
std::string simulatorName(std::uint32_t number) {
  return number < SimulatorNames.size() ? SimulatorNames[number] : std::to_string(number);
}

}  // namespace

clsFSUIPC::clsFSUIPC(const SimLinkContext& context)
    : context_(context),
      bus_(context.bus),
      resultTexts_(resultTable("FSUIPC")),
      pendingReads_(MostReads) {}

clsFSUIPC::~clsFSUIPC() { Close(); }

std::string clsFSUIPC::resultText(int result) const {
  return resultTexts_.at(static_cast<std::size_t>(result));
}

bool clsFSUIPC::InitLink() {
  InterfaceName_ = "FSUIPC";
  resultTexts_ = resultTable(InterfaceName_);
  int result = Okay;
  if (!Open(0, result)) {
    const bool ofTheBus = result == NoLink || result == NoMapping || result == SendFailed;
    const std::string obstacle = ofTheBus ? bus_.obstacle() : "";
    const std::string why = obstacle.empty() ? resultText(result) : obstacle;
    context_.op.messageBox(InterfaceName_ + " Connection failed: " + why, BoxIcon::Critical,
                           "Initialization error");
    if (result == NoLink && obstacle.empty())
      context_.status.SetStatusText(
          1, "No simulator is running: start one (vorlent-sim is the built-in one), then Vorlent");
    return false;
  }
  VersionText_ = versionText();
  ReadBytes(OffsetXPlaneMark, 1, 1);
  XPlane_ = FsBytes[1] != 0 ? 1 : 0;
  InterfaceName_ = XPlane_ != 0 ? "XPUIPC" : "FSUIPC";
  SimulatorName_ = XPlane_ != 0 ? "X-Plane" : simulatorName(FS_);
  Available_ = true;
  return true;
}

/// The four top digits as in "4.950", and the build's letter when there is one.
std::string clsFSUIPC::versionText() const {
  std::string text;
  for (int shift = 28; shift >= 16; shift -= 4) {
    text += static_cast<char>('0' + ((Version_ >> shift) & 0xF));
    if (shift == 28) text += '.';
  }
  if ((Version_ & 0xFFFF) != 0) text += static_cast<char>('a' + (Version_ & 0xFF) - 1);
  return text;
}

bool clsFSUIPC::Open(std::uint32_t requestedSimulator, int& result) {
  // A link that works keeps what it knows of the other side when a second attempt is refused.
  if (View_ != nullptr) {
    result = AlreadyOpen;
    return false;
  }
  Version_ = 0;
  FS_ = 0;
  if (!openBlock(result) || !identify(result)) return false;

  if (Version_ < OldestVersion || (FS_ & 0xFFFF0000) != SimulatorMark)
    return fail(fallBackWindow_ ? NotRunning : WrongVersion, result);
  FS_ &= 0xFFFF;
  if (requestedSimulator != 0 && requestedSimulator != FS_) return fail(WrongSimulator, result);
  result = Okay;
  return true;
}

/// Up to the mapped block. Every attempt counts from 1, so the name is the process's own.
bool clsFSUIPC::openBlock(int& result) {
  Window_ = bus_.findWindow("UIPCMAIN");
  fallBackWindow_ = Window_ == 0;
  if (fallBackWindow_) Window_ = bus_.findWindow("FS98MAIN");
  if (Window_ == 0) {
    result = NoLink;
    return false;
  }
  Message_ = bus_.registerMessage(MessageText);
  if (Message_ == 0) {
    result = NoMessage;
    return false;
  }
  constexpr std::uint32_t Attempt = 1;
  const std::string name = MessageText + ":" + hexText(bus_.processId()) + ":" + hexText(Attempt);
  Atom_ = bus_.addAtom(name);
  if (Atom_ == 0) return fail(NoAtom, result);
  const BlockResult created = bus_.createBlock(name, BlockSize_bytes);
  Mapping_ = created.block;
  if (Mapping_ == 0 || created.alreadyExists) return fail(NoMapping, result);
  View_ = bus_.mapBlock(Mapping_);
  if (View_ == nullptr) return fail(NoView, result);
  Next_ = View_;
  pendingCount_ = 0;
  return true;
}

/// Asks for version and simulator until both are there.
bool clsFSUIPC::identify(int& result) {
  for (int attempt = 1; attempt <= OpenTries && (Version_ == 0 || FS_ == 0); ++attempt) {
    const bool queued =
        QueueRead(OffsetVersion, sizeof Version_, &Version_, result) &&
        QueueRead(OffsetSimulator, sizeof FS_, &FS_, result) &&
        (QueueWrite(OffsetLibVersion, sizeof LibVersion_, &LibVersion_, result) || attempt > 1);
    if (!queued || !Process(result)) {
      Close();
      return false;
    }
    context_.eventLoop.sleep(OpenPause_ms);
  }
  return true;
}

bool clsFSUIPC::fail(Result code, int& result) {
  result = code;
  Close();
  return false;
}

void clsFSUIPC::Close() {
  Window_ = 0;
  Message_ = 0;
  Next_ = nullptr;
  pendingCount_ = 0;
  if (Atom_ != 0) bus_.deleteAtom(Atom_);
  Atom_ = 0;
  if (View_ != nullptr) bus_.unmapBlock(View_);
  View_ = nullptr;
  if (Mapping_ != 0) bus_.dropBlock(Mapping_);
  Mapping_ = 0;
}

bool clsFSUIPC::roomFor(std::size_t headerSize, std::uint32_t size, int& result) const {
  if (View_ == nullptr) {
    result = NotOpen;
    return false;
  }
  const auto used = static_cast<std::size_t>(Next_ - View_);
  if (used + ClosingZero_bytes + size + headerSize > MaxRequest_bytes) {
    result = Full;
    return false;
  }
  result = Okay;
  return true;
}

void clsFSUIPC::append(const void* data, std::size_t size) {
  copyBytes(Next_, data, size);
  Next_ += size;
}

bool clsFSUIPC::QueueRead(std::uint32_t offset, std::uint32_t size, void* destination,
                          int& result) {
  if (!roomFor(ReadHeader_bytes, size, result)) return false;
  std::uint32_t reader = 0;
  if (destination != nullptr) {
    pendingReads_[pendingCount_] = {static_cast<std::byte*>(destination), size};
    reader = ++pendingCount_;
  }
  Next_ = writeRead(Next_, offset, size, reader);
  return true;
}

bool clsFSUIPC::QueueWrite(std::uint32_t offset, std::uint32_t size, const void* source,
                           int& result) {
  if (!roomFor(WriteHeader_bytes, size, result)) return false;
  const std::array<std::uint32_t, 3> header = {WriteId, offset, size};
  append(header.data(), WriteHeader_bytes);
  append(source, size);
  return true;
}

bool clsFSUIPC::Process(int& result) {
  if (View_ == nullptr) {
    result = NotOpen;
    return false;
  }
  if (Next_ == View_) {
    result = NoData;
    return false;
  }
  store(Next_, std::uint32_t{0});
  Next_ = View_;

  std::int32_t reply = 0;
  bool done = sendRequest(result, reply);
  if (done && reply != 1) {
    result = BadData;
    done = false;
  } else if (done) {
    done = distributeReply() && bus_.isIntact(View_);
    if (done) result = Okay;
  }
  pendingCount_ = 0;
  return done;
}

/// One attempt and up to ten more. Success on the tenth still counts as failure.
bool clsFSUIPC::sendRequest(int& result, std::int32_t& reply) {
  SendResult sent = bus_.sendMessage(Window_, Message_, Atom_, SendTimeout_ms);
  for (int retry = 1; !sent.answered; ++retry) {
    context_.eventLoop.sleep(SendPause_ms);
    sent = bus_.sendMessage(Window_, Message_, Atom_, SendTimeout_ms);
    if (retry == SendRetries) {
      result = sent.lastError != 0 ? SendFailed : TimedOut;
      return false;
    }
  }
  reply = sent.reply;
  return true;
}

/// Walks the block as the other side left it. Every length is read once and checked before use: the
/// other side may still be writing.
bool clsFSUIPC::distributeReply() const {
  const std::span<const std::byte> block(View_, BlockSize_bytes);
  const auto readers = std::span<const PendingRead>(pendingReads_).first(pendingCount_);
  std::size_t at = 0;
  for (;;) {
    if (at + WriteHeader_bytes > block.size()) return false;
    const auto id = load<std::uint16_t>(&block[at]);
    if (id == 0) return true;
    if (id != ReadId && id != WriteId) return false;

    const std::size_t header = id == ReadId ? ReadHeader_bytes : WriteHeader_bytes;
    const std::size_t size = load<std::uint32_t>(&block[at + 8]);
    if (at + header > block.size() || size > block.size() - at - header) return false;
    if (id == ReadId) {
      const auto destination = load<std::uint32_t>(&block[at + 12]);
      if (destination != 0 && size != 0 &&
          !copyToReader(readers, destination, block.subspan(at + header, size)))
        return false;
    }
    at += header + size;
  }
}

bool clsFSUIPC::PeekAll(Snapshot& snapshot, int& result) {
  return QueueSnapshot(SnapshotReads, snapshot, result) && ProcessSnapshot(snapshot, result);
}

bool clsFSUIPC::QueueSnapshot(std::span<const SnapshotRead> reads, Snapshot& snapshot,
                              int& result) {
  if (!roomFor(0, 0, result)) return false;
  // In locals, which hold nothing until all fits: what is written to the block could be a member,
  // for all that the compiler knows.
  const std::byte* const end = View_ + MaxRequest_bytes - ClosingZero_bytes;
  PendingRead* const pending = pendingReads_.data();
  std::uint32_t reader = pendingCount_;
  std::byte* next = Next_;
  for (const SnapshotRead& read : reads) {
    if (end - next < static_cast<std::ptrdiff_t>(ReadHeader_bytes + read.size)) {
      result = Full;
      return false;
    }
    pending[reader++] = {snapshot.at(read.offset), read.size};
    next = writeRead(next, read.offset, read.size, reader);
  }
  Next_ = next;
  pendingCount_ = reader;
  return QueueRead(static_cast<std::uint32_t>(Offset_APHeading_), Snapshot::RawApBlockSize,
                   snapshot.RawApBlock(), result);
}

bool clsFSUIPC::ProcessSnapshot(Snapshot& snapshot, int& result) {
  snapshot.clear();
  if (Process(result)) return true;
  snapshot.clear();
  return false;
}

void clsFSUIPC::typedRead(std::uint32_t offset, std::uint32_t size, void* destination) {
  int result = Okay;
  if (!QueueRead(offset, size, destination, result)) {
    context_.op.messageBox("Reading: " + resultText(result), BoxIcon::Critical,
                           InterfaceName_ + " Reading error");
    throw ProcessEnd{1};
  }
  if (!Process(result)) endByProcessError(result);
}

void clsFSUIPC::ReadBytes(std::uint32_t offset, std::uint32_t size, std::uint32_t startIndex) {
  if (startIndex > 1) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  FsBytes.assign(std::size_t{size} + 1, 0);
  typedRead(offset, size, FsBytes.data() + startIndex);
}

double clsFSUIPC::ReadDouble(std::uint32_t offset, std::uint32_t size) {
  if (size > sizeof(double)) throw RuntimeError(RuntimeError::InvalidCall);
  double value = 0;
  typedRead(offset, size, &value);
  return value;
}

void clsFSUIPC::typedWrite(std::uint32_t offset, std::uint32_t size, const void* value,
                           const std::string& separator, int& result) {
  if (!QueueWrite(offset, size, value, result)) {
    context_.op.messageBox("Writing: " + resultText(result), BoxIcon::Critical,
                           InterfaceName_ + " Writing error");
    throw ProcessEnd{1};
  }
  if (!Process(result)) endByProcessError(result, separator);
  if (watch_) watch_(offset, size);
}

void clsFSUIPC::endByProcessError(int result, const std::string& separator) {
  context_.status.SetStatusText(
      1, "The simulator does not answer as it should: start it again, then Vorlent");
  context_.status.SetStatusText(1,
                                InterfaceName_ + " Process error" + separator + resultText(result));
  throw ProcessEnd{1};
}

void clsFSUIPC::WriteByte(std::uint32_t offset, std::uint32_t size, std::uint8_t value,
                          int& result) {
  typedWrite(offset, std::min<std::uint32_t>(size, sizeof value), &value, "", result);
}

void clsFSUIPC::WriteLong(std::uint32_t offset, std::uint32_t size, std::int32_t value,
                          int& result) {
  typedWrite(offset, std::min<std::uint32_t>(size, sizeof value), &value, "", result);
}

void clsFSUIPC::WriteInt(std::uint32_t offset, std::uint32_t size, std::int16_t value,
                         int& result) {
  typedWrite(offset, std::min<std::uint32_t>(size, sizeof value), &value, "", result);
}

void clsFSUIPC::WriteDouble(std::uint32_t offset, std::uint32_t size, double value, int& result) {
  typedWrite(offset, std::min<std::uint32_t>(size, sizeof value), &value, " ", result);
}

}  // namespace vorlent
