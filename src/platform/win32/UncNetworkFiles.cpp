#include "platform/win32/UncNetworkFiles.h"

#include <windows.h>

#include <optional>
#include <string_view>
#include <utility>

#include "platform/NetworkPath.h"

namespace vorlent {
namespace {

std::wstring wide(const std::string& text) {
  const int size = static_cast<int>(text.size());
  std::wstring result(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), size);
  result.resize(static_cast<std::size_t>(length));
  return result;
}

/// As Windows takes it; empty for a path that is not on the network.
std::wstring uncPath(const std::string& path) {
  const auto network = networkPathOf(path);
  if (!network) return {};
  std::string plain = "\\\\" + network->host;
  for (const std::string& name : network->names) plain += "\\" + name;
  return wide(plain);
}

class File {
 public:
  File(const std::wstring& path, DWORD access, DWORD disposition)
      : handle_(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            disposition, FILE_ATTRIBUTE_NORMAL, nullptr)) {}
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  /// The size, -1 when there is none.
  LONGLONG size() const {
    LARGE_INTEGER size{};
    return GetFileSizeEx(handle_, &size) != 0 ? size.QuadPart : -1;
  }
  /// How many bytes there were; nothing when they could not be read.
  std::optional<std::size_t> read(char* to, std::size_t most) const {
    DWORD count = 0;
    if (ReadFile(handle_, to, static_cast<DWORD>(most), &count, nullptr) == 0) return std::nullopt;
    return count;
  }
  bool write(std::string_view bytes) const {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    return WriteFile(handle_, bytes.data(), size, &count, nullptr) != 0 && count == size;
  }
  bool close() {
    return !isOpen() || CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0;
  }

 private:
  HANDLE handle_;
};

}  // namespace

bool UncNetworkFiles::exists(const std::string& path) {
  const std::wstring native = uncPath(path);
  return !native.empty() && GetFileAttributesW(native.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool UncNetworkFiles::write(const std::string& path, const std::string& content) {
  const std::wstring native = uncPath(path);
  if (native.empty()) return false;
  File file(native, GENERIC_WRITE, CREATE_ALWAYS);
  return file.isOpen() && file.write(content) && file.close();
}

bool UncNetworkFiles::remove(const std::string& path) {
  const std::wstring native = uncPath(path);
  return !native.empty() && DeleteFileW(native.c_str()) != 0;
}

NetworkContent UncNetworkFiles::readUpTo(const std::string& path, std::size_t limit_bytes) {
  constexpr std::size_t Piece_bytes = 1 << 20;
  const std::wstring native = uncPath(path);
  if (native.empty()) return {};
  const File file(native, GENERIC_READ, OPEN_EXISTING);
  if (!file.isOpen() || file.size() < 0) return {};
  if (static_cast<std::size_t>(file.size()) > limit_bytes) return NetworkContent::ofTooLargeFile();
  std::string content;
  std::size_t size = 0;
  for (std::optional<std::size_t> count = 1; count != 0; size += *count) {
    if (size > limit_bytes) return NetworkContent::ofTooLargeFile();
    content.resize(size + Piece_bytes);
    count = file.read(content.data() + size, Piece_bytes);
    if (!count) return {};
  }
  content.resize(size);
  return content;
}

}  // namespace vorlent
