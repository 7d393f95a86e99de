#include "platform/helper/Message.h"

#include "base/bytes.h"

namespace vorlent {
namespace {

void appendLength(std::string& to, std::size_t length) {
  const auto value = static_cast<MessageLength>(length);
  to.append(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

std::string packed(const Message& message) {
  std::size_t total = 0;
  for (const std::string& text : message) total += sizeof(MessageLength) + text.size();
  std::string bytes;
  bytes.reserve(sizeof(MessageLength) + total);
  appendLength(bytes, total);
  for (const std::string& text : message) {
    appendLength(bytes, text.size());
    bytes += text;
  }
  return bytes;
}

std::optional<Message> unpacked(std::string_view bytes) {
  Message message;
  while (!bytes.empty()) {
    if (bytes.size() < sizeof(MessageLength)) return std::nullopt;
    const auto length = load<MessageLength>(bytes.data());
    bytes.remove_prefix(sizeof(MessageLength));
    if (length > bytes.size()) return std::nullopt;
    message.emplace_back(bytes.substr(0, length));
    bytes.remove_prefix(length);
  }
  return message;
}

}  // namespace vorlent
