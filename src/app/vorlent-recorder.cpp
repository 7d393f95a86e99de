// The helper of the server that writes recordings. It is a program of its own because a disk may be
// slow or full, which must not touch the flight.

#include <chrono>
#include <exception>
#include <memory>
#include <string>

#include "commandline/CommandLine.h"
#include "recorder/RecorderHelper.h"
#include "recorder/ServerPipe.h"

namespace {

using namespace vorlent;

std::int64_t now_ms() {
  using std::chrono::duration_cast;
  return duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

/// Until the server has gone, or asked for the end.
void record(RecorderHelper& helper, ServerPipe& server) {
  for (;;) {
    helper.work(now_ms());
    const auto bytes = server.read(helper.pause_ms(now_ms()));
    if (!bytes) break;
    if (!bytes->empty()) helper.take(*bytes, now_ms());
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
  const std::unique_ptr<ServerPipe> server = pipeFromServer();
  try {
    constexpr std::uint64_t Megabyte = 1'000'000;
    RecorderHelper helper(folder, size_MB * Megabyte,
                          [&server](const std::string& sentence) { server->tell(sentence); });
    record(helper, *server);
    return 0;
  } catch (const std::exception& error) {
    server->tell(std::string("Nothing is recorded: ") + error.what());
    return 1;
  }
}
