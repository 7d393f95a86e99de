#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ShareCheck : public ::testing::Test {
 protected:
  ShareCheck() { host.networkFiles.present = false; }
  std::ptrdiff_t pausesOf5s() const {
    return std::count(transcript.lines.begin(), transcript.lines.end(), "sleep 5000");
  }

  TestServer host;
  const Transcript transcript{host};
};

TEST_F(ShareCheck, AShareThatIsThereIsLeftAlone) {
  host.networkFiles.present = true;
  host.start();
  EXPECT_THAT(host.networkFiles.asked, ElementsAre("\\\\127.0.0.1\\Vorlent"));
  EXPECT_THAT(host.ownShare.published, IsEmpty());
  EXPECT_EQ(host.log().find("User path"), std::string::npos);
  EXPECT_EQ(pausesOf5s(), 0);
}

TEST_F(ShareCheck, AMissingShareIsPublishedAndTold) {
  host.ownShare.onPublish = [this] { host.networkFiles.present = true; };
  host.start();
  EXPECT_THAT(host.ownShare.published, ElementsAre("Vorlent=" + host.folder.path()));
  EXPECT_THAT(host.networkFiles.asked,
              ElementsAre("\\\\127.0.0.1\\Vorlent", "\\\\127.0.0.1\\Vorlent"));
  EXPECT_THAT(host.op.takeBoxes(), ElementsAre(plainBox("Share Vorlent created")));
  EXPECT_EQ(host.log().substr(0, 23), "User path: \r\nInit IPC\r\n");
}

TEST_F(ShareCheck, GivesTheCommandFiveSecondsBeforeAnythingElse) {
  host.start();
  EXPECT_EQ(transcript.lines.front(), "sleep 5000");
  EXPECT_EQ(pausesOf5s(), 1);
}

TEST_F(ShareCheck, AShareThatCannotBeMadeIsPassedOver) {
  host.start();
  EXPECT_THAT(host.op.takeBoxes(), IsEmpty());
  EXPECT_EQ(host.exitStatus(), std::nullopt);
  EXPECT_EQ(host.form.sbStatusBar.panelText(1), "OK");
}

TEST_F(ShareCheck, WithoutACommandNothingIsWaitedFor) {
  host.ownShare.commandThere = false;
  host.start();
  EXPECT_EQ(pausesOf5s(), 0);
  EXPECT_EQ(host.log().substr(0, 13), "User path: \r\n");
}

TEST_F(ShareCheck, TestsTheTypedAddressAndLogsIt) {
  host.configure("Ip", "10.0.0.7");
  host.network.otherAddresses = {"10.0.0.7"};
  host.start();
  EXPECT_THAT(host.networkFiles.asked,
              ElementsAre("\\\\10.0.0.7\\Vorlent", "\\\\10.0.0.7\\Vorlent"));
  EXPECT_EQ(host.log().substr(0, 21), "User path: 10.0.0.7\r\n");
}

}  // namespace
}  // namespace vorlent
