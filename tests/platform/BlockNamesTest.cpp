#include "platform/linux/BlockNames.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>

#include "gtest/gtest.h"
#include "platform/linux/UnixSimulatorBus.h"

namespace vorlent {
namespace {

struct End {
  std::string name;
  void (*die)();
};

void PrintTo(const End& end, std::ostream* stream) { *stream << end.name; }

[[noreturn]] void dieAs(void (*die)(), const std::string& blockName) {
  freopen("/dev/null", "w", stderr);
  // What the libraries of other tests of this process made of the signals.
  std::signal(SIGPIPE, SIG_DFL);
  sigset_t none{};
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  UnixSimulatorBus bus;
  if (bus.createBlock(blockName, 32768).block == 0) _exit(99);
  unlinkBlocksAtAbruptEnd();
  die();
  _exit(0);
}

class AbruptEnd : public testing::TestWithParam<End> {
 protected:
  const std::string id = std::to_string(getpid());
  const std::string name = "VorlentEnd:" + id;
  const std::string path = "/dev/shm/VorlentEnd." + id;
};

TEST_P(AbruptEnd, UnlinksTheBlockAndStillEndsTheProcess) {
  const pid_t child = fork();
  if (child == 0) dieAs(GetParam().die, name);
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  const bool left = std::filesystem::exists(path);
  std::filesystem::remove(path);
  EXPECT_FALSE(left);
  EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) != 0);
  EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 99) << "no block was made";
}

/// Writes to a page that may not be touched.
void fault() {
  *static_cast<volatile char*>(mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) =
      1;
}

volatile int deepest = 1 << 30;

int overrunStack(int level) {
  volatile char frame[4096];
  frame[0] = static_cast<char>(level);
  return level == deepest ? 0 : overrunStack(level + 1) + frame[0];
}

const End ends[] = {
    {"Terminate", [] { std::terminate(); }},
    {"Abort", [] { std::abort(); }},
    {"Exit", [] { std::exit(3); }},
    {"SegmentationFault", fault},
    {"StackOverrun", [] { overrunStack(0); }},
    {"Hangup", [] { raise(SIGHUP); }},
    {"Quit", [] { raise(SIGQUIT); }},
    {"BrokenPipe", [] { raise(SIGPIPE); }},
};

INSTANTIATE_TEST_SUITE_P(Ways, AbruptEnd, testing::ValuesIn(ends),
                         [](const auto& way) { return way.param.name; });

TEST(AbruptEndOfAForkedChild, LeavesItsParentsBlock) {
  const std::string id = std::to_string(getpid());
  const std::string name = "VorlentEnd:" + id;
  const std::string path = "/dev/shm/VorlentEnd." + id;
  const pid_t child = fork();
  if (child == 0) {
    freopen("/dev/null", "w", stderr);
    UnixSimulatorBus bus;
    if (bus.createBlock(name, 32768).block == 0) _exit(99);
    unlinkBlocksAtAbruptEnd();
    const pid_t grandchild = fork();
    if (grandchild == 0) std::abort();
    waitpid(grandchild, nullptr, 0);
    _exit(std::filesystem::exists(path) ? 7 : 8);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  std::filesystem::remove(path);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 7);
}

}  // namespace
}  // namespace vorlent
