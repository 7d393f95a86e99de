#include "platform/win32/helper/PipeMessages.h"

#include <windows.h>

#include <string>

#include "base/bytes.h"

namespace vorlent {
namespace {

bool readAll(HANDLE pipe, std::string& bytes) {
  for (std::size_t got = 0; got < bytes.size();) {
    DWORD count = 0;
    const auto left = static_cast<DWORD>(bytes.size() - got);
    if (ReadFile(pipe, bytes.data() + got, left, &count, nullptr) == 0 || count == 0) return false;
    got += count;
  }
  return true;
}

}  // namespace

bool writeMessage(void* pipe, const Message& message) {
  const std::string bytes = packed(message);
  DWORD count = 0;
  return WriteFile(pipe, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) != 0 &&
         count == bytes.size();
}

std::optional<Message> readMessage(void* pipe, std::size_t most_bytes) {
  std::string length(sizeof(MessageLength), '\0');
  if (!readAll(pipe, length)) return std::nullopt;
  const auto total = load<MessageLength>(length.data());
  if (total > most_bytes) return std::nullopt;
  std::string bytes(total, '\0');
  if (!readAll(pipe, bytes)) return std::nullopt;
  return unpacked(bytes);
}

}  // namespace vorlent
