// What clients write to the controls and what the aircraft does with it, from accessor to poll.

#include <gtest/gtest.h>

#include <cmath>

#include "LinkedAircraft.h"

namespace vorlent {
namespace {

class ControlReactions : public testing::Test {
 protected:
  void write(const std::function<void(Server&)>& control) { linked.write(control); }
  void engageAutopilot() { linked.server.server.autoflight.xAutoP->ApEngaged(1); }
  modPublic& after(double seconds) {
    linked.fly(seconds);
    return linked.polled();
  }
  /// Bank, right positive.
  double bank_deg() { return linked.sample().bankRight_deg; }

  LinkedAircraft linked;
};

TEST_F(ControlReactions, ThrottleMovesItsOwnEngineAndSetThrottlesBoth) {
  write([](Server& s) { s.accessors.eng->Throttle(1, 100); });
  EXPECT_GT(after(10).Engines(1).N1, 95);
  EXPECT_LT(linked.polled().Engines(2).N1, 75);
  EXPECT_NEAR(linked.polled().Engines(1).ThrustLever, 100, 0.01);
  write([](Server& s) { s.accessors.eng->SetThrottles(0); });
  EXPECT_LT(after(15).Engines(1).N1, 40);
  EXPECT_LT(linked.polled().Engines(2).N1, 40);
}

// -25 percent arrives as 61439, which the poll reads as -24: 61439 / 163.84 - 399.
TEST_F(ControlReactions, ANegativeThrottleReversesOnTheGround) {
  linked.restart(StartingState::Runway);
  const auto writes = linked.write([](Server& s) { s.accessors.eng->SetThrottles(-25); });
  ASSERT_EQ(writes.size(), 2u);
  EXPECT_EQ(writes[1].offset, 0x0924u);
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x0924), 61439);
  EXPECT_NEAR(after(12).Engines(1).N1, 80, 1);
  EXPECT_NEAR(linked.polled().Engines(1).ThrustLever, -24, 0.01);
  write([](Server& s) { s.accessors.srv->ApplyParkingBrake(0); });
  EXPECT_GT(after(5).GroundSpeed, 2);
  const double heading_deg = linked.sample().heading_deg;
  EXPECT_NEAR(heading_deg, 240, 2);
  EXPECT_LT(
      linked.aircraft->model().body().localVelocity_m_s().x * std::cos(heading_deg * 0.0174533), 0);
}

TEST_F(ControlReactions, StartLeversCutTheFuelAndGiveIt) {
  write([](Server& s) { s.accessors.eng->Mixture(1, 0); });
  EXPECT_EQ(after(3).Engines(1).Combustion, 0);
  EXPECT_EQ(linked.polled().Engines(2).Combustion, 1);
  EXPECT_EQ(linked.polled().Engines(1).Mixture, 0);
  EXPECT_EQ(linked.polled().EngineCombustionBits, 2);
  write([](Server& s) { s.accessors.eng->SetMixtureAll(0); });
  EXPECT_EQ(after(3).EngineCombustionBits, 0);
}

TEST_F(ControlReactions, TheStarterTurnsTheCore) {
  linked.restart(StartingState::Cold);
  write([](Server& s) { s.accessors.fsOpt->Battery(1); });
  write([](Server& s) { s.accessors.eng->Magneto(2, 4); });
  EXPECT_NEAR(after(30).Engines(2).N2, 24, 1);
  EXPECT_EQ(linked.polled().Engines(1).N2, 0);
  EXPECT_EQ(linked.polled().Engines(2).Starter, 4);
  write([](Server& s) { s.accessors.eng->SetMagnetoAll(4); });
  EXPECT_NEAR(after(30).Engines(1).N2, 24, 1);
}

