#include "platform/linux/LocaleRegional.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "gtest/gtest.h"
#include "support/ScopedEnvironment.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

/// Makes a locale "comma" of its own, so that it does not matter which ones are installed.
class LocaleRegionalTest : public testing::Test {
 protected:
  LocaleRegionalTest() {
    folder.write("source",
                 "comment_char %\nescape_char /\nLC_NUMERIC\ndecimal_point \"<U002C>\"\n"
                 "thousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
    // Complains about the categories that are missing, and makes the locale.
    const std::string command =
        "localedef -c -i '" + folder / "source" + "' '" + folder / "comma" + "' >/dev/null 2>&1";
    made = std::system(command.c_str()) != -1 && std::filesystem::exists(folder / "comma");
  }
  void SetUp() override { ASSERT_TRUE(made); }

  /// Asked in a child process: the C library never frees what it makes of LOCPATH, which a leak
  /// checker would take for ours.
  static std::string mark() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return "(no pipe)";
    const pid_t child = fork();
    if (child == 0) {
      const std::string answer = LocaleRegional().decimalSeparator();
      _exit(write(ends[1], answer.data(), answer.size()) < 0 ? 1 : 0);
    }
    close(ends[1]);
    std::array<char, 16> answer;
    const auto size = read(ends[0], answer.data(), answer.size());
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return size < 0 ? "(nothing)" : std::string(answer.data(), static_cast<std::size_t>(size));
  }

  TempFolder folder;
  bool made = false;
  ScopedEnvironment path{"LOCPATH", folder.path()};
  ScopedEnvironment all{"LC_ALL", std::nullopt};
  ScopedEnvironment numeric{"LC_NUMERIC", std::nullopt};
  ScopedEnvironment language{"LANG", std::nullopt};
};

TEST_F(LocaleRegionalTest, WithoutAnySettingThePointIsTheMark) { EXPECT_EQ(mark(), "."); }

TEST_F(LocaleRegionalTest, LangGivesTheMark) {
  const ScopedEnvironment lang{"LANG", "comma"};
  EXPECT_EQ(mark(), ",");
}

TEST_F(LocaleRegionalTest, LcNumericGoesBeforeLang) {
  const ScopedEnvironment lang{"LANG", "C"};
  const ScopedEnvironment lcNumeric{"LC_NUMERIC", "comma"};
  EXPECT_EQ(mark(), ",");
}

TEST_F(LocaleRegionalTest, LcAllGoesBeforeLcNumeric) {
  const ScopedEnvironment lcNumeric{"LC_NUMERIC", "comma"};
  const ScopedEnvironment lcAll{"LC_ALL", "C"};
  EXPECT_EQ(mark(), ".");
}

TEST_F(LocaleRegionalTest, AnEmptyVariableIsPassedOver) {
  const ScopedEnvironment lang{"LANG", "comma"};
  const ScopedEnvironment lcAll{"LC_ALL", ""};
  EXPECT_EQ(mark(), ",");
}

TEST_F(LocaleRegionalTest, ALocaleThatIsNotInstalledGivesAPoint) {
  const ScopedEnvironment lang{"LANG", "xx_XX.UTF-8"};
  EXPECT_EQ(mark(), ".");
}

TEST(LocaleRegional, LeavesTheProcessesOwnLocaleAlone) {
  const ScopedEnvironment lcAll{"LC_ALL", "C.UTF-8"};
  LocaleRegional().decimalSeparator();
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

}  // namespace
}  // namespace vorlent
