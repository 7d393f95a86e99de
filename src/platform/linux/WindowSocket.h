#pragma once

#include <sys/types.h>

#include <string>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A window of the simulator interface: a SOCK_SEQPACKET socket that listens at `<folder>/<class>`
/// for as long as the object lives, for this user alone whatever the umask.
class WindowSocket {
 public:
  /// Takes the place of a socket that a dead simulator left. Raises RuntimeError (PathAccess) with
  /// a plain description when a living one listens there or the socket cannot be made.
  WindowSocket(const std::string& folder, const std::string& windowClass);
  WindowSocket(WindowSocket&&) noexcept = default;
  WindowSocket& operator=(WindowSocket&&) = delete;
  ~WindowSocket();

  int descriptor() const { return socket_.number(); }

 private:
  std::string path_;
  Descriptor socket_;
  dev_t device_ = 0;
  ino_t inode_ = 0;
};

}  // namespace vorlent
