#include <gtest/gtest.h>

#include "simulator/NavReceivers.h"
#include "simulator/ShippedStations.h"
#include "support/PolledServer.h"

namespace vorlent {
namespace {

/// What the server makes of the receivers' offsets: an aircraft at the home runway and around it,
/// with a variation of 2.5 degrees east.
class ServerReadsStationsTest : public testing::Test {
 protected:
  ServerReadsStationsTest() {
    tune(0x0350, 0x1030);  // ILS of runway 24
    tune(0x0352, 0x1360);  // NWD
    tune(0x034C, 0x0381);  // locator
    tune(0x02D4, 0x0345);  // KLB
    tune(0x02D6, 0x0005);
    memory.write(0x02A0, std::uint16_t{455});  // 2.5 / 360 of 65536
    state.heading_deg = state.track_deg = 240;
    state.groundSpeed_m_s = 150 * 1852.0 / 3600;
  }

  void tune(std::size_t at, std::uint16_t frequency) { memory.write(at, frequency); }
  void poll(Place place, double altitude_m) {
    state.place = place;
    state.altitude_m = altitude_m;
    receivers.show(state);
    std::array<std::byte, OffsetMemory::Size> all;
    memory.copyOut(0, all);
    for (std::size_t i = 0; i < all.size(); ++i)
      sim.bus.offsets[i] = std::to_integer<std::uint8_t>(all[i]);
    sim.poll();
  }

  OffsetMemory memory;
  AircraftState state;
  NavReceivers receivers{memory, shippedStations()};
  PolledServer sim;
  const modPublic& store = sim.store;
  const Place threshold{52, 5};
};

TEST_F(ServerReadsStationsTest, SevenMilesOutOnTheGlidePath) {
  // 7 miles and 290.8 m to the antenna: 13254.8 m x tangent of 3 degrees, the earth's 13.8 m, 20 m.
  poll(placeFrom(threshold, 60, 7 * 1852), 728.5);
  const auto& nav = store.NavRadios(1);
  EXPECT_EQ(nav.LocNeedle, 0);
  EXPECT_EQ(nav.GsNeedle, 0);
  EXPECT_EQ(nav.GsFlag, 1);
  EXPECT_EQ(nav.BackCourse, 130);  // 128 valid, 2 localiser
  EXPECT_EQ(nav.ToFrom, 1);
  EXPECT_EQ(nav.Radial, 57);  // 57.5, which 16 bits leave a little below
  EXPECT_NEAR(nav.IlsSlope, 3, 0.003);
  // What a localiser hold steers to: 180 degrees on, magnetic, is the course of 237.5.
  EXPECT_NEAR(nav.IlsHeading + 180 - store.MagVar, 237.5, 0.01);
  EXPECT_FLOAT_EQ(nav.DmeDistance, 7.2f);
  EXPECT_FLOAT_EQ(nav.DmeSpeed, 150);
  EXPECT_EQ(store.Vor1Id, "IVR");
  EXPECT_EQ(store.Adf1Id, "VR");
  // The meridian there lies 0.164 degrees east: its bearings are 0.164 x sine of 52 greater.
  EXPECT_NEAR(store.Adf1Bearing, 0.13, 0.01);
}

TEST_F(ServerReadsStationsTest, RightOfTheCourseTheServerIsToldToFlyLeft) {
  // The localiser stands 3300 m beyond the threshold, 0.042 degrees west: there the line bears
  // 0.042 x sine of 52 less than 60. A degree of 1.855 is 68.5 of 127.
  const Place localiser = placeFrom(threshold, 240, 3300);
  poll(placeFrom(localiser, 59.967 - 1, 20000), 700);
  EXPECT_EQ(store.NavRadios(1).LocNeedle, -68);
  poll(placeFrom(localiser, 59.967 + 1, 20000), 700);
  EXPECT_EQ(store.NavRadios(1).LocNeedle, 68);
}

TEST_F(ServerReadsStationsTest, TheSecondReceiverOnItsVor) {
  memory.write(0x0C5E, std::uint16_t{270});
  const Place station{52.11534, 4.89151};
  poll(placeFrom(station, 90, 20 * 1852), 1500);
  const auto& nav = store.NavRadios(2);
  EXPECT_EQ(nav.BackCourse, 128);
  EXPECT_EQ(nav.ToFrom, 1);
  EXPECT_EQ(nav.Obs, 270);
  EXPECT_EQ(nav.Radial, 88);      // 87.5 by its variation of 2.5
  EXPECT_EQ(nav.LocNeedle, -32);  // 2.5 of 10 degrees to the left
  EXPECT_FLOAT_EQ(nav.DmeDistance, 20);
  EXPECT_FLOAT_EQ(nav.DmeSpeed, 130);  // 150 x cosine of 30 degrees
  EXPECT_EQ(store.Vor2Id, "NWD");
}

TEST_F(ServerReadsStationsTest, MarkersOnTheirPlaces) {
  poll(placeFrom(threshold, 60, 7400), 420);
  EXPECT_EQ(store.NavRadios(1).OuterMarker, 1);
  EXPECT_EQ(store.NavRadios(1).MiddleMarker, 0);
  poll(placeFrom(threshold, 60, 1050), 90);
  EXPECT_EQ(store.NavRadios(1).OuterMarker, 0);
  EXPECT_EQ(store.NavRadios(1).MiddleMarker, 1);
  poll(placeFrom(threshold, 60, 250), 48);
  EXPECT_EQ(store.NavRadios(1).MiddleMarker, 0);
  EXPECT_EQ(store.NavRadios(1).InnerMarker, 1);
}

TEST_F(ServerReadsStationsTest, TheSecondAdfAndItsNameWithoutBlanks) {
  tune(0x02D4, 0x0381);
  tune(0x02D6, 0);
  poll(placeFrom({52.03324, 5.09368}, 330, 5 * 1852), 1000);
  EXPECT_EQ(store.Adf2Id, "VR");
  EXPECT_EQ(store.Adf2Name, "VARNHOLTLOCATOR");
  EXPECT_NEAR(store.Adf2Bearing, 270, 0.1);  // it bears 150, the nose 240
  EXPECT_FLOAT_EQ(store.Adf2Freq, 381);
}

TEST_F(ServerReadsStationsTest, FarFromEverythingDmeReadsNothing) {
  poll({40, 5}, 1000);
  EXPECT_EQ(store.NavRadios(1).DmeDistance, 0);
  EXPECT_EQ(store.NavRadios(1).DmeSpeed, 0);
  EXPECT_EQ(store.NavRadios(2).DmeDistance, 0);
  EXPECT_EQ(store.NavRadios(1).BackCourse, 0);
  EXPECT_EQ(store.NavRadios(2).BackCourse, 0);
  EXPECT_EQ(store.Vor1Id, "");
  EXPECT_EQ(store.Adf2Id, "");
}

}  // namespace
}  // namespace vorlent
