#include "platform/linux/UserShare.h"

#include <chrono>
#include <filesystem>
#include <string>

#include "gtest/gtest.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

/// A program in the place of Samba's: notes its arguments, one in brackets each, and goes on with
/// `body`, which sees "info" or "add" in $2.
class UserShareTest : public testing::Test {
 protected:
  std::string net(const std::string& body) const {
    folder.write("net", "#!/bin/sh\nfor a in \"$@\"; do printf '[%s]' \"$a\"; done >> '" +
                            folder.path() + "/calls'\necho >> '" + folder.path() + "/calls'\n" +
                            body + "\n");
    std::filesystem::permissions(folder / "net", std::filesystem::perms::owner_all);
    return folder / "net";
  }
  std::string calls() const { return folder.read("calls"); }

  TempFolder folder;
};

TEST_F(UserShareTest, AddsAShareThatIsNotThere) {
  UserShare share(net("test $2 = add"));
  EXPECT_TRUE(share.publish("Vorlent", "/opt/cockpit server"));
  EXPECT_EQ(calls(),
            "[usershare][info][Vorlent]\n[usershare][add][Vorlent][/opt/cockpit server]\n");
}

TEST_F(UserShareTest, NothingIsRunForAFolderThatIsSharedAlready) {
  UserShare share(net("echo '[Vorlent]'\necho path=/opt/cockpit\necho comment="));
  EXPECT_FALSE(share.publish("Vorlent", "/opt/cockpit"));
  EXPECT_EQ(calls(), "[usershare][info][Vorlent]\n");
}

TEST_F(UserShareTest, AShareOfAnotherFolderIsChanged) {
  UserShare share(net("echo '[Vorlent]'\necho path=/opt/cockpit2"));
  EXPECT_TRUE(share.publish("Vorlent", "/opt/cockpit"));
  EXPECT_EQ(calls(), "[usershare][info][Vorlent]\n[usershare][add][Vorlent][/opt/cockpit]\n");
}

TEST_F(UserShareTest, ACommandThatFailsHasBeenRunAllTheSame) {
  UserShare share(net("exit 255"));
  EXPECT_TRUE(share.publish("Vorlent", "/opt/cockpit"));
}

TEST_F(UserShareTest, WithoutTheProgramThereIsNothingToRun) {
  UserShare share(folder / "none");
  EXPECT_FALSE(share.publish("Vorlent", "/opt/cockpit"));
}

TEST_F(UserShareTest, NoShellReadsTheNames) {
  UserShare share(net(""));
  const std::string trap = "$(touch " + folder / "trap" + ")'\"; touch " + folder / "trap";
  EXPECT_TRUE(share.publish("Vorlent", trap));
  EXPECT_FALSE(std::filesystem::exists(folder / "trap"));
}

TEST_F(UserShareTest, AProgramThatHangsCostsItsDeadline) {
  constexpr int deadline_ms = 100;
  UserShare share(net("exec sleep 60"), deadline_ms);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(share.publish("Vorlent", "/opt/cockpit"));
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GE(took, std::chrono::milliseconds(2 * deadline_ms));
  EXPECT_LT(took, std::chrono::seconds(20));
}

}  // namespace
}  // namespace vorlent
