#include "platform/linux/LocaleRegional.h"

#include <cstdlib>
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

  TempFolder folder;
  bool made = false;
  ScopedEnvironment path{"LOCPATH", folder.path()};
  ScopedEnvironment all{"LC_ALL", std::nullopt};
  ScopedEnvironment numeric{"LC_NUMERIC", std::nullopt};
  ScopedEnvironment language{"LANG", std::nullopt};
  LocaleRegional regional;
};

TEST_F(LocaleRegionalTest, WithoutAnySettingThePointIsTheMark) {
  EXPECT_EQ(regional.decimalSeparator(), ".");
}

TEST_F(LocaleRegionalTest, LangGivesTheMark) {
  const ScopedEnvironment lang{"LANG", "comma"};
  EXPECT_EQ(regional.decimalSeparator(), ",");
}

TEST_F(LocaleRegionalTest, LcNumericGoesBeforeLang) {
  const ScopedEnvironment lang{"LANG", "C"};
  const ScopedEnvironment lcNumeric{"LC_NUMERIC", "comma"};
  EXPECT_EQ(regional.decimalSeparator(), ",");
}

TEST_F(LocaleRegionalTest, LcAllGoesBeforeLcNumeric) {
  const ScopedEnvironment lcNumeric{"LC_NUMERIC", "comma"};
  const ScopedEnvironment lcAll{"LC_ALL", "C"};
  EXPECT_EQ(regional.decimalSeparator(), ".");
}

TEST_F(LocaleRegionalTest, AnEmptyVariableIsPassedOver) {
  const ScopedEnvironment lang{"LANG", "comma"};
  const ScopedEnvironment lcAll{"LC_ALL", ""};
  EXPECT_EQ(regional.decimalSeparator(), ",");
}

TEST_F(LocaleRegionalTest, ALocaleThatIsNotInstalledGivesAPoint) {
  const ScopedEnvironment lang{"LANG", "xx_XX.UTF-8"};
  EXPECT_EQ(regional.decimalSeparator(), ".");
}

TEST_F(LocaleRegionalTest, TheProcessesOwnNumbersStayAsTheyAre) {
  const ScopedEnvironment lang{"LANG", "comma"};
  regional.decimalSeparator();
  EXPECT_EQ(std::to_string(1.5), "1.500000");
}

}  // namespace
}  // namespace vorlent
