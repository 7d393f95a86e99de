#include <cstdlib>
#include <new>

#include "autoflight/AutoflightTest.h"

namespace {

bool counting = false;
int allocations = 0;

}  // namespace

// Every allocation of this program passes here.
void* operator new(std::size_t size_bytes) {
  if (counting) ++allocations;
  if (void* memory = std::malloc(size_bytes)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace vorlent {
namespace {

class Allocation : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    modPublic& v = store();
    v.Ias = v.AvgIas = 250;
    v.AircraftAltitude = 10000;
    v.MagHeading = 45;
    ap().tuning.apPitchSensitivityFix = 300;
    ap().tuning.apVspeedSensitivityFix = 90;
    ap().tuning.apPitchControlfactor = 20;
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().apMcpAirSpeed(250);
    ap().apMcpAltitude(20000);
    at().apAutoThrottle(1);
    ap().ApEngaged(1);
    bus.acknowledgesOnly = true;
  }

  int allocationsOf(const Act& act) {
    allocations = 0;
    counting = true;
    act();
    counting = false;
    return allocations;
  }

  /// A cycle that a fault cut short would show, too: the fault's description is allocated.
  void expectNoneInTheCyclesAfter(const std::string& what, const Act& press) {
    press();
    const int requests = bus.requests;
    const int counted = allocationsOf([&] {
      for (int pass = 0; pass < 30; ++pass) {
        store().Bank = static_cast<float>(pass);
        nav1().LocNeedle = static_cast<std::int16_t>(20 - pass);
        afds().AFDS();
      }
    });
    EXPECT_EQ(counted, 0) << what;
    EXPECT_GE(bus.requests, requests + 30) << what;
  }
};

TEST_F(Allocation, IsSeenByTheCount) {
  EXPECT_GT(allocationsOf([] { std::make_unique<int>(1); }), 0);
}

TEST_F(Allocation, OfAFaultIsSeenByTheCount) {
  ap().apAltitudeHold(1);
  ap().apAltitude(10000);
  afds().ResetRelay(1);
  EXPECT_GT(allocationsOf([&] { afds().AFDS(); }), 0);
}

TEST_F(Allocation, NoCycleAllocates) {
  expectNoneInTheCyclesAfter("wheel and column", [&] { store().ElevatorInput = 1; });
  expectNoneInTheCyclesAfter("heading and level change", [&] {
    ap().apHeadingHold(1);
    ap().apLevelChange(1);
  });
  expectNoneInTheCyclesAfter("vertical speed", [&] {
    ap().apVertSpeed(1500);
    ap().apVSpeedHold(1);
  });
  expectNoneInTheCyclesAfter("capture", [&] { store().AircraftAltitude = 19500; });
  expectNoneInTheCyclesAfter("altitude", [&] { ap().apAltitudeHold(1); });
  expectNoneInTheCyclesAfter("NAV", [&] { ap().apNav1Hold(1); });
  expectNoneInTheCyclesAfter("approach", [&] {
    ap().apHeadingHold(1);
    ap().apApproachHold(1);
  });
  expectNoneInTheCyclesAfter("N1", [&] { at().apRpmHold(1); });
}

}  // namespace
}  // namespace vorlent
