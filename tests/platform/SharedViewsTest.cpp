#include "platform/linux/SharedViews.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "platform/linux/BlockNames.h"
#include "platform/linux/Descriptor.h"

namespace vorlent {
namespace {

constexpr std::size_t Page = 4096;
constexpr std::size_t Size = 8 * Page;

/// A file in memory whose eight pages are mapped and hold 1s.
class SharedViewsTest : public testing::Test {
 protected:
  SharedViewsTest() {
    if (ftruncate(file.number(), Size) != 0) std::abort();
    view = static_cast<std::byte*>(
        mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0));
    std::fill_n(view, Size, std::byte{1});
  }
  ~SharedViewsTest() override {
    forgetView(view);
    munmap(view, Size);
  }
  void cutTo(std::size_t size) const {
    ASSERT_EQ(ftruncate(file.number(), static_cast<off_t>(size)), 0);
  }

  Descriptor file{memfd_create("view", MFD_CLOEXEC)};
  std::byte* view = nullptr;
};

TEST_F(SharedViewsTest, WhatIsGoneReadsAsZeroAndTheViewIsDamaged) {
  ASSERT_TRUE(watchView({view, Size}));
  cutTo(Page);
  EXPECT_FALSE(isViewDamaged(view));
  EXPECT_EQ(view[Page - 1], std::byte{1});
  EXPECT_FALSE(isViewDamaged(view));
  EXPECT_EQ(view[Page], std::byte{0});
  EXPECT_TRUE(isViewDamaged(view));
  EXPECT_EQ(view[0], std::byte{1});
}

TEST_F(SharedViewsTest, WhatIsGoneCanBeWrittenAndTheViewIsDamaged) {
  ASSERT_TRUE(watchView({view, Size}));
  cutTo(0);
  std::fill_n(view, Size, std::byte{2});
  EXPECT_TRUE(isViewDamaged(view));
  EXPECT_EQ(view[Size - 1], std::byte{2});
}

TEST_F(SharedViewsTest, AnotherViewInTheSamePlaceIsWholeAgain) {
  ASSERT_TRUE(watchView({view, Size}));
  cutTo(0);
  EXPECT_EQ(view[0], std::byte{0});
  forgetView(view);
  ASSERT_TRUE(watchView({view, Size}));
  EXPECT_FALSE(isViewDamaged(view));
}

TEST_F(SharedViewsTest, BlocksKeepTheirNamesWhenAViewIsMendedAfterTheirUnlinkingWasArranged) {
  const pid_t child = fork();
  if (child == 0) {
    const Descriptor block(shm_open("/VorlentView", O_CREAT | O_RDWR, 0600));
    rememberBlockName("/VorlentView");
    watchView({view, Size});
    unlinkBlocksAtAbruptEnd();
    cutTo(0);
    const bool mended = view[0] == std::byte{0} && isViewDamaged(view);
    _exit(mended && access("/dev/shm/VorlentView", F_OK) == 0 ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  shm_unlink("/VorlentView");
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

/// Whether a process that watches the view and then does this comes to its end by itself.
template <class Work>
bool survives(std::byte* view, Work work) {
  const pid_t child = fork();
  if (child == 0) {
    freopen("/dev/null", "w", stderr);
    watchView({view, Size});
    work();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(SharedViewsTest, OtherFaultsStillEndTheProcess) {
  cutTo(0);
  EXPECT_TRUE(survives(view, [this] { view[0] = std::byte{1}; }));
  EXPECT_FALSE(survives(view, [this] {
    forgetView(view);
    view[0] = std::byte{1};
  }));
  EXPECT_FALSE(survives(view, [] { raise(SIGBUS); }));
}

}  // namespace
}  // namespace vorlent