// A jet's switch has off, start and generator; 4 is the start of a switch with magnetos.
TEST_F(ControlReactions, AJetsStartTurnsTheCoreAndItsGeneratorPositionDoesNot) {
  linked.restart(StartingState::Cold);
  write([](Server& s) { s.accessors.fsOpt->Battery(1); });
  write([](Server& s) { s.accessors.eng->Magneto(1, 1); });
  write([](Server& s) { s.accessors.eng->Magneto(2, 2); });
  EXPECT_NEAR(after(30).Engines(1).N2, 24, 1);
  EXPECT_EQ(linked.polled().Engines(1).Starter, 1);
  EXPECT_EQ(linked.polled().Engines(2).N2, 0);
  write([](Server& s) { s.accessors.eng->Magneto(1, 0); });
  EXPECT_LT(after(40).Engines(1).N2, 2);
}

TEST_F(ControlReactions, ElevatorAndItsTrimMoveTheNose) {
  const double level_deg = linked.polled().Pitch;
  write([](Server& s) { s.accessors.srv->ElevatorPosition(1500); });
  EXPECT_GT(after(2).Pitch, level_deg + 1);
  EXPECT_EQ(linked.polled().ElevatorInput, 1500);
  linked.restart(StartingState::Level);
  write([](Server& s) { s.accessors.srv->ElevatorPosition(-1500); });
  EXPECT_LT(after(2).Pitch, level_deg - 1);
  EXPECT_EQ(linked.polled().ElevatorInput, -1500);
}

TEST_F(ControlReactions, TheStabiliserTrimTakesNegativeValuesAsSuch) {
  engageAutopilot();
  const double level_deg = linked.polled().Pitch;
  const int trim = linked.polled().ElevatorTrimInput;
  ASSERT_LT(trim + 1000, 16383);
  write([trim](Server& s) { s.accessors.srv->TrimPosition(static_cast<float>(trim + 1000)); });
  EXPECT_GT(after(3).Pitch, level_deg + 1);
  linked.restart(StartingState::Level);
  write([](Server& s) { s.accessors.srv->TrimPosition(-14000); });
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x0BC0), 51536);
  EXPECT_LT(after(3).Pitch, level_deg - 1);
  EXPECT_EQ(linked.polled().ElevatorTrimInput, -14000);
}

TEST_F(ControlReactions, LeversAndTrimsStopAtTheirEnds) {
  engageAutopilot();
  write([](Server& s) { s.accessors.eng->SetThrottles(120); });
  EXPECT_NEAR(after(0.1).Engines(1).ThrustLever, 99.994, 0.001);
  EXPECT_NEAR(linked.polled().Engines(2).ThrustLever, 99.994, 0.001);
  write([](Server& s) { s.accessors.eng->SetThrottles(-60); });
  EXPECT_EQ(after(0.1).Engines(1).ThrustLever, linked.polled().Engines(2).ThrustLever);
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x088C), 61439);
  write([](Server& s) { s.accessors.srv->TrimPosition(20000); });
  EXPECT_EQ(after(0.1).ElevatorTrimInput, 16383);
  write([](Server& s) { s.accessors.srv->TrimPosition(-20000); });
  EXPECT_EQ(after(0.1).ElevatorTrimInput, -16383);
  write([](Server& s) { s.accessors.srv->RudderPosition(30000); });
  EXPECT_EQ(after(0.1).RudderInput, 16383);
}

TEST_F(ControlReactions, AileronAndItsTrimBank) {
  write([](Server& s) { s.accessors.srv->AileronPosition(-3000); });
  after(2);
  EXPECT_LT(bank_deg(), -1);
  EXPECT_EQ(linked.polled().AileronInput, -3000);
  linked.restart(StartingState::Level);
  engageAutopilot();
  write([](Server& s) { s.accessors.srv->AileronTrim(0.05); });
  after(2);
  EXPECT_GT(bank_deg(), 1);
  EXPECT_EQ(linked.real(0x2EB0), 0.05);
}

TEST_F(ControlReactions, RudderAndItsTrimYaw) {
  const double heading_deg = linked.polled().TrueHeading;
  write([](Server& s) { s.accessors.srv->RudderPosition(4000); });
  EXPECT_GT(after(2).TrueHeading, heading_deg + 0.2);
  EXPECT_EQ(linked.polled().RudderInput, 4000);
  linked.restart(StartingState::Level);
  write([](Server& s) { s.accessors.srv->RudderTrim(-0.1); });
  EXPECT_LT(after(2).TrueHeading, heading_deg - 0.2);
  EXPECT_NEAR(linked.polled().AileronTrimDeg, -5.7296, 0.001);
}

