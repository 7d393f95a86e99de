#include "simlink/LinkTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Write = FakeSimulatorBus::Write;

class Accessors : public LinkTest {
 protected:
  void SetUp() override {
    initLink();
    t.server.xAutoP = std::make_unique<clsXAutoP>();
  }
};

TEST_F(Accessors, AileronTrimIsWrittenWhileTheAutopilotIsEngaged) {
  t.server.xAutoP->ApEngaged(1);
  t.server.srv->AileronTrim(-0.5F);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x2EB0, {0, 0, 0, 0, 0, 0, 0xE0, 0xBF}}));
}

TEST_F(Accessors, AileronTrimIsNotWrittenWithoutTheAutopilot) {
  for (const int engaged : {0, -1}) {
    t.server.xAutoP->ApEngaged(static_cast<std::int16_t>(engaged));
    t.server.srv->AileronTrim(0.5F);
  }
  EXPECT_THAT(bus.writes, IsEmpty());
  EXPECT_EQ(bus.requests, 0);
}

TEST_F(Accessors, RudderTrimIsWrittenWithoutTheAutopilot) {
  t.server.srv->RudderTrim(0.25F);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x2EC0, {0, 0, 0, 0, 0, 0, 0xD0, 0x3F}}));
}

TEST_F(Accessors, PauseIsOneByteCutToAWholeNumber) {
  t.server.fsOpt->FSPaused(1);
  t.server.fsOpt->FSPaused(0);
  t.server.fsOpt->FSPaused(1.9F);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x0264, {1}}, Write{0x0264, {0}}, Write{0x0264, {1}}));
}

TEST_F(Accessors, PauseOutsideAByteIsAnOverflow) {
  EXPECT_EQ(raisedBy([this] { t.server.fsOpt->FSPaused(256); }), 6);
  EXPECT_EQ(raisedBy([this] { t.server.fsOpt->FSPaused(-1); }), 6);
  EXPECT_THAT(bus.writes, IsEmpty());
}

}  // namespace
}  // namespace vorlent
