#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>

#include "recorder/HelperTest.h"

namespace vorlent {
namespace {

/// Another process that reads a recording when it is told to. To be made before this process has
/// opened one: SQLite does not go through a fork.
class OtherReader {
 public:
  explicit OtherReader(const std::string& path) {
    EXPECT_EQ(pipe(pipe_.data()), 0);
    child_ = fork();
    if (child_ != 0) return;
    char go = 0;
    if (::read(pipe_[0], &go, 1) == 1) RecordingReader(path).next();
    _exit(0);
  }
  ~OtherReader() {
    for (const int end : pipe_) close(end);
  }
  OtherReader(const OtherReader&) = delete;
  OtherReader& operator=(const OtherReader&) = delete;

  void read() const {
    EXPECT_EQ(::write(pipe_[1], "g", 1), 1);
    int status = -1;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    EXPECT_EQ(status, 0);
  }

 private:
  std::array<int, 2> pipe_{-1, -1};
  pid_t child_ = -1;
};

TEST_F(HelperTest, LosesNothingWhenAnotherProcessReadsAFileThatIsBeyondTheSize) {
  const OtherReader other(files / "Vorlent 2026-11-22 13.16.00.sqlite");
  RecorderHelper small(files.path(), 1, [](const std::string&) {});
  const std::string bytes = sampleBytes();
  small.take(bytes.substr(0, bytes.size() / 2), 0);
  small.work(60'000);
  other.read();
  small.take(bytes.substr(bytes.size() / 2), 60'000);
  small.work(60'100);
  EXPECT_EQ(eventsInTheFile(), sampleStart().size() + sampleEvents().size());
}

}  // namespace
}  // namespace vorlent