TEST_F(ControlReactions, TheYawDamperWorksTheRudder) {
  const auto rudder_deg = [this](float damper) {
    linked.restart(StartingState::Level);
    write([damper](Server& s) { s.accessors.autoP->apYawDamper(damper); });
    linked.aircraft->step(0.05);
    write([](Server& s) { s.accessors.srv->AileronPosition(16383); });
    after(1);
    return std::fabs(linked.aircraft->model().surfaces().rudder_deg);
  };
  EXPECT_GT(rudder_deg(1), 0.1);
  EXPECT_EQ(rudder_deg(0), 0);
}

TEST_F(ControlReactions, BrakesStopItAndOneAloneTurnsIt) {
  const auto roll = [this] {
    linked.restart(StartingState::Runway);
    write([](Server& s) { s.accessors.srv->ApplyParkingBrake(0); });
    write([](Server& s) { s.accessors.eng->SetThrottles(40); });
    after(15);
    write([](Server& s) { s.accessors.eng->SetThrottles(0); });
    EXPECT_GT(linked.polled().GroundSpeed, 15);
  };
  roll();
  write([](Server& s) { s.accessors.srv->ApplyBrakes(32767); });
  EXPECT_EQ(after(20).GroundSpeed, 0);
  EXPECT_EQ(linked.polled().LeftBrake, 32767);
  EXPECT_EQ(linked.polled().RightBrake, 32767);
  roll();
  write([](Server& s) { s.accessors.srv->ApplyLeftBrake(16000); });
  EXPECT_LT(after(3).TrueHeading, 239.7);
  roll();
  write([](Server& s) { s.accessors.srv->ApplyRightBrake(16000); });
  EXPECT_GT(after(3).TrueHeading, 240.3);
  roll();
  write([](Server& s) { s.accessors.srv->ApplyParkingBrake(32767); });
  EXPECT_EQ(after(20).GroundSpeed, 0);
  EXPECT_EQ(linked.polled().ParkingBrake, 32767);
}

// 14 CFR 25.735(d): the parking brake holds on a dry level runway with take-off thrust on one
// engine and idle on the other.
TEST_F(ControlReactions, TheParkingBrakeHoldsAgainstTakeOffThrustOfOneEngine) {
  linked.restart(StartingState::Runway);
  write([](Server& s) { s.accessors.srv->ApplyParkingBrake(1); });
  write([](Server& s) { s.accessors.eng->Throttle(1, 100); });
  const Place before = linked.aircraft->model().body().place();
  EXPECT_EQ(after(30).GroundSpeed, 0);
  EXPECT_GT(linked.polled().Engines(1).N1, 95);
  EXPECT_LT(linked.polled().Engines(2).N1, 25);
  EXPECT_LT(distanceBetween_m(before, linked.aircraft->model().body().place()), 0.01);
  EXPECT_NEAR(linked.polled().TrueHeading, 240, 0.01);
}

// Four seconds a detent, from the fifth (15 degrees) to the eighth (40).
TEST_F(ControlReactions, FlapsTravelThroughTheirDetents) {
  linked.restart(StartingState::Final);
  EXPECT_EQ(linked.polled().FlapsPosition, 6144);  // 15 / 40 x 16383
  write([](Server& s) { s.accessors.srv->FlapPosition(16376); });
  EXPECT_NEAR(after(4).FlapsPosition, 10239, 30);  // 25 / 40 x 16383
  EXPECT_NEAR(after(4).FlapsPosition, 12287, 30);
  EXPECT_LT(after(3.9).FlapsPosition, 16383);
  EXPECT_EQ(after(0.2).FlapsPosition, 16383);
  EXPECT_EQ(linked.polled().FlapsControl, 16376);
}

