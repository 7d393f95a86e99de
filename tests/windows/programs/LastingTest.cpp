#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "windows/support/WindowsCockpit.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

struct Held {
  std::ptrdiff_t descriptors;
  double memory_MB;
};

std::string contentOf(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

/// Wine tells no process what another one holds; the system below it does.
Held heldBy(const std::string& program) {
  for (const auto& process : fs::directory_iterator("Z:/proc")) {
    const std::string status = contentOf(process.path() / "status");
    const auto memory = status.find("RssAnon:");
    if (memory == std::string::npos ||
        contentOf(process.path() / "cmdline").find(program) == std::string::npos)
      continue;
    const auto descriptors = fs::directory_iterator(process.path() / "fd");
    return {std::distance(begin(descriptors), end(descriptors)),
            std::strtod(status.c_str() + memory + 8, nullptr) / 1000};
  }
  throw std::runtime_error("no process of " + program);
}

/// What the server holds while it polls, sends records, carries out commands, and is left and
/// greeted again every few seconds: ten minutes long, or one where walks are short.
TEST(LastingServer, HoldsAsMuchAfterTenMinutesAsAfterTheFirstSeconds) {
  using Clock = std::chrono::steady_clock;
  WindowsCockpit cockpit;
  const DisplayLink display;
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const auto flyFor = [&](std::chrono::seconds duration) {
    const auto end = Clock::now() + duration;
    for (int i = 0; Clock::now() < end; ++i) {
      if (i % 100 == 0) display.send(cockpit.basePort, "Connection on a b 50 display");
      display.send(cockpit.basePort, "p A 82 " + std::to_string(i % 360) + " P 172 1 ");
      ASSERT_TRUE(display.receive("Data 2 1 "));
    }
  };
  const std::string program =
      fs::path(cockpit.folder.path()).filename().string() + "\\Flight deck 7\\vorlentd.exe";
  flyFor(10s);
  const Held first = heldBy(program);
  flyFor(std::getenv("VORLENT_SHORT_WALKS") == nullptr ? 600s : 50s);
  const Held last = heldBy(program);
  std::printf("descriptors %td, then %td; memory %.2f MB, then %.2f MB\n", first.descriptors,
              last.descriptors, first.memory_MB, last.memory_MB);
  EXPECT_GT(first.descriptors, 0);
  EXPECT_LE(last.descriptors, first.descriptors);
  EXPECT_GT(first.memory_MB, 1);
  EXPECT_LT(last.memory_MB, first.memory_MB + 1);
}

}  // namespace
}  // namespace vorlent
