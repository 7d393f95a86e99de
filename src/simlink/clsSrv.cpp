#include "simlink/clsSrv.h"

#include <cmath>

#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "simlink/controlWriters.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr double UnitsPerPercentOfFuel = FullTank / 100;

}  // namespace

void clsSrv::CentPct(float percent) { writeFuel(0x0B74, percent); }
void clsSrv::LeftMainPct(float percent) { writeFuel(0x0B7C, percent); }
void clsSrv::LeftAuxPct(float percent) { writeFuel(0x0B84, percent); }
void clsSrv::LeftTipPct(float percent) { writeFuel(0x0B8C, percent); }
void clsSrv::RightMainPct(float percent) { writeFuel(0x0B94, percent); }
void clsSrv::RightAuxPct(float percent) { writeFuel(0x0B9C, percent); }
void clsSrv::RightTipPct(float percent) { writeFuel(0x0BA4, percent); }

void clsSrv::ElevatorPosition(float value) {
  if (std::fabs(value) <= FullTravel) writeLowHalf(link_, 0x0BB2, value);
}
void clsSrv::AileronPosition(float value) { writeLowHalf(link_, 0x0BB6, value); }
void clsSrv::RudderPosition(float value) { writeLowHalf(link_, 0x0BBA, value); }
void clsSrv::TrimPosition(float value) {
  if (engaged()) writeLowHalf(link_, 0x0BC0, value + (value < 0 ? TwosComplement16 : 0));
}
void clsSrv::AileronTrim(double radians) {
  if (engaged()) writeDouble(link_, 0x2EB0, radians);
}
// docs/peculiarities.md: rudder trim without autopilot.
void clsSrv::RudderTrim(double radians) { writeDouble(link_, 0x2EC0, radians); }
void clsSrv::AutoRudder(std::int32_t on) { writeByte(link_, 0x0278, on); }

void clsSrv::ApplyLeftBrake(std::int16_t value) { writeInt(link_, 0x0BC4, value); }
void clsSrv::ApplyRightBrake(std::int16_t value) { writeInt(link_, 0x0BC6, value); }
void clsSrv::ApplyBrakes(std::int16_t value) {
  ApplyLeftBrake(value);
  ApplyRightBrake(value);
}
void clsSrv::ApplyParkingBrake(std::int16_t value) { writeInt(link_, 0x0BC8, value); }
void clsSrv::ArmSpoiler(float on) { writeByte(link_, 0x0BCC, on); }
void clsSrv::SpoilerPosition(std::int16_t value) { writeInt(link_, 0x0BD0, value); }
void clsSrv::FlapPosition(std::int16_t value) { writeInt(link_, 0x0BDC, value); }
void clsSrv::GearPosition(std::int16_t value) { writeInt(link_, 0x0BE8, value); }
void clsSrv::TankSelector(float position) { writeByte(link_, 0x0AF8, position); }
void clsSrv::Crossfeed(float position) { writeByte(link_, 0x0AF8, position); }
void clsSrv::PropSync(std::int16_t on) { writeInt(link_, 0x2EC8, on); }
void clsSrv::pitch(float value) { writeLowHalf(link_, 0x0578, value); }

void clsSrv::writeFuel(std::uint32_t base, float percent) {
  std::int32_t rest = toInt32(percent * UnitsPerPercentOfFuel);
  std::uint32_t byte = 3;
  for (const std::int32_t weight : {0x1000000, 0x10000, 256, 1}) {
    const std::int32_t value = rest / weight;
    writeByte(link_, base + byte--, value);
    rest %= weight;
  }
}

bool clsSrv::engaged() const { return store_.ApEngaged > 0; }

}  // namespace vorlent