TEST_F(ControlReactions, TheGearTravelsInEightSecondsAndTheSpoilersInOnePointTwo) {
  linked.restart(StartingState::Final);
  write([](Server& s) { s.accessors.srv->GearPosition(16383); });
  EXPECT_NEAR(after(4).GearNose, 8192, 50);
  EXPECT_LT(after(3.9).GearLeft, 16383);
  EXPECT_EQ(after(0.2).GearRight, 16383);
  EXPECT_EQ(linked.polled().GearControl, 16383);
  write([](Server& s) { s.accessors.srv->GearPosition(0); });
  EXPECT_EQ(after(8.1).GearNose, 0);
  linked.restart(StartingState::Runway);
  write([](Server& s) { s.accessors.srv->SpoilerPosition(16383); });
  linked.fly(0.6);
  EXPECT_NEAR(linked.sample().spoilers, 8192, 200);
  linked.fly(0.7);
  EXPECT_EQ(linked.sample().spoilers, 16383);
  EXPECT_EQ(linked.polled().SpoilersControl, 16383);
}

// Ground spoilers stay down in the air: 0.45 x 16383 is what the others give there.
TEST_F(ControlReactions, InTheAirTheFlightSpoilersRiseAlone) {
  linked.restart(StartingState::Level);
  write([](Server& s) { s.accessors.srv->SpoilerPosition(16383); });
  linked.fly(2);
  EXPECT_EQ(linked.sample().spoilers, 7372);
  EXPECT_EQ(linked.polled().SpoilersControl, 16383);
  write([](Server& s) { s.accessors.srv->SpoilerPosition(4000); });
  linked.fly(2);
  EXPECT_EQ(linked.sample().spoilers, 4000);
}

TEST_F(ControlReactions, ArmedSpoilersWaitForSixtyKnotsOfTheWheels) {
  linked.restart(StartingState::Runway);
  write([](Server& s) { s.accessors.srv->ApplyParkingBrake(0); });
  write([](Server& s) { s.accessors.eng->SetThrottles(60); });
  while (linked.sample().groundSpeed_m_s < 25.7) linked.fly(0.05);  // 50 knots
  write([](Server& s) { s.accessors.eng->SetThrottles(0); });
  write([](Server& s) { s.accessors.srv->ArmSpoiler(1); });
  EXPECT_EQ(after(0.1).SpoilersControl, 0);
  EXPECT_EQ(linked.polled().SpoilersArm, 1);
  write([](Server& s) { s.accessors.eng->SetThrottles(60); });
  while (linked.sample().groundSpeed_m_s < 36) linked.fly(0.05);  // 70 knots
  EXPECT_EQ(linked.polled().SpoilersControl, 0);
  write([](Server& s) { s.accessors.eng->SetThrottles(0); });
  EXPECT_EQ(after(0.1).SpoilersControl, 16383);
  EXPECT_EQ(linked.polled().SpoilersArm, 0);
}

TEST_F(ControlReactions, FuelPercentagesSetTheLevelsAndTheWeight) {
  const double weight_lb = linked.polled().GrossWeight;
  const double fuel_lb = linked.polled().FuelTotalLb;
  write([](Server& s) { s.accessors.srv->CentPct(20); });
  write([](Server& s) { s.accessors.srv->LeftMainPct(100); });
  write([](Server& s) { s.accessors.srv->RightMainPct(80); });
  modPublic& v = after(0.1);
  EXPECT_NEAR(v.FuelTanks(Tank::Centre).Level, 20, 0.01);
  EXPECT_NEAR(v.FuelTanks(Tank::LeftMain).Level, 100, 0.001);
  EXPECT_NEAR(v.FuelTanks(Tank::RightMain).Level, 80, 0.001);
  // A tenth of 4299 and nothing of 2 x 1288 gallons more, each 6.6992 pounds.
  EXPECT_NEAR(v.FuelTotalLb - fuel_lb, 2880, 2);
  EXPECT_NEAR(v.GrossWeight - weight_lb, 2880, 2);
}

