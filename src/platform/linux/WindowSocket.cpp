#include "platform/linux/WindowSocket.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "base/RuntimeError.h"
#include "platform/linux/UnixAddress.h"

namespace vorlent {
namespace {

[[noreturn]] void refuse(const std::string& path, const std::string& why) {
  throw RuntimeError(RuntimeError::PathAccess, "Cannot listen at " + path + ": " + why);
}

constexpr mode_t ForUserAlone = 0600;

sockaddr_un addressOf(const std::string& path) {
  const auto address = unixAddress(path);
  if (!address) refuse(path, "the path is too long");
  return *address;
}

/// A socket appears with the rights that it has before it is bound, less the umask's: at no moment
/// may others connect to it.
bool tryBind(const Descriptor& socket, const sockaddr_un& address) {
  fchmod(socket.number(), ForUserAlone);
  return bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool nobodyListens(const sockaddr_un& address) {
  const Descriptor caller = newPacketSocket();
  return !connectTo(caller, address) && errno == ECONNREFUSED;
}

void removeStale(const std::string& path, const sockaddr_un& address) {
  struct stat found {};
  if (lstat(path.c_str(), &found) != 0) return;
  if (!S_ISSOCK(found.st_mode)) refuse(path, "something other than a socket is there");
  if (!nobodyListens(address)) refuse(path, "another program is listening there");
  unlink(path.c_str());
}

}  // namespace

WindowSocket::WindowSocket(const std::string& folder, const std::string& windowClass)
    : path_(folder + "/" + windowClass), socket_(newPacketSocket()) {
  const sockaddr_un address = addressOf(path_);
  // Two simulators that start together must not both take the other's new socket for a stale one.
  const Descriptor lock(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  flock(lock.number(), LOCK_EX);
  if (!tryBind(socket_, address)) {
    if (errno == EADDRINUSE) removeStale(path_, address);
    if (!tryBind(socket_, address)) refuse(path_, std::strerror(errno));
  }
  // A umask may have taken too much away.
  chmod(path_.c_str(), ForUserAlone);
  // As many as a listener serves: a client that finds the queue full is refused, not kept waiting.
  constexpr int Backlog = 64;
  if (listen(socket_.number(), Backlog) != 0) refuse(path_, std::strerror(errno));
  struct stat made {};
  stat(path_.c_str(), &made);
  device_ = made.st_dev;
  inode_ = made.st_ino;
}

WindowSocket::~WindowSocket() {
  if (!socket_) return;
  struct stat found {};
  const bool stillOurs =
      lstat(path_.c_str(), &found) == 0 && found.st_dev == device_ && found.st_ino == inode_;
  if (stillOurs) unlink(path_.c_str());
}

}  // namespace vorlent
