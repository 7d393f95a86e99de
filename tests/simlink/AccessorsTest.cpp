#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Box = RecordingOperator::Box;

class Accessors : public AccessorTest {
 protected:
  /// One member of each way of writing.
  std::vector<Call> members() {
    return {[this] { t.server.accessors.fsOpt->NavLights(1); },
            [this] { t.server.accessors.autoP->apHeading(90); },
            [this] { t.server.accessors.autoP->apAltitude(10000); },
            [this] { t.server.accessors.srv->FlapPosition(2047); },
            [this] { t.server.accessors.srv->RudderTrim(0.25); }};
  }
};

TEST_F(Accessors, ARoundTripThatFailsEndsTheProcess) {
  for (const Call& member : members()) {
    bus.unansweredRequests = 11;
    EXPECT_EQ(endedBy(member), 1);
  }
  EXPECT_THAT(bus.writes, IsEmpty());
}

TEST_F(Accessors, ALinkThatIsNotOpenIsToldInABoxAndEndsTheProcess) {
  link.Close();
  for (const Call& member : members()) {
    EXPECT_EQ(endedBy(member), 1);
    EXPECT_THAT(t.op.takeBoxes(), ElementsAre(Box{"Writing: Call cannot execute, link not Open",
                                                  BoxIcon::Critical, "FSUIPC Writing error"}));
  }
}

TEST_F(Accessors, TheFirstByteOfAFrequencyIsInTheSimulatorBeforeTheSecondIsSent) {
  bus.put(0x034F, std::uint8_t{0x22});
  std::vector<std::uint8_t> highByteAtArrival;
  bus.onArrival = [&](const std::byte*) {
    highByteAtArrival.push_back(bus.get<std::uint8_t>(0x034F));
  };
  t.server.accessors.radio->Comm1Freq(118.25F);
  EXPECT_THAT(highByteAtArrival, ElementsAre(0x22, 0x18));
}

TEST_F(Accessors, AFailureBetweenTwoBytesLeavesTheFirst) {
  bus.onArrival = [&](const std::byte*) {
    if (bus.writes.size() == 1) bus.unansweredRequests = 1;
  };
  EXPECT_EQ(endedBy([this] { t.server.accessors.radio->Comm1Freq(118.25F); }), 1);
  EXPECT_THAT(bus.writes, ElementsAre(Write{0x034F, {0x18}}));
}

}  // namespace
}  // namespace vorlent