TEST_F(ControlReactions, PauseStopsTimeAndMotion) {
  write([](Server& s) { s.accessors.fsOpt->FSPaused(1); });
  const auto place = linked.memory.read<std::int64_t>(0x0560);
  const std::string time = linked.polled().LocalTimeText;
  EXPECT_EQ(after(5).LocalTimeText, time);
  EXPECT_EQ(linked.memory.read<std::int64_t>(0x0560), place);
  EXPECT_EQ(linked.polled().Paused, 1);
  EXPECT_EQ(linked.polled().Ias, 0);
  write([](Server& s) { s.accessors.fsOpt->FSPaused(0); });
  EXPECT_NE(after(5).LocalTimeText, time);
}

TEST_F(ControlReactions, SlewHoldsItAndPlaceAndAttitudeAreWhereTheyAreWritten) {
  write([](Server& s) { s.accessors.fsOpt->FSSlew(1); });
  linked.fly(0.05);
  linked.memory.write<std::int32_t>(0x0574, 3000);
  linked.memory.write<std::int32_t>(0x0580, 1 << 30);
  write([](Server& s) { s.accessors.srv->pitch(12345); });
  EXPECT_NEAR(after(1).TrueHeading, 90, 0.001);
  EXPECT_EQ(linked.memory.read<std::uint16_t>(0x0578), 12345);
  EXPECT_NEAR(linked.sample().altitude_m, 3000, 1);
  const auto place = linked.memory.read<std::int64_t>(0x0568);
  linked.fly(5);
  EXPECT_EQ(linked.memory.read<std::int64_t>(0x0568), place);
  write([](Server& s) { s.accessors.fsOpt->FSSlew(0); });
  linked.fly(1);
  EXPECT_NE(linked.memory.read<std::int64_t>(0x0568), place);
  EXPECT_NEAR(linked.sample().heading_deg, 90, 1);
  EXPECT_NEAR(linked.sample().altitude_m, 3000, 5);
}

TEST_F(ControlReactions, TheAltimeterSettingIsReadBackAndMovesNothing) {
  const double altitude_ft = linked.polled().AircraftAltitude;
  const auto writes = linked.write([](Server& s) { s.accessors.fsOpt->AltSet(1003.5F); });
  ASSERT_EQ(writes.size(), 2u);
  EXPECT_EQ(writes[0].offset, 0x0330u);
  EXPECT_EQ(writes[1].offset, 0x0331u);
  EXPECT_NEAR(after(2).AltimeterQnh, 1003.5, 0.001);
  EXPECT_NEAR(linked.polled().AircraftAltitude, altitude_ft, 10);
  EXPECT_NEAR(linked.polled().AmbientQnh, 1013.25, 0.001);
}

TEST_F(ControlReactions, SwappingARadioExchangesItsFrequencies) {
  write([](Server& s) { s.accessors.radio->Nav1Freq(110.3F); });
  write([](Server& s) { s.accessors.radio->Nav1SBFreq(113.6F); });
  const double com_MHz = linked.polled().Com1Freq;
  write([](Server& s) { s.accessors.radio->SwapFSRadio(2); });
  EXPECT_NEAR(after(0.1).Nav1Freq, 113.6, 0.001);
  EXPECT_NEAR(linked.polled().Nav1Standby, 110.3, 0.001);
  EXPECT_EQ(linked.polled().Com1Freq, com_MHz);
  write([](Server& s) { s.accessors.radio->SwapFSRadio(8); });
  EXPECT_NEAR(after(0.1).Com1Standby, com_MHz, 0.001);
  EXPECT_NEAR(after(0.1).Nav1Freq, 113.6, 0.001);
}

TEST_F(ControlReactions, ArmedSpoilersAreReadBack) {
  write([](Server& s) { s.accessors.srv->ArmSpoiler(1); });
  EXPECT_EQ(after(1).SpoilersArm, 1);
  EXPECT_EQ(linked.sample().spoilers, 0);
}

}  // namespace
}  // namespace vorlent
