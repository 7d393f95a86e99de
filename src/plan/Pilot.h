#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "display/Command.h"
#include "display/RecordReader.h"
#include "plan/FlightPlanner.h"

namespace vorlent {

/// The pilot of a whole flight, at the far end of a session like any display: sees the record,
/// moves the controls by commands. He rotates, works flaps, gear and panel, and lets the autoflight
/// do the rest, from the runway on which the aircraft stands to 50 feet above the other one.
class Pilot {
 public:
  struct Landing {
    double localizer_MHz;
    double course_deg;  ///< true
  };
  using Tell = std::function<void(const std::string&)>;

  /// `look_s`: of the flight, from one record to the next.
  Pilot(const PlannedFlight& flight, const Landing& landing, double look_s, Tell tell);

  /// What he does when he sees a record, while a leg of the plan is flown.
  std::vector<Command> look(const Record& record, std::size_t leg);
  /// He is 50 feet above the runway; from then on he does nothing.
  bool arrived() const { return arrived_; }

 private:
  struct View {
    double height_ft = 0;  ///< of the wheels
    double altitude_ft = 0;
    double speed_kt = 0;
    double pitch_deg = 0;
    int phase = 0;
    std::string to;  ///< the waypoint at which the leg ends
    bool afterDescent = false;
  };

  void see(const Record& record, std::size_t leg);
  void prepare(const Record& record);
  void rotate();
  void cleanUp();
  void cruise(const Record& record);
  void holdLnav(const Record& record);
  void descend(const Record& record);
  bool isLevelTooHigh(const Record& record) const;
  void leaveLevel(const Record& record);
  void keepToProfile(const Record& record, std::size_t leg);
  void approach(const Record& record);
  void land(const Record& record);
  void flapsDown(double below_kt, const std::string& flaps);

  /// True the first time; tells it then, with height and speed.
  bool once(const std::string& step);
  bool did(const std::string& step) const { return done_.contains(step); }
  /// True every ten seconds at most, and tells it.
  bool again(const std::string& step);
  void say(const std::string& step) const;
  void press(int button);
  void dial(int what, double value);
  /// By a button that turns over what a bit of the record shows.
  void turn(const Record& record, const char* bit, bool on, int button);

  const PlannedFlight& flight_;
  Landing landing_;
  double look_s_;
  Tell tell_;
  View now_;
  double groundHeight_ft_ = 0;  ///< what the radio altimeter shows on the ground
  double time_s_ = 0;
  double againAt_s_ = 0;
  double lastPitch_deg_ = 0;
  double elevator_ = 0;       ///< what he holds, 1 is full nose up
  bool brakes_ = false;       ///< the speed brake is out
  double profileKept_s_ = 0;  ///< until then the speed brake was where it should be
  bool arrived_ = false;
  std::set<std::string> done_;
  std::vector<Command> commands_;
};

}  // namespace vorlent
