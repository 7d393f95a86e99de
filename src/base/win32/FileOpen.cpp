#include "base/FileOpen.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>

#include "base/systemPath.h"

namespace vorlent {
namespace {

struct Mode {
  int flags;
  const char* stream;
};

Mode modeOf(FileUse use) {
  switch (use) {
    case FileUse::Update:
      return {_O_RDWR | _O_CREAT, "r+b"};
    case FileUse::Append:
      return {_O_WRONLY | _O_APPEND | _O_CREAT, "ab"};
    case FileUse::Create:
      return {_O_WRONLY | _O_CREAT | _O_EXCL, "wb"};
    case FileUse::Read:
      break;
  }
  return {_O_RDONLY, "rb"};
}

bool isLink(const std::filesystem::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

bool isOnDisk(int descriptor) {
  return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) == FILE_TYPE_DISK;
}

std::FILE* closeAndFail(int descriptor, int error) {
  _close(descriptor);
  errno = error;
  return nullptr;
}

}  // namespace

std::FILE* openRegularFile(const std::string& name, FileUse use) {
  const std::filesystem::path path = systemPath(name);
  if (use == FileUse::Append && isLink(path)) {
    errno = ELOOP;
    return nullptr;
  }
  const Mode mode = modeOf(use);
  const int descriptor =
      _wopen(path.c_str(), mode.flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
  if (descriptor < 0) return nullptr;
  if (!isOnDisk(descriptor)) return closeAndFail(descriptor, ENOTSUP);
  std::FILE* file = _fdopen(descriptor, mode.stream);
  return file ? file : closeAndFail(descriptor, errno);
}

// Windows has handles enough: a process runs out of memory first.
SpareDescriptor::SpareDescriptor() = default;
SpareDescriptor::~SpareDescriptor() = default;

}  // namespace vorlent
