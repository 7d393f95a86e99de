#include "platform/FailureDomain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "base/ProcessEnd.h"
#include "base/RuntimeError.h"
#include "core/Transcript.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;

class Domain : public ::testing::Test {
 protected:
  VirtualEventLoop loop;
  RecordingOperator op;
  FailureDomain domain{loop, op};
};

TEST_F(Domain, LetsWorkRunThatGoesWell) {
  int runs = 0;
  domain.run([&] { ++runs; });
  domain.run([&] { ++runs; });
  EXPECT_EQ(runs, 2);
  EXPECT_FALSE(domain.ended());
  EXPECT_EQ(loop.exitStatus(), std::nullopt);
}

TEST_F(Domain, ShowsAFaultByNumberAndDescriptionAndEndsTheProcess) {
  domain.run([] { throw RuntimeError(RuntimeError::Overflow); });
  EXPECT_THAT(op.takeBoxes(), ElementsAre(criticalBox("Run-time error '6':\n\nOverflow")));
  EXPECT_TRUE(domain.ended());
  EXPECT_EQ(loop.exitStatus(), 1);
}

TEST_F(Domain, ShowsWhatALibraryRaisesWithItsWords) {
  domain.run([] { throw std::length_error("too long"); });
  EXPECT_THAT(op.takeBoxes(), ElementsAre(criticalBox("Run-time error '51':\n\ntoo long")));
  EXPECT_EQ(loop.exitStatus(), 1);
}

TEST_F(Domain, EndsTheProcessQuietlyWithTheStatusGiven) {
  domain.run([] { throw ProcessEnd{0}; });
  EXPECT_TRUE(domain.ended());
  EXPECT_EQ(loop.exitStatus(), 0);
}

TEST_F(Domain, RunsNothingAfterTheEnd) {
  domain.run([] { throw ProcessEnd{0}; });
  bool ran = false;
  domain.run([&] { ran = true; });
  domain.guarded([&] { ran = true; })();
  EXPECT_FALSE(ran);
}

TEST_F(Domain, GuardsAHandler) {
  domain.guarded([] { throw RuntimeError(RuntimeError::TypeMismatch); })();
  EXPECT_THAT(op.takeBoxes(), ElementsAre(criticalBox("Run-time error '13':\n\nType mismatch")));
  EXPECT_EQ(loop.exitStatus(), 1);
}

TEST_F(Domain, AnEndInsideAPumpedEventEndsTheWorkThatPumps) {
  bool wentOn = false;
  loop.post([this] { domain.run([] { throw ProcessEnd{0}; }); });
  domain.run([&] {
    domain.pump();
    wentOn = true;
  });
  EXPECT_FALSE(wentOn);
  EXPECT_EQ(loop.exitStatus(), 0);
}

TEST_F(Domain, PumpComesBackWhenNothingEnds) {
  bool event = false;
  bool wentOn = false;
  loop.post([&] { event = true; });
  domain.run([&] {
    domain.pump();
    wentOn = true;
  });
  EXPECT_TRUE(event);
  EXPECT_TRUE(wentOn);
}

TEST_F(Domain, AFaultWhileAModalFormIsShownEndsTheWorkBehindIt) {
  Form form("FrmTip");
  op.onShow = [this](const Form&) {
    domain.run([] { throw RuntimeError(RuntimeError::Overflow); });
  };
  bool wentOn = false;
  domain.run([&] {
    domain.showModal(form);
    wentOn = true;
  });
  EXPECT_FALSE(wentOn);
  EXPECT_EQ(op.takeBoxes().size(), 1U);
  EXPECT_EQ(loop.exitStatus(), 1);
}

}  // namespace
}  // namespace vorlent
