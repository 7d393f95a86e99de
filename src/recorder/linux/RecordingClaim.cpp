#include "recorder/RecordingClaim.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vorlent {

struct RecordingClaim::Held {
  int file;
};

RecordingClaim::RecordingClaim(const std::string& path)
    : held_(std::make_unique<Held>(Held{open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)})) {
  if (held_->file >= 0) flock(held_->file, LOCK_EX | LOCK_NB);
}

RecordingClaim::~RecordingClaim() {
  if (held_->file >= 0) close(held_->file);
}

bool isBeingWritten(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool taken = file >= 0 && flock(file, LOCK_EX | LOCK_NB) != 0;
  if (file >= 0) close(file);
  return taken;
}

bool takesFiles(const std::string& folder) { return access(folder.c_str(), W_OK | X_OK) == 0; }

}  // namespace vorlent
