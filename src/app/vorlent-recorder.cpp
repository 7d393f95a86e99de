// The helper of the server that writes recordings. It is a program of its own because a disk may be
// slow or full, which must not touch the flight.

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

#include "commandline/CommandLine.h"
#include "recorder/RecorderHelper.h"

namespace {

using namespace vorlent;

std::int64_t now_ms() {
  using std::chrono::duration_cast;
  return duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

/// To the server, by the way its events come; to nobody where that is a pipe.
void tellServer(const std::string& sentence) {
  const std::string line = sentence + "\n";
  send(STDIN_FILENO, line.data(), line.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
}

/// Until the server has gone, or asked for the end.
void record(RecorderHelper& helper) {
  std::array<char, 65536> buffer;
  for (;;) {
    helper.work(now_ms());
    pollfd input{STDIN_FILENO, POLLIN, 0};
    const int pause_ms = static_cast<int>(helper.pause_ms(now_ms()).value_or(-1));
    if (poll(&input, 1, pause_ms) <= 0) continue;
    const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    helper.take({buffer.data(), static_cast<std::size_t>(count)}, now_ms());
  }
  helper.finish();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  std::string folder;
  unsigned size_MB = 0;
  try {
    CommandLine line("vorlent-recorder",
                     "A part of the server, which starts it: writes recordings.");
    line.option("FOLDER", "", folder, "Where to");
    line.option("SIZE_MB", "", size_MB, "How much may lie there");
    line.read(argumentsOf(argumentCount, arguments));
    if (folder.empty() || size_MB == 0) line.refuse("it takes a folder and a size");
  } catch (const CommandLineEnd& end) {
    return tell(end);
  }
  // The end of the server is the end of its events; a terminal or a service manager tells both at
  // once to go, and the last events are still to come then.
  for (const int request : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGXFSZ})
    std::signal(request, SIG_IGN);
  try {
    constexpr std::uint64_t Megabyte = 1'000'000;
    RecorderHelper helper(folder, size_MB * Megabyte, tellServer);
    record(helper);
    return 0;
  } catch (const std::exception& error) {
    tellServer(std::string("Nothing is recorded: ") + error.what());
    return 1;
  }
}
