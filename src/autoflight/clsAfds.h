#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "autoflight/FmcData.h"
#include "base/RuntimeError.h"
#include "flightplan/ExecutedPlan.h"
#include "flightplan/Leg.h"
#include "flightplan/PerformanceData.h"

namespace vorlent {

struct Autoflight;

/// The autoflight cycle, and the data that the modes share.
class clsAfds {
 public:
  explicit clsAfds(Autoflight& autoflight) : autoflight_(autoflight) {}
  virtual ~clsAfds() = default;

  /// At each start of the cycle. A tuning file that is missing or short leaves the values before
  /// it. The plan stays.
  void Init();
  /// One cycle, every 400 ms. A fault in it cuts the cycle short; the next one runs.
  void AFDS();
  /// Sets the pacing counter of the pitch laws; a law runs in the cycle in which it is 1.
  void ResetRelay(int n);
  /// Of the pacing counter; each cycle adds 1.
  std::int16_t Relay() const { return Relay_; }

  std::int16_t LNAV() const { return LNAV_; }
  /// Does nothing but go off without a plan.
  void LNAV(std::int16_t value);
  std::int16_t VNAV() const { return VNAV_; }
  /// Does nothing without a plan.
  void VNAV(std::int16_t value);

  /// Reads the aircraft's name from a client's plan.cfg, and the aircraft's tuning from the file
  /// beside it. Gives the name, empty when there is none. A tuning file that is missing, or that
  /// lacks a key or holds no number for one, is told in the log; the keys before it stay.
  virtual std::string ReadAircraftConfig(const std::string& planPath);
  /// Writes a file of one line into the plan folder of the client that owns it; a failure is
  /// passed over.
  void WriteFmcFile(const std::string& fileName, const std::string& text);

  /// Above 0 the next cycle reads the plan again.
  void ExecFlightplan(std::int16_t value) { ExecFlightplan_ = value; }
  std::int16_t ExecFlightplan() const { return ExecFlightplan_; }
  /// The row of the plan that a new plan is flown to: one above what is stored.
  std::int16_t ActiveFpIndex() const { return static_cast<std::int16_t>(ActiveFpIndex_ + 1); }

  std::int16_t TakeoffN1() const { return performance.TakeoffN1; }
  /// Percent, rounded.
  void TakeoffN1(float percent);
  float ClimbN1() const { return performance.ClimbN1; }
  /// Percent.
  void ClimbN1(float percent) { performance.ClimbN1 = percent; }
  std::int16_t N1SwitchStatus() const { return thrust_.selector; }
  /// The N1 selector, 0..4: 1 and 2 take the other engine's bug, 3 the computed value, 4 engine
  /// 1's, 0 none.
  void N1SwitchStatus(std::int16_t position);

  /// Why the autopilot has no tuning; empty when the last one that was looked for was read.
  const std::string& TuningFault() const { return tuningFault_; }

  void SetEngineN1TargetClimb();
  void SetEngineN1TargetTakeoff();
  void SetEngineN1TargetIdle();
  /// Lever, percent, for an N1, percent, by the aircraft's own polynomial.
  double CalcThrottleFromN1(double n1_pct) const;
  /// `mach` becomes the Mach number of an indicated airspeed at the present altitude and outside
  /// temperature, to two decimals.
  void CalcCurrentMach(float ias_kt, float& mach) const;

  /// Degrees, left positive; of the last cycle.
  float SignedBank() const { return memory_.bank_deg; }
  /// 1 when vertical speed or level change last climbed, or descended, to an altitude.
  std::int16_t ClimbFlag() const { return ClimbFlag_; }
  std::int16_t DescentFlag() const { return DescentFlag_; }
  std::int16_t AccelerationAltitude() const { return AccelerationAltitude_; }  ///< feet
  /// Of the square of N1, of N1, and the constant, for a lever in percent.
  const std::array<float, 3>& N1ToThr() const { return thrust_.n1ToThr; }

  FmcData fmc;  ///< what is said of the following to the displays
  ExecutedPlan plan;
  Leg leg;
  PerformanceData performance;

 private:
  /// What one cycle works out for its laws.
  struct Trends {
    double ias_kt_s = 0;
    double n1_pct_s = 0;
    double bank_deg_s = 0;
    double altError_ft = 0;
  };

  using TakePlanFile = std::optional<RuntimeError> (*)(std::string_view, ExecutedPlan&);
  struct Thrust {
    std::int16_t selector = 0;       ///< the N1 selector, 0..4
    std::array<float, 3> n1ToThr{};  ///< of the square of N1, of N1, and the constant
  };
  /// What a cycle leaves to the next one.
  struct Memory {
    float bank_deg = 0;     ///< left positive
    float cwsBank_deg = 0;  ///< held by control-wheel steering; left positive
    double wheel = 0;       ///< the simulator's aileron input when it last steered
    double column = 0;      ///< its elevator input likewise
    float averageClimb_fpm = 0;
  };

  void setDefaults();
  void takeOperatorsStart();
  void openPerformanceDb();
  void readAircraft();
  void tell(const std::string& text) const;
  void tellUntuned(const std::string& why);
  void ReadApConfig(const std::string& fileName);

  void cycle();
  void fly();
  void goAround();
  void executePlan();
  void ReadPlanFiles();
  void takePlanFile(const std::string& fileName, TakePlanFile take);
  void ReadPerformance();
  void setActiveLeg();
  void clearForVnav();
  void flyLnav();
  void flyRadioOrHeading();
  bool captureLocalizer();
  void steerCwsRoll();
  void setSensitivities();
  void setSpeedTarget();
  void changeSpeedUnit();
  Trends filter();
  void holdAttitude();
  void arbitratePitch(const Trends& trends);
  void steerCwsPitch();
  void flyGlideslope();
  void holdSpeedByPitch(double iasTrend_kt_s);
  bool paced(int longest);

  void flyVerticalSpeed(const Trends& trends);
  void flyLevelChange(double altError_ft);
  void startLevelChange(double altError_ft);
  void captureAltitude(double altError_ft);
  void acquireAltitude(double altError_ft);
  void levelOffFromClimb(double altError_ft);
  void levelOffFromDescent(double altError_ft);
  void scalePitch(double factor);
  void holdAltitude(const Trends& trends);
  void setN1Targets(float computed_pct);

  Autoflight& autoflight_;
  std::int16_t Relay_ = 0;
  std::int16_t LNAV_ = 0;
  std::int16_t VNAV_ = 0;
  std::int16_t ExecFlightplan_ = 0;
  std::int16_t ActiveFpIndex_ = 0;
  std::int16_t ClimbFlag_ = 0;
  std::int16_t DescentFlag_ = 0;
  std::int16_t AccelerationAltitude_ = 0;
  Thrust thrust_;
  Memory memory_;
  /// Decided by an operator who starts the cycle by hand.
  bool ExtraPollEachCycle_ = false;
  bool performanceDbOpen_ = false;
  std::string tuningFault_;
};

}  // namespace vorlent
