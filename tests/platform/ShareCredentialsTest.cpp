#include "platform/linux/ShareCredentials.h"

#include <filesystem>
#include <string>

#include "base/RuntimeError.h"
#include "gtest/gtest.h"
#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using std::filesystem::perms;

constexpr perms Owners = perms::owner_read | perms::owner_write;

class ShareCredentialsTest : public testing::Test {
 protected:
  std::string file(const std::string& text, perms permissions = Owners) const {
    folder.write("credentials", text);
    std::filesystem::permissions(folder / "credentials", permissions);
    return folder / "credentials";
  }
  /// What is said of the file, without its name.
  std::string complaint(const std::string& path) const {
    const std::string start = "ShareCredentials: " + path + " ";
    try {
      readShareCredentials(path);
    } catch (const RuntimeError& error) {
      const std::string text = error.description();
      return text.starts_with(start) ? text.substr(start.size()) : "not of the file: " + text;
    }
    return "none";
  }

  TempFolder folder;
};

TEST_F(ShareCredentialsTest, AreOneKeyALine) {
  const auto read =
      readShareCredentials(file("# of the PC\r\nuser = captain\r\nPassword=p=a # ss\n\n"
                                "domain =  HOME  "));
  EXPECT_EQ(read.user, "captain");
  EXPECT_EQ(read.password, "p=a # ss");
  EXPECT_EQ(read.domain, "HOME");
}

TEST_F(ShareCredentialsTest, AreNobodysWithoutAFile) {
  EXPECT_EQ(readShareCredentials("").user, "");
}

TEST_F(ShareCredentialsTest, AFileThatOthersCanReadOrWriteIsRefused) {
  const std::string open = "can be read by others than its owner; chmod 600 lets nobody else";
  for (const perms more : {perms::group_read, perms::others_read, perms::others_write}) {
    EXPECT_EQ(complaint(file("user = a", Owners | more)), open);
  }
  EXPECT_EQ(complaint(file("user = a", perms::owner_read)), "none");
}

TEST_F(ShareCredentialsTest, WhatCannotBeReadIsToldAsThat) {
  EXPECT_EQ(complaint(folder / "none"), "is not there");
  EXPECT_EQ(complaint(file("user = a\n" + std::string(65'536, '#'))), "is too large");
  std::filesystem::create_directory(folder / "folder");
  std::filesystem::permissions(folder / "folder", perms::owner_all);
  EXPECT_EQ(complaint(folder / "folder"), "cannot be read");
  const std::string closed = file("user = a", perms::none);
  const OrdinaryUser user;
  EXPECT_EQ(complaint(closed), "cannot be read");
}

TEST_F(ShareCredentialsTest, LinesThatAreNoneAreRefused) {
  const std::string wrong = "has a line that is none of user = , password = and domain = ";
  EXPECT_EQ(complaint(file("user = a\nsecret\n")), wrong);
  EXPECT_EQ(complaint(file("username = a\n")), wrong);
  EXPECT_EQ(complaint(file("password = b\n")), "names no user");
  EXPECT_EQ(complaint(file("")), "names no user");
}

}  // namespace
}  // namespace vorlent
