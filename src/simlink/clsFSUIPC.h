#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/bytes.h"
#include "platform/SimulatorBus.h"
#include "simlink/SimLinkContext.h"

namespace vorlent {

class Snapshot;
struct SnapshotRead;

/// The single door to the simulator: a named block of shared memory that this side fills with read
/// and write records, and one window message that has the simulator serve them.
///
/// What comes back in the block is not trusted: a record that reaches beyond the block, or that
/// asks for more than was queued, ends Process() like an unknown record.
class clsFSUIPC {
 public:
  /// Index into the table of result texts.
  enum Result : int {
    Okay = 0,
    AlreadyOpen,
    NoLink,
    NoMessage,
    NoAtom,
    NoMapping,
    NoView,
    WrongVersion,
    WrongSimulator,
    NotOpen,
    NoData,
    TimedOut,
    SendFailed,
    BadData,
    NotRunning,
    Full,
  };

  explicit clsFSUIPC(const SimLinkContext& context);
  ~clsFSUIPC();
  clsFSUIPC(const clsFSUIPC&) = delete;
  clsFSUIPC& operator=(const clsFSUIPC&) = delete;

  /// Opens the link and finds out what is on the other side. Shows a box and returns false when
  /// that fails.
  bool InitLink();
  void CloseLink() { Close(); }

  /// `requestedSimulator` is a number of the simulator table, 0 for any.
  bool Open(std::uint32_t requestedSimulator, int& result);
  void Close();
  /// Appends a record. `destination` must stay valid until Process().
  bool QueueRead(std::uint32_t offset, std::uint32_t size, void* destination, int& result);
  bool QueueWrite(std::uint32_t offset, std::uint32_t size, const void* source, int& result);
  /// Sends what is queued and copies what was read. A damaged reply returns false and leaves
  /// `result` as it was.
  bool Process(int& result);

  /// The snapshot of one poll in one round trip; true when it is there. A failed round trip leaves
  /// the snapshot zero, a request that could not be made leaves it as it was.
  bool PeekAll(Snapshot& snapshot, int& result);
  /// The two halves of that, for a poll with reads of its own: queues the reads and the autopilot
  /// block, and sends what is queued.
  bool QueueSnapshot(std::span<const SnapshotRead> reads, Snapshot& snapshot, int& result);
  bool ProcessSnapshot(Snapshot& snapshot, int& result);

  /// One value, one round trip each. A failure tells the operator and ends the process.
  void ReadBytes(std::uint32_t offset, std::uint32_t size, std::uint32_t startIndex);
  double ReadDouble(std::uint32_t offset, std::uint32_t size);
  void WriteByte(std::uint32_t offset, std::uint32_t size, std::uint8_t value, int& result);
  void WriteLong(std::uint32_t offset, std::uint32_t size, std::int32_t value, int& result);
  void WriteInt(std::uint32_t offset, std::uint32_t size, std::int16_t value, int& result);
  void WriteDouble(std::uint32_t offset, std::uint32_t size, double value, int& result);

  /// `watch` is told of each typed write that the simulator has taken; null: nobody is.
  using WriteWatch = std::function<void(std::uint32_t offset, std::uint32_t size_bytes)>;
  void watchWrites(WriteWatch watch) { watch_ = std::move(watch); }

  /// The words of a failed round trip of ReadBytes(), and the end of the process.
  [[noreturn]] void endByProcessError(int result, const std::string& separator = " ");

  bool IPC_Available() const { return Available_; }
  std::string IPCVersion() const { return VersionText_; }
  std::string FSVersion() const { return SimulatorName_; }
  std::uint32_t simulatorNumber() const { return FS_; }
  std::int16_t XPlane() const { return XPlane_; }
  void XPlane(std::int16_t value) { XPlane_ = value; }
  std::int32_t Offset_APHeading() const { return Offset_APHeading_; }
  void Offset_APHeading(std::int32_t offset) { Offset_APHeading_ = offset; }
  float Factor_APHeading() const { return Factor_APHeading_; }
  void Factor_APHeading(float unitsPerDegree) { Factor_APHeading_ = unitsPerDegree; }
  std::string resultText(int result) const;

  /// What ReadBytes() read: elements 1..size.
  std::vector<std::uint8_t> FsBytes;

  static constexpr std::size_t BlockSize_bytes = 32768;
  /// The most that the other side accepts in one block.
  static constexpr std::size_t MaxRequest_bytes = 0x7F00;
  static constexpr int SendTimeout_ms = 2000;

 private:
  struct PendingRead {
    std::byte* destination;
    std::uint32_t size;
  };

  bool openBlock(int& result);
  bool identify(int& result);
  bool fail(Result code, int& result);
  bool roomFor(std::size_t headerSize, std::uint32_t size, int& result) const;
  void append(const void* data, std::size_t size);
  bool sendRequest(int& result, std::int32_t& reply);
  bool distributeReply() const;
  /// Here, as the poll's hundreds of reads go through it one by one.
  static bool copyToReader(std::span<const PendingRead> readers, std::uint32_t destination,
                           std::span<const std::byte> data) {
    if (destination > readers.size()) return false;
    const PendingRead& reader = readers[destination - 1];
    if (data.size() > reader.size) return false;
    copyBytes(reader.destination, data.data(), data.size());
    return true;
  }
  void typedWrite(std::uint32_t offset, std::uint32_t size, const void* value,
                  const std::string& separator, int& result);
  void typedRead(std::uint32_t offset, std::uint32_t size, void* destination);
  std::string versionText() const;

  SimLinkContext context_;
  SimulatorBus& bus_;

  std::uint32_t Version_ = 0;
  std::uint32_t FS_ = 0;
  std::int16_t LibVersion_ = 0;
  WindowHandle Window_ = 0;
  MessageId Message_ = 0;
  AtomId Atom_ = 0;
  BlockHandle Mapping_ = 0;
  std::byte* View_ = nullptr;
  std::byte* Next_ = nullptr;
  std::int16_t XPlane_ = 0;
  std::string InterfaceName_;
  std::string SimulatorName_;
  std::int32_t Offset_APHeading_ = 0;
  float Factor_APHeading_ = 0;
  std::string VersionText_;
  bool Available_ = false;

  WriteWatch watch_;
  bool fallBackWindow_ = false;
  std::vector<std::string> resultTexts_;
  /// What the queued reads wait for. A record names its element by number, from 1, where the
  /// interface has room for an address of 32 bits only. As many as a request can hold, of which
  /// `pendingCount_` are queued.
  std::vector<PendingRead> pendingReads_;
  std::uint32_t pendingCount_ = 0;
};

}  // namespace vorlent
