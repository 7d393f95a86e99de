#include "base/FileOpen.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vorlent {
namespace {

struct Mode {
  int flags;
  const char* stream;
};

Mode modeOf(FileUse use) {
  switch (use) {
    case FileUse::Update:
      return {O_RDWR | O_CREAT, "r+b"};
    case FileUse::Append:
      return {O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW, "ab"};
    case FileUse::Create:
      return {O_WRONLY | O_CREAT | O_EXCL, "wb"};
    case FileUse::Read:
      break;
  }
  return {O_RDONLY, "rb"};
}

std::FILE* closeAndFail(int descriptor, int error) {
  close(descriptor);
  errno = error;
  return nullptr;
}

int spare = -1;

}  // namespace

std::FILE* openRegularFile(const std::string& path, FileUse use) {
  const Mode mode = modeOf(use);
  // O_NONBLOCK: opening a pipe would wait for its other end. It changes nothing for a file.
  const int descriptor = open(path.c_str(), mode.flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
  if (descriptor < 0) return nullptr;
  struct stat found {};
  if (fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode))
    return closeAndFail(descriptor, ENOTSUP);
  std::FILE* file = fdopen(descriptor, mode.stream);
  return file ? file : closeAndFail(descriptor, errno);
}

SpareDescriptor::SpareDescriptor() {
  if (spare >= 0) close(std::exchange(spare, -1));
}

SpareDescriptor::~SpareDescriptor() {
  if (spare < 0) spare = open("/dev/null", O_RDONLY | O_CLOEXEC);
}

}  // namespace vorlent
