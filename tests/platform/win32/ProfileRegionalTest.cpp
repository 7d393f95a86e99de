#include "platform/win32/ProfileRegional.h"

#include <windows.h>

#include "gtest/gtest.h"

namespace vorlent {
namespace {

/// Leaves the user's own mark as it was.
class ProfileRegionalTest : public testing::Test {
 protected:
  ~ProfileRegionalTest() override { write(former_.c_str()); }

  static void write(const char* mark) { WriteProfileStringA("intl", "sDecimal", mark); }

 private:
  std::string former_ = ProfileRegional().decimalSeparator();
};

TEST_F(ProfileRegionalTest, TheMarkIsTheProfilesAsItIsNow) {
  write(",");
  EXPECT_EQ(ProfileRegional().decimalSeparator(), ",");
  write(".");
  EXPECT_EQ(ProfileRegional().decimalSeparator(), ".");
}

TEST_F(ProfileRegionalTest, AProfileWithoutAMarkGivesNone) {
  write(nullptr);
  EXPECT_EQ(ProfileRegional().decimalSeparator(), "");
}

TEST_F(ProfileRegionalTest, AnOverlongMarkIsCutTo254Characters) {
  write(std::string(300, ',').c_str());
  EXPECT_EQ(ProfileRegional().decimalSeparator(), std::string(254, ','));
}

}  // namespace
}  // namespace vorlent
