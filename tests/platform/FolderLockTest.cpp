#include "platform/linux/FolderLock.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>

#include "gtest/gtest.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

TEST(FolderLock, TheSecondClaimOfAFolderFails) {
  const TempFolder folder;
  FolderLock first, second;
  EXPECT_TRUE(first.claim(folder.path()));
  EXPECT_FALSE(second.claim(folder.path()));
}

TEST(FolderLock, AnotherFolderIsAnotherInstallation) {
  const TempFolder folder, another;
  FolderLock first, second;
  EXPECT_TRUE(first.claim(folder.path()));
  EXPECT_TRUE(second.claim(another.path()));
}

TEST(FolderLock, LeavesNoFileInTheFolder) {
  const TempFolder folder;
  FolderLock lock;
  lock.claim(folder.path());
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(FolderLock, TheClaimGoesWithItsObject) {
  const TempFolder folder;
  std::optional<FolderLock> first(std::in_place);
  ASSERT_TRUE(first->claim(folder.path()));
  first.reset();
  EXPECT_TRUE(FolderLock().claim(folder.path()));
}

TEST(FolderLock, TheClaimGoesWithAProcessThatIsKilled) {
  const TempFolder folder;
  int claimed[2];
  ASSERT_EQ(pipe(claimed), 0);
  const pid_t child = fork();
  if (child == 0) {
    FolderLock lock;
    const char done = lock.claim(folder.path()) ? 'y' : 'n';
    if (write(claimed[1], &done, 1) != 1) _exit(1);
    for (;;) pause();
  }
  char answer = 0;
  ASSERT_EQ(read(claimed[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_FALSE(FolderLock().claim(folder.path()));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(FolderLock().claim(folder.path()));
  close(claimed[0]);
  close(claimed[1]);
}

TEST(FolderLock, AFolderThatCannotBeLockedCountsAsFree) {
  EXPECT_TRUE(FolderLock().claim("/nonexistent/folder"));
}

}  // namespace
}  // namespace vorlent
