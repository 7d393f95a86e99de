#pragma once

#include <cstdint>
#include <string>

namespace vorlent {

/// The autoflight cycle and the state of the flight mode annunciator. "_" is a blank annunciator.
class clsAfds {
 public:
  virtual ~clsAfds() = default;
  /// At each start of the cycle. Does nothing yet: the autoflight's own start is not there.
  void Init() {}
  /// Every 400 ms. Does nothing yet: no mode logic, no laws, no navigation.
  void AFDS() {}
  /// For the client that owns the flight-plan share. Does nothing yet: the aircraft's name and its
  /// tuning are not read.
  virtual void ReadAircraftConfig(const std::string& /*planPath*/) {}

  std::int16_t LNAV = 0;
  std::int16_t VNAV = 0;
  std::int16_t LnavCriteria = 0;
  float AfdsValueA = 0;
  float AfdsValueB = 0;
  std::int16_t MessageId = 0;
  std::int16_t PhaseOfFlightEnum = 0;
  float DxToNextWaypoint = 0;   ///< nautical miles
  float CrsToNextWaypoint = 0;  ///< degrees true
  std::int16_t Minimums = 0;
  std::string ActiveWpt;

  std::string ATEngagedMode = "_";
  std::string RollEngagedMode = "_";
  std::string PitchEngagedMode = "_";
  std::string RollArmedMode = "_";
  std::string PitchArmedMode = "_";
  std::string AutopilotMode = "FD";
  std::string CwsRollEngagedMode = "_";
  std::string CwsPitchEngagedMode = "_";
};

}  // namespace vorlent
