#include "platform/DeadlineNetworkFiles.h"

#include <chrono>
#include <future>
#include <string>

#include "gtest/gtest.h"
#include "support/VirtualEventLoop.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;

/// One file of content "plan" on each host; the host "hangs" answers when it is let go.
class SlowFiles : public NetworkFiles {
 public:
  bool exists(const std::string& path) override {
    waitAt(path);
    return true;
  }
  bool write(const std::string& path, const std::string& content) override {
    waitAt(path);
    return content == "plan";
  }
  bool remove(const std::string& path) override {
    waitAt(path);
    return true;
  }
  void letGo() { letGo_.set_value(); }

 protected:
  NetworkContent readUpTo(const std::string& path, std::size_t limit_bytes) override {
    waitAt(path);
    return limit_bytes < 4 ? NetworkContent::ofTooLargeFile() : NetworkContent("plan");
  }

 private:
  void waitAt(const std::string& path) const {
    if (path.find("hangs") != std::string::npos) goes_.wait();
  }

  std::promise<void> letGo_;
  std::shared_future<void> goes_ = letGo_.get_future().share();
};

template <class Work>
std::chrono::steady_clock::duration timeOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::steady_clock::now() - start;
}

class DeadlineNetworkFilesTest : public testing::Test {
 protected:
  std::shared_ptr<SlowFiles> slow = std::make_shared<SlowFiles>();
  VirtualEventLoop clock;
  DeadlineNetworkFiles files{slow, clock};
};

TEST_F(DeadlineNetworkFilesTest, WhatIsInTimeComesThrough) {
  const std::string path = "\\\\fmc-pc\\Tarnwick\\EXEC";
  EXPECT_EQ(files.read(path), "plan");
  EXPECT_TRUE(files.read(path, 3).tooLarge);
  EXPECT_TRUE(files.exists(path));
  EXPECT_TRUE(files.write(path, "plan"));
  EXPECT_FALSE(files.write(path, "other"));
  EXPECT_TRUE(files.remove(path));
}

TEST_F(DeadlineNetworkFilesTest, PathsThatAreNotOnTheNetworkAreNotAsked) {
  EXPECT_FALSE(files.exists("C:\\EXEC"));
  EXPECT_EQ(files.read("\\\\fmc-pc\\..\\EXEC"), std::nullopt);
}

TEST_F(DeadlineNetworkFilesTest, AHostThatHangsCostsOneDeadlineThenNothingFor30Seconds) {
  const std::string path = "\\\\hangs\\Tarnwick\\EXEC";
  EXPECT_GE(timeOf([&] { EXPECT_EQ(files.read(path), std::nullopt); }), 1000ms);
  slow->letGo();
  clock.advance(29'999);
  EXPECT_FALSE(files.exists(path));
  EXPECT_FALSE(files.write(path, "plan"));
  EXPECT_FALSE(files.remove(path));
  EXPECT_TRUE(files.exists("\\\\fmc-pc\\Tarnwick\\EXEC"));
  clock.advance(1);
  EXPECT_EQ(files.read(path), "plan");
}

TEST_F(DeadlineNetworkFilesTest, ACallThatIsLeftToItselfMayOutliveItsOwner) {
  {
    DeadlineNetworkFiles shortLived(slow, clock);
    EXPECT_FALSE(shortLived.exists("\\\\hangs\\Tarnwick\\EXEC"));
  }
  slow->letGo();
  EXPECT_TRUE(files.exists("\\\\hangs\\Tarnwick\\EXEC"));
}

}  // namespace
}  // namespace vorlent
