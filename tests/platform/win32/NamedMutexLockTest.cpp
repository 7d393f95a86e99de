#include "platform/win32/NamedMutexLock.h"

#include "base/text.h"
#include "gtest/gtest.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

TEST(NamedMutexLock, TheSecondClaimOfAFolderFails) {
  const TempFolder folder;
  NamedMutexLock first, second;
  EXPECT_TRUE(first.claim(folder.path()));
  EXPECT_FALSE(second.claim(folder.path()));
}

TEST(NamedMutexLock, AnotherFolderIsAnotherInstallation) {
  const TempFolder folder, another;
  NamedMutexLock first, second;
  EXPECT_TRUE(first.claim(folder.path()));
  EXPECT_TRUE(second.claim(another.path()));
}

TEST(NamedMutexLock, AnotherSpellingOfTheFolderIsTheSameInstallation) {
  const TempFolder folder;
  NamedMutexLock first;
  ASSERT_TRUE(first.claim(folder.path()));
  for (const std::string& spelling : {replaced(folder.path(), "\\", "/"), folder.path() + "\\.",
                                      replaced(folder.path(), "vorlent-", "VORLENT-")}) {
    NamedMutexLock second;
    EXPECT_NE(spelling, folder.path());
    EXPECT_FALSE(second.claim(spelling)) << spelling;
  }
}

TEST(NamedMutexLock, AFolderIsFreeAgainWhenItsHolderGoes) {
  const TempFolder folder;
  {
    NamedMutexLock first;
    EXPECT_TRUE(first.claim(folder.path()));
  }
  NamedMutexLock second;
  EXPECT_TRUE(second.claim(folder.path()));
}

TEST(NamedMutexLock, AClaimThatFailedHoldsNothing) {
  const TempFolder folder;
  NamedMutexLock second, third;
  {
    NamedMutexLock first;
    EXPECT_TRUE(first.claim(folder.path()));
    EXPECT_FALSE(second.claim(folder.path()));
  }
  EXPECT_TRUE(third.claim(folder.path()));
}

TEST(NamedMutexLock, ClaimingAnewGivesUpTheFormerClaim) {
  const TempFolder folder, another;
  NamedMutexLock first, second;
  EXPECT_TRUE(first.claim(folder.path()));
  EXPECT_TRUE(first.claim(another.path()));
  EXPECT_TRUE(second.claim(folder.path()));
}

TEST(NamedMutexLock, AFolderThatDoesNotExistCountsAsFree) {
  const TempFolder folder;
  NamedMutexLock first, second;
  EXPECT_TRUE(first.claim(folder / "missing"));
  EXPECT_TRUE(second.claim(folder / "missing"));
}

}  // namespace
}  // namespace vorlent
