#pragma once

#include <string>

namespace vorlent {

/// What the displays show of the autoflight's modes: each text under its own name, and what can
/// happen to it as a function. "_" is a blank annunciator. A text stands until another event writes
/// it, whatever has become of its mode.
struct Annunciators {
  static constexpr const char* Blank = "_";
  static constexpr const char* NoSide = "FD";
  /// A mode that waits for the autopilot or the autothrottle.
  static constexpr const char* Armed = "ARM";

  std::string ATEngagedMode = Blank;    ///< ARM, N1, MCP_SPD, FMC_SPD, THR_HLD or RETARD
  std::string RollEngagedMode = Blank;  ///< LNAV, HDG_SEL or VOR/LOC
  std::string PitchEngagedMode =
      Blank;  ///< TO/GA, ALT_HOLD, ALT_ACQ, V/S, MCP_SPD, VNAV_SPD, G/S or ARM
  std::string RollArmedMode = Blank;        ///< always blank: nothing arms a mode of its own
  std::string PitchArmedMode = Blank;       ///< likewise
  std::string CwsRollEngagedMode = Blank;   ///< CWS_R
  std::string CwsPitchEngagedMode = Blank;  ///< CWS_P
  std::string AutopilotMode = NoSide;       ///< FD, CMD or CWS

  void commandEngages() { AutopilotMode = "CMD"; }
  /// The pilot's wheel and column take over: every mode's annunciation goes.
  void wheelSteeringEngages() {
    AutopilotMode = "CWS";
    RollEngagedMode = RollArmedMode = Blank;
    PitchEngagedMode = PitchArmedMode = Blank;
  }
  void sideDisengages() { AutopilotMode = NoSide; }

  void lnavFlies() { RollEngagedMode = "LNAV"; }
  void headingFlies() { RollEngagedMode = "HDG_SEL"; }
  void radioFlies() { RollEngagedMode = "VOR/LOC"; }
  void rollModeEnds() { RollEngagedMode = Blank; }
  void armedRollModeEnds() { RollArmedMode = Blank; }
  void wheelTakesRoll() { CwsRollEngagedMode = "CWS_R"; }
  void wheelLeavesRoll() { CwsRollEngagedMode = Blank; }

  void takeoffFlies() { PitchEngagedMode = "TO/GA"; }
  void altitudeHoldFlies() { PitchEngagedMode = "ALT_HOLD"; }
  void altitudeHoldWaits() { PitchEngagedMode = Armed; }
  void altitudeCaptureFlies() { PitchEngagedMode = "ALT_ACQ"; }
  void verticalSpeedFlies() { PitchEngagedMode = "V/S"; }
  void speedByPitchFlies() { PitchEngagedMode = "MCP_SPD"; }
  void vnavFlies() { PitchEngagedMode = "VNAV_SPD"; }
  void glideslopeFlies() { PitchEngagedMode = "G/S"; }
  void pitchModeEnds() { PitchEngagedMode = Blank; }
  void columnTakesPitch() { CwsPitchEngagedMode = "CWS_P"; }
  void columnLeavesPitch() { CwsPitchEngagedMode = Blank; }

  void thrustWaits() { ATEngagedMode = Armed; }
  void thrustIsThePilots() { ATEngagedMode = Blank; }
  void n1Flies() { ATEngagedMode = "N1"; }
  void speedByThrustFlies() { ATEngagedMode = "MCP_SPD"; }
  void planSpeedFlies() { ATEngagedMode = "FMC_SPD"; }
  void throttlesHold() { ATEngagedMode = "THR_HLD"; }
  void retardFlies() { ATEngagedMode = "RETARD"; }
};

}  // namespace vorlent
