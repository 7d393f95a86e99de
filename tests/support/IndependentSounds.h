#pragma once

#include <array>
#include <set>
#include <string>
#include <vector>

namespace vorlent {

/// A second reading of when the aircraft's sounds start and stop, and how loud they are: what each
/// event asks of the sound device, in the words of RecordingSoundDevice. Written apart from the
/// server's own.
class IndependentSounds {
 public:
  /// The cockpit's sounds, in the order of the two lines of sound.cfg.
  struct Settings {
    int rumbleVolume, rumbleMost, bumpVolume, bumpMost, tyresVolume, startVolume;
    double rumbleFactor, bumpFactor;
    int threshold_kt;
    bool rumble, bump, tyres, start;
  };
  struct Engine {
    int starter = 0;
    int combustion = 0;
    int pan = 0;
  };
  /// What a poll finds.
  struct World {
    bool menu = false;  ///< the sounds are checked
    bool anyClient = false;
    bool jet = true;
    int engineCount = 0;
    int groundSpeed_kt = 0;
    double bank_deg = 0;  ///< 0 to 360
    double verticalSpeed_ftmin = 0;
    int onGround = 0;
    int paused = 0;
    std::array<Engine, 5> engines;  ///< from 1
  };

  void firstClient();
  /// A start by button has recorded where the magneto stands. It counts for this start alone.
  void recordStart(int engine, int magneto) {
    starters_.at(static_cast<std::size_t>(engine)).recorded = magneto;
  }
  void poll(const World& world);
  void stopClients();

  /// What was asked of the device, and behind it "magneto ENGINE POSITION" for what was
  /// written to the engines; empty again then.
  std::vector<std::string> takeCalls();
  /// For a failure's text.
  std::string state() const;

  Settings settings{};
  std::set<std::string> missing;  ///< files that are not there
  int devicePosition = 1;

 private:
  struct Starter {
    int id = 0;
    bool plays = false;
    int polls = 0;
    int magnetoBefore = 0;
    int recorded = -1;  ///< below 0 none
  };

  int loaded();
  int load(const std::string& file);
  int loop(const std::string& file, int percent);
  bool ask(int id, const std::string& what);
  bool volume(int id, double exact);
  void pan(int id, double percent);
  void stop(int id);
  void silence(Starter& starter);
  void starter(int engine, const World& world);
  void ground(const World& world);
  void panAll(const World& world);
  void land(const World& world);
  void settle(const World& world);
  void rumbleLoudness(const World& world, bool rolling);
  double bumpLoudness(const World& world) const;

  std::vector<std::string> calls_;
  bool deviceOpen_ = false;
  std::vector<std::string> list_{""};  ///< element 0 stays empty
  int rumble_ = 0;
  int bump_ = 0;
  int tyres_ = 0;
  std::array<Starter, 5> starters_;
  bool wasOnGround_ = false;
  int polls_ = 0;
};

}  // namespace vorlent
