#include <algorithm>
#include <random>

#include "extras/SoundTest.h"
#include "support/IndependentSounds.h"
#include "support/walks.h"

namespace vorlent {
namespace {

/// A flight that nobody would fly: everything that the sounds look at changes at random, in front
/// of the whole server, which polls by its own timer. Each poll's calls are held against those of
/// the second reading.
class RandomSoundFlight {
 public:
  explicit RandomSoundFlight(unsigned seed) : random_(seed) {
    world_.jet = chance(2);
    world_.engineCount = from(1, 4);
    host_.bus.put<std::uint8_t>(0x0AEC, static_cast<std::uint8_t>(world_.engineCount));
    host_.bus.put<std::uint8_t>(0x0609, world_.jet ? 1 : 0);
    host_.start();
    setPans();
    useSettings(anySettings());
    if (chance(8)) device_.missing.insert("start.wav");
    model_.missing = device_.missing;
    greet();
    // The autoflight begins with a poll of its own; it is over before the sounds are switched on.
    host_.loop.advance(5000);
    compare("first client");
    check(true);
  }

  void fly(int polls) {
    for (int i = 0; i < polls && !::testing::Test::HasFailure(); ++i) {
      operate();
      move();
      host_.loop.advance(60);
      lookAtWorld();
      model_.poll(world_);
      compare("poll " + std::to_string(i));
    }
  }
  /// Every kind of call that came.
  const std::set<std::string>& heard() const { return heard_; }

