#include "platform/QueuedOutput.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

/// A pipe that holds one page, 4096 bytes, and whose reader reads when he is asked to.
class QueuedOutputTest : public testing::Test {
 protected:
  QueuedOutputTest() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    from = Descriptor(ends[0]);
    to = std::make_unique<Descriptor>(ends[1]);
    fcntl(from.number(), F_SETPIPE_SZ, 4096);
  }

  /// Reads until the text ends so, 10 s at most.
  std::string readUntil(const std::string& end) const {
    std::string text;
    std::array<char, 4096> buffer;
    pollfd waiting{from.number(), POLLIN, 0};
    while (!text.ends_with(end) && poll(&waiting, 1, 10000) > 0) {
      const ssize_t count = read(from.number(), buffer.data(), buffer.size());
      if (count <= 0) break;
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

  Descriptor from;
  std::unique_ptr<Descriptor> to;
};

/// 100 bytes with the number at its start.
std::string line(int number) {
  std::string text = std::to_string(number) + " ";
  text.resize(99, '.');
  return text + "\n";
}

std::string lines(int first, int last) {
  std::string text;
  for (int number = first; number <= last; ++number) text += line(number);
  return text;
}

TEST_F(QueuedOutputTest, WritesLinesInTheirOrder) {
  QueuedOutput output(to->number());
  for (int number = 1; number <= 1000; ++number) output.write(line(number));
  EXPECT_EQ(readUntil("\n" + line(1000)), lines(1, 1000));
}

TEST_F(QueuedOutputTest, WritesEachLineWithoutWaitingForTheNext) {
  QueuedOutput output(to->number());
  output.write("first\n");
  EXPECT_EQ(readUntil("\n"), "first\n");
  output.write("second\n");
  EXPECT_EQ(readUntil("\n"), "second\n");
}

TEST_F(QueuedOutputTest, DropsWhatDoesNotFitWhileNobodyReadsAndTellsWhereItIsMissing) {
  QueuedOutput output(to->number(), 10000);
  const auto start = Clock::now();
  for (int number = 1; number <= 2000; ++number) output.write(line(number));
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
  const std::string text = readUntil(" lines dropped)\n");
  // At least what the queue holds is kept; what the pipe has taken by then is kept besides.
  const std::size_t kept = text.find('(') / 100;
  EXPECT_GE(kept, 100u);
  EXPECT_EQ(text, lines(1, static_cast<int>(kept)) + "(" + std::to_string(2000 - kept) +
                      " lines dropped)\n");
  output.write("back\n");
  EXPECT_EQ(readUntil("back\n"), "back\n");
}

TEST_F(QueuedOutputTest, TakesALineThatIsLargerThanTheQueueWhenNoOtherWaits) {
  QueuedOutput output(to->number(), 100);
  const std::string large = std::string(20000, 'x') + "\n";
  output.write(large);
  EXPECT_EQ(readUntil("\n"), large);
}

TEST_F(QueuedOutputTest, WritesWhatIsQueuedBeforeItGoes) {
  { QueuedOutput(to->number()).write(lines(1, 20)); }
  to.reset();
  EXPECT_EQ(readUntil("never"), lines(1, 20));
}

TEST_F(QueuedOutputTest, GoesSoonEvenWhenNobodyReads) {
  const auto start = Clock::now();
  { QueuedOutput(to->number()).write(lines(1, 100)); }
  const auto took = Clock::now() - start;
  EXPECT_GE(took, std::chrono::milliseconds(200));
  EXPECT_LT(took, std::chrono::seconds(3));
  // Lets the thread come to its end.
  readUntil(line(100));
}

TEST_F(QueuedOutputTest, PassesOverAReaderWhoHasGoneAndEndsAtOnce) {
  from = Descriptor();
  const auto start = Clock::now();
  {
    QueuedOutput output(to->number());
    output.write("lost\n");
    output.write("lost too\n");
  }
  // No signal ended the process, and there was nothing to wait for.
  EXPECT_LT(Clock::now() - start, QueuedOutput::LongestFarewell);
}

TEST_F(QueuedOutputTest, WaitsForRoomWhereAnotherProcessMadeThePipeNonBlocking) {
  fcntl(to->number(), F_SETFL, fcntl(to->number(), F_GETFL) | O_NONBLOCK);
  QueuedOutput output(to->number());
  output.write(lines(1, 500));
  EXPECT_EQ(readUntil(line(500)), lines(1, 500));
}

}  // namespace
}  // namespace vorlent
