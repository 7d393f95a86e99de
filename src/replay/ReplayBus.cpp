#include "replay/ReplayBus.h"

#include <algorithm>
#include <span>

#include "base/bytes.h"
#include "replay/Tape.h"
#include "replay/requests.h"

namespace vorlent {
namespace {

using recorded::Call;

constexpr std::uint32_t ReadId = 1;
constexpr std::uint32_t WriteId = 2;
constexpr std::size_t ReadHeader_bytes = 16;
constexpr std::size_t WriteHeader_bytes = 12;

}  // namespace

WindowHandle ReplayBus::findWindow(const std::string&) {
  return static_cast<WindowHandle>(tape_.numberOf(Call::FindWindow, 0));
}

std::string ReplayBus::obstacle() { return tape_.textOf(Call::Obstacle); }

MessageId ReplayBus::registerMessage(const std::string&) {
  return static_cast<MessageId>(tape_.numberOf(Call::RegisterMessage, 0));
}

AtomId ReplayBus::addAtom(const std::string&) {
  return static_cast<AtomId>(tape_.numberOf(Call::AddAtom, 0));
}

BlockResult ReplayBus::createBlock(const std::string&, std::size_t size_bytes) {
  const auto given = tape_.answer(Call::CreateBlock);
  block_.assign(size_bytes, std::byte{0});
  return given ? BlockResult{static_cast<BlockHandle>(given->number), given->text == "exists"}
               : BlockResult{};
}

std::byte* ReplayBus::mapBlock(BlockHandle) {
  return tape_.numberOf(Call::MapBlock, 0) != 0 ? block_.data() : nullptr;
}

bool ReplayBus::isIntact(const std::byte*) { return tape_.numberOf(Call::IsIntact, 1) != 0; }

std::uint32_t ReplayBus::processId() {
  return static_cast<std::uint32_t>(tape_.numberOf(Call::ProcessId, 1));
}

SendResult ReplayBus::sendMessage(WindowHandle, MessageId, AtomId, int) {
  const Sent sent = sentRequest();
  polled_ = polled_ || isPoll(sent.request);
  return skipTo(sent.request) ? answerAsThen(sent) : answerByItself(sent);
}

/// The server's own block, which it closes with a zero and keeps within its size.
ReplayBus::Sent ReplayBus::sentRequest() const {
  Sent sent;
  std::size_t at = 0;
  while (at + ReadHeader_bytes <= block_.size()) {
    const auto id = load<std::uint32_t>(&block_[at]);
    if (id != ReadId && id != WriteId) break;
    const bool write = id == WriteId;
    const recorded::Operation operation{write, load<std::uint32_t>(&block_[at + 4]),
                                        load<std::uint32_t>(&block_[at + 8])};
    at += write ? WriteHeader_bytes : ReadHeader_bytes;
    if (write)
      sent.written.append(reinterpret_cast<const char*>(&block_[at]), operation.size_bytes);
    else
      sent.readPlaces.push_back(at);
    sent.request.push_back(operation);
    at += operation.size_bytes;
  }
  return sent;
}

/// Passes over what was sent then and is not now. False, with nothing passed over, when this was
/// not sent in the rest of the stretch.
bool ReplayBus::skipTo(const recorded::Request& request) {
  auto& exchanges = tape_.exchanges();
  const auto found = std::find_if(exchanges.begin(), exchanges.end(), [&request](const auto& then) {
    return *then.what.request == request;
  });
  if (found == exchanges.end()) return false;
  for (auto then = exchanges.begin(); then != found; ++then) {
    writes_.onlyThen(then->time_us, *then->what.request, then->what.written);
    takeOver(then->what);
  }
  exchanges.erase(exchanges.begin(), found);
  return true;
}

SendResult ReplayBus::answerAsThen(const Sent& sent) {
  const Tape::Exchange then = std::move(tape_.exchanges().front());
  tape_.exchanges().pop_front();
  writes_.compare(then.time_us, sent.request, then.what.written, sent.written);
  takeOver(then.what);
  auto place = sent.readPlaces.begin();
  forEachRead(then.what, [&](std::uint32_t, std::span<const std::byte> bytes) {
    copyBytes(&block_[*place++], bytes.data(), bytes.size());
  });
  copyBytes(block_.data(), then.what.damaged.data(),
            std::min(then.what.damaged.size(), block_.size()));
  return {then.what.answered, then.what.reply, then.what.lastError};
}

SendResult ReplayBus::answerByItself(const Sent& sent) {
  constexpr std::int32_t Good = 1;
  if (!tape_.isCut()) writes_.onlyNow(tape_.time_us(), sent.request, sent.written);
  auto place = sent.readPlaces.begin();
  for (const recorded::Operation& operation : sent.request) {
    if (operation.write) continue;
    const std::span<std::byte> room(&block_[*place++], operation.size_bytes);
    if (OffsetMemory::contains(operation.offset, room.size()))
      image_.copyOut(operation.offset, room);
  }
  return {true, Good, 0};
}

void ReplayBus::takeOver(const recorded::Exchanged& then) {
  forEachRead(then, [this](std::uint32_t offset, std::span<const std::byte> bytes) {
    if (OffsetMemory::contains(offset, bytes.size())) image_.copyIn(offset, bytes);
  });
}

}  // namespace vorlent
