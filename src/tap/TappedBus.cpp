#include "tap/TappedBus.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "base/bytes.h"

namespace vorlent {

using namespace recorded;

namespace {

constexpr std::uint16_t ReadId = 1;
constexpr std::uint16_t WriteId = 2;
constexpr std::size_t ReadHeader_bytes = 16;
constexpr std::size_t WriteHeader_bytes = 12;

/// A record of a block: its header, and the bytes behind it.
struct Record {
  Operation operation;
  std::size_t header_bytes = 0;
  std::size_t end = 0;
};

/// Nothing where the records end, or where no record can be.
bool recordAt(std::span<const std::byte> block, std::size_t at, Record& record) {
  if (at + WriteHeader_bytes > block.size()) return false;
  const auto id = load<std::uint16_t>(&block[at]);
  if (id != ReadId && id != WriteId) return false;
  record.operation = {id == WriteId, load<std::uint32_t>(&block[at + 4]),
                      load<std::uint32_t>(&block[at + 8])};
  record.header_bytes = id == ReadId ? ReadHeader_bytes : WriteHeader_bytes;
  record.end = at + record.header_bytes + record.operation.size_bytes;
  return record.end <= block.size();
}

std::string_view textOfBytes(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

WindowHandle TappedBus::findWindow(const std::string& windowClass) {
  const WindowHandle window = inner_.findWindow(windowClass);
  tap_.answer(Call::FindWindow, window);
  return window;
}

std::string TappedBus::obstacle() {
  std::string obstacle = inner_.obstacle();
  tap_.answer(Call::Obstacle, 0, obstacle);
  return obstacle;
}

MessageId TappedBus::registerMessage(const std::string& text) {
  const MessageId message = inner_.registerMessage(text);
  tap_.answer(Call::RegisterMessage, message);
  return message;
}

AtomId TappedBus::addAtom(const std::string& text) {
  const AtomId atom = inner_.addAtom(text);
  tap_.answer(Call::AddAtom, atom);
  return atom;
}

BlockResult TappedBus::createBlock(const std::string& name, std::size_t size_bytes) {
  const BlockResult created = inner_.createBlock(name, size_bytes);
  size_bytes_ = size_bytes;
  tap_.answer(Call::CreateBlock, created.block, created.alreadyExists ? "exists" : "");
  return created;
}

std::byte* TappedBus::mapBlock(BlockHandle block) {
  view_ = inner_.mapBlock(block);
  tap_.answer(Call::MapBlock, view_ != nullptr ? 1 : 0);
  return view_;
}

bool TappedBus::isIntact(const std::byte* view) {
  const bool intact = inner_.isIntact(view);
  if (!intact) tap_.answer(Call::IsIntact, 0);
  return intact;
}

void TappedBus::unmapBlock(std::byte* view) {
  if (view == view_) view_ = nullptr;
  inner_.unmapBlock(view);
}

std::uint32_t TappedBus::processId() {
  const std::uint32_t id = inner_.processId();
  tap_.answer(Call::ProcessId, id);
  return id;
}

SendResult TappedBus::sendMessage(WindowHandle window, MessageId message, AtomId atom,
                                  int timeout_ms) {
  Exchanged exchange = takeRequest();
  const SendResult sent = inner_.sendMessage(window, message, atom, timeout_ms);
  exchange.answered = sent.answered;
  exchange.reply = sent.reply;
  exchange.lastError = sent.lastError;
  if (sent.answered) takeReply(exchange);
  tap_.tell(std::move(exchange));
  return sent;
}

Exchanged TappedBus::takeRequest() {
  const std::span<const std::byte> block(view_, view_ != nullptr ? size_bytes_ : 0);
  Exchanged exchange;
  request_.clear();
  Record record;
  std::size_t at = 0;
  for (; recordAt(block, at, record); at = record.end) {
    request_.push_back(record.operation);
    const std::size_t from = at + record.header_bytes;
    if (record.operation.write)
      exchange.written += textOfBytes(block.subspan(from, record.end - from));
  }
  sent_ = textOfBytes(block.first(at));
  exchange.request = shared(request_);
  return exchange;
}

const std::shared_ptr<const Request>& TappedBus::shared(const Request& request) {
  if (last_ && *last_ == request) return last_;
  auto known = requests_.find(request);
  if (known == requests_.end())
    known = requests_.insert(std::make_shared<const Request>(request)).first;
  return last_ = *known;
}

/// The other side may still be writing: what is compared is what was copied, with the id behind the
/// last record, which is 0.
void TappedBus::takeReply(Exchanged& exchange) {
  const std::span<const std::byte> block(view_, view_ != nullptr ? size_bytes_ : 0);
  const std::size_t end = sent_.size();
  reply_ = textOfBytes(block.first(std::min(end + sizeof(std::uint16_t), block.size())));
  bool intact = reply_.find_first_not_of('\0', end) == std::string::npos;
  std::size_t at = 0;
  for (const Operation& operation : *exchange.request) {
    const std::size_t header = operation.write ? WriteHeader_bytes : ReadHeader_bytes;
    intact = intact && std::memcmp(&reply_[at], &sent_[at], header) == 0;
    at += header;
    if (!operation.write) exchange.read.append(reply_, at, operation.size_bytes);
    at += operation.size_bytes;
  }
  if (intact) return;
  exchange.read.clear();
  exchange.damaged = textOfBytes(block);
}

}  // namespace vorlent