 private:
  int from(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  bool chance(int oneIn) { return from(1, oneIn) == 1; }

  void setPans() {
    const std::array<std::array<int, 5>, 5> pans{
        {{}, {0, 50}, {0, 20, 80}, {0, 20, 30, 70, 80}, {0, 20, 30, 70, 80}}};
    for (std::size_t n = 1; n <= 4; ++n)
      world_.engines[n].pan = pans[static_cast<std::size_t>(world_.engineCount)][n];
  }
  IndependentSounds::Settings anySettings() {
    IndependentSounds::Settings any{};
    any.rumbleVolume = from(0, 60);
    any.rumbleMost = from(1, 110);
    any.bumpVolume = from(0, 40);
    any.bumpMost = from(1, 110);
    any.tyresVolume = from(0, 104);
    any.startVolume = from(0, 104);
    any.rumbleFactor = from(0, 128) / 64.0;
    any.bumpFactor = from(0, 32) / 64.0;
    any.threshold_kt = from(0, 30);
    any.rumble = !chance(5);
    any.bump = !chance(5);
    any.tyres = !chance(5);
    any.start = !chance(5);
    return any;
  }
  /// As the confirmed form would.
  void useSettings(const IndependentSounds::Settings& s) {
    const auto small = [](int x) { return static_cast<std::int16_t>(x); };
    model_.settings = s;
    SoundSettings& its = *host_.server.soundSettings;
    its.rumble = {"rumble.wav",        small(s.rumbleVolume), static_cast<float>(s.rumbleFactor),
                  small(s.rumbleMost), small(s.rumble),       small(s.threshold_kt)};
    its.bump = {"bump.wav", small(s.bumpVolume), static_cast<float>(s.bumpFactor),
                small(s.bumpMost), small(s.bump)};
    its.tyres = {"tyres.wav", small(s.tyresVolume), small(s.tyres)};
    its.start = {"start.wav", small(s.startVolume), small(s.start)};
  }
  static std::string fileOf(const IndependentSounds::Settings& s) {
    const auto line = [](std::initializer_list<double> values) {
      std::string text;
      for (const double value : values) text += (text.empty() ? "" : ",") + std::to_string(value);
      return text + "\r\n";
    };
    return line({double(s.rumbleVolume), s.rumbleFactor, double(s.rumbleMost), double(s.bumpVolume),
                 s.bumpFactor, double(s.bumpMost), double(s.tyresVolume), double(s.startVolume)}) +
           line({double(s.threshold_kt), double(s.rumble), double(s.bump), double(s.tyres),
                 double(s.start)});
  }

  // What the operator and the displays do between two polls.
  void operate() {
    if (chance(60)) check(!world_.menu);
    if (chance(90)) useSettings(anySettings());
    if (chance(120)) stopClients();
    if (chance(200)) changeCockpit();
    if (!world_.anyClient && chance(10)) greet();
    compare("between polls");
  }
  void check(bool menu) {
    world_.menu = menu;
    host_.form.Settings(Setting::AircraftSound).Checked(menu);
  }
  /// A slot takes no greeting before its last session has said farewell.
  void greet() {
    host_.greet(0);
    world_.anyClient = host_.server.main->AnyClientUp();
    if (world_.anyClient) model_.firstClient();
  }
  void stopClients() {
    host_.form.cmdStopCts.press();
    world_.anyClient = false;
    model_.stopClients();
  }
  /// The next cockpit's flags count only where the sounds are switched off at the time.
  void changeCockpit() {
    IndependentSounds::Settings next = anySettings();
    const std::string name = host_.form.cboDir.Text() == "A-first" ? "737-700" : "A-first";
    host_.folder.write("Cockpits/" + name + "/sound.cfg", fileOf(next));
    host_.server.failureDomain.run(
        [&] { host_.form.cboDir.ListIndex(host_.form.cboDir.indexOf(name)); });
    if (world_.menu) {
      next.threshold_kt = 0;
      next.rumble = next.bump = next.tyres = next.start = false;
    }
    world_.anyClient = false;
    model_.stopClients();
    model_.settings = next;
  }

  // What the aircraft does between two polls.
  void move() {
    if (chance(8)) host_.bus.put<std::uint16_t>(0x0366, chance(20) ? 2 : chance(2));
    if (chance(3))
      host_.bus.put<std::uint32_t>(0x02B4, static_cast<std::uint32_t>(from(0, 6000000)));
    if (chance(3)) host_.bus.put<std::uint16_t>(0x02C8, static_cast<std::uint16_t>(from(0, 65535)));
    if (chance(3)) host_.bus.put(0x057C, static_cast<std::uint32_t>(from(-3, 3) * 11930464 / 2));
    if (chance(15)) host_.bus.put<std::uint8_t>(0x0264, chance(2));
    for (int n = 1; n <= world_.engineCount; ++n) turn(n);
  }
  void turn(int n) {
    const auto engine = static_cast<std::uint32_t>(0x088C + 0x98 * (n - 1));
    if (chance(25))
      host_.bus.put(engine + 6, static_cast<std::uint8_t>(chance(2) ? on() : from(0, 4)));
    if (chance(40)) host_.bus.put<std::uint8_t>(engine + 8, chance(2));
    if (chance(50)) {
      const int magneto = from(0, 4);
      host_.store.Engines(n).RecordedStart = static_cast<std::int16_t>(magneto);
      model_.recordStart(n, magneto);
    }
  }
  int on() const { return world_.jet ? 1 : 4; }

  void lookAtWorld() {
    const modPublic& v = host_.store;
    world_.groundSpeed_kt = v.GroundSpeed;
    world_.bank_deg = v.Bank;
    world_.verticalSpeed_ftmin = v.VerticalSpeed;
    world_.onGround = v.OnGround;
    world_.paused = v.Paused;
    for (int n = 1; n <= 4; ++n) {
      auto& engine = world_.engines[static_cast<std::size_t>(n)];
      engine.starter = v.Engines(n).Starter;
      engine.combustion = v.Engines(n).Combustion;
    }
  }

  void compare(const std::string& where) {
    const std::vector<std::string> expected = model_.takeCalls();
    std::vector<std::string> actual = device_.takeCalls();
    for (int n = 1; n <= 4; ++n)
      for (const auto& write :
           host_.bus.writesTo(static_cast<std::uint32_t>(0x0892 + 0x98 * (n - 1))))
        actual.push_back("magneto " + std::to_string(n) + " " + std::to_string(write.bytes.at(0)));
    host_.bus.writes.clear();
    ASSERT_EQ(actual, expected) << where << ": " << model_.state();
    for (const std::string& call : actual) heard_.insert(call);
  }

  std::mt19937 random_;
  TestServer host_;
  RecordingSoundDevice& device_ = host_.soundDevice;
  IndependentSounds model_;
  IndependentSounds::World world_;
  std::set<std::string> heard_;
};

TEST(SoundFlights, EveryCallOfRandomFlightsIsThatOfTheSecondReading) {
  std::set<std::string> heard;
  for (unsigned seed = 1;
       seed <= static_cast<unsigned>(walkLength(60)) && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("flight " + std::to_string(seed));
    RandomSoundFlight flight(seed);
    flight.fly(1000);
    heard.insert(flight.heard().begin(), flight.heard().end());
  }
  for (const std::string expected :
       {"rumble.wav volume 0", "rumble.wav volume -10000", "rumble.wav release", "bump.wav play",
        "tyres.wav play", "tyres.wav pan 2222", "bump.wav pan 0", "rumble.wav pan -2223",
        "start.wav loop", "start.wav rewind", "start.wav pan 2081", "magneto 1 3"})
    EXPECT_TRUE(heard.contains(expected)) << expected << " never came";
}

}  // namespace
}  // namespace vorlent
