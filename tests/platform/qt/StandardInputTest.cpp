#include "platform/qt/StandardInput.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/Descriptor.h"
#include "platform/qt/QtFixture.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using Lines = std::vector<std::string>;

class StandardInputTest : public QtFixture {
 protected:
  StandardInputTest() {
    std::array<int, 2> pipeEnds{};
    if (pipe2(pipeEnds.data(), O_CLOEXEC) == 0) {
      reading = Descriptor(pipeEnds[0]);
      writing = Descriptor(pipeEnds[1]);
    }
  }
  std::unique_ptr<StandardInput> inputFrom(const Descriptor& source) {
    return std::make_unique<StandardInput>([this](const std::string& line) { take(line); },
                                           [this] { ++ends; }, source.number());
  }
  void type(const std::string& text) const {
    ASSERT_EQ(write(writing.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void take(const std::string& line) {
    if (onLine) onLine(line);
    lines.push_back(line);
  }
  bool ended() {
    return comes([this] { return ends > 0; });
  }

  Descriptor reading, writing;
  Lines lines;
  int ends = 0;
  std::function<void(const std::string&)> onLine;
};

TEST_F(StandardInputTest, OfALineThatIsTooLongTheBeginningComesAndTheNextLineIsWhole) {
  const auto input = inputFrom(reading);
  // 20 MB: what keeps all that has come takes minutes to look through it again and again.
  std::thread typing([this] {
    const std::string part(1 << 20, 'x');
    for (int i = 0; i < 20; ++i)
      for (std::size_t done = 0; done < part.size();) {
        const auto count = write(writing.number(), part.data(), part.size() - done);
        if (count < 0) return;
        done += static_cast<std::size_t>(count);
      }
    type("\nlist frmMainClient\n");
  });
  const bool came = comes([&] { return lines.size() >= 2; });
  if (!came) reading = Descriptor();
  typing.join();
  ASSERT_TRUE(came);
  EXPECT_EQ(lines, (Lines{std::string(65536, 'x'), "list frmMainClient"}));
}

TEST_F(StandardInputTest, ALineComesWhenItsEndHasCome) {
  const auto input = inputFrom(reading);
  type("list frm");
  QCoreApplication::processEvents();
  EXPECT_TRUE(lines.empty());
  type("MainClient\nget");
  ASSERT_TRUE(comes([&] { return !lines.empty(); }));
  EXPECT_EQ(lines, Lines{"list frmMainClient"});
  EXPECT_EQ(ends, 0);
}

TEST_F(StandardInputTest, WhatStandsBehindTheLastLineEndIsALineToo) {
  const auto input = inputFrom(reading);
  type("one\n\r\ntwo\r\n\nthree");
  writing = Descriptor();
  ASSERT_TRUE(ended());
  EXPECT_EQ(lines, (Lines{"one", "", "two", "", "three"}));
}

TEST_F(StandardInputTest, TheEndIsToldOnce) {
  const auto input = inputFrom(reading);
  writing = Descriptor();
  ASSERT_TRUE(ended());
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(lines.empty());
}

TEST_F(StandardInputTest, NoInputAtAllEndsAtOnce) {
  const Descriptor none(open("/dev/null", O_RDONLY | O_CLOEXEC));
  const auto input = inputFrom(none);
  EXPECT_TRUE(ended());
  EXPECT_TRUE(lines.empty());
}

TEST_F(StandardInputTest, AFileIsReadToItsEnd) {
  const TempFolder folder;
  std::string content;
  for (int i = 0; i < 3000; ++i) content += std::to_string(i) + "\n";
  folder.write("commands", content);
  const Descriptor file(open((folder / "commands").c_str(), O_RDONLY | O_CLOEXEC));
  const auto input = inputFrom(file);
  ASSERT_TRUE(ended());
  ASSERT_EQ(lines.size(), 3000u);
  EXPECT_EQ(lines.front(), "0");
  EXPECT_EQ(lines.back(), "2999");
}

TEST_F(StandardInputTest, ATerminalIsReadLineByLineAndStaysBlocking) {
  const Descriptor keyboard(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
  ASSERT_EQ(grantpt(keyboard.number()), 0);
  ASSERT_EQ(unlockpt(keyboard.number()), 0);
  const Descriptor terminal(open(ptsname(keyboard.number()), O_RDWR | O_NOCTTY | O_CLOEXEC));
  const auto input = inputFrom(terminal);
  ASSERT_EQ(write(keyboard.number(), "get\r\x04", 5), 5);
  ASSERT_TRUE(ended());
  EXPECT_EQ(lines, Lines{"get"});
  EXPECT_EQ(fcntl(terminal.number(), F_GETFL) & O_NONBLOCK, 0);
}

TEST_F(StandardInputTest, LinesKeepTheirOrderWhenAHandlerPumps) {
  const auto input = inputFrom(reading);
  onLine = [&](const std::string& line) {
    if (line != "one") return;
    lines.push_back("(in one)");
    type("three\n");
    comes([&] { return lines.size() == 3; });
  };
  type("one\ntwo\n");
  ASSERT_TRUE(comes([&] { return lines.size() == 4; }));
  EXPECT_EQ(lines, (Lines{"(in one)", "two", "three", "one"}));
}

}  // namespace
}  // namespace vorlent
