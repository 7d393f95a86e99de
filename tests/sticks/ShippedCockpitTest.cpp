#include <filesystem>

#include "core/frmMainClient.h"
#include "extras/Flaps.h"
#include "extras/SoundSettings.h"
#include "sticks/StickTest.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int ShippedSticks = 8;
const std::string Cockpit = "Cockpits/737-700/";

/// A server in whose program folder one of the shipped folders of an aircraft stands as its
/// cockpit, beside the shipped catalogues, with a board for each of its stick files.
class ShippedCockpit : public StickTest, public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    // Not every system finds a folder by a name that ends in a separator.
    const fs::path cockpit = fs::path(t.folder / Cockpit).parent_path();
    fs::remove_all(cockpit);
    fs::copy(fs::path(shipped("")).parent_path(), cockpit, fs::copy_options::recursive);
    for (const std::string catalogue :
         {"anasort.txt", "togsort.txt", "butsort.txt", "encoder.txt"}) {
      fs::remove(t.folder / catalogue);
      fs::copy_file(dataFolder() + "/" + catalogue, t.folder / catalogue);
    }
    for (int board = 1; board < ShippedSticks; ++board) t.controllers.plugIn();
    t.form.txtSticks.Text(std::to_string(ShippedSticks));
  }

  static std::string shipped(const std::string& name) {
    return dataFolder() + "/" + GetParam() + "/737-700/" + name;
  }
  static std::string shippedText(const std::string& name) {
    std::ifstream file(shipped(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::string nameOf(int stick) { return "stick/stick" + std::to_string(stick) + ".cfg"; }
  static void expectOffered(const ComboBox& catalogue, const Control& assigned,
                            const std::string& where) {
    std::vector<std::string> codes;
    for (const auto& item : catalogue.Items()) codes.push_back(std::to_string(item.data));
    EXPECT_THAT(codes, Contains(assigned.Tag())) << where;
  }
  std::string present(const std::string& name) const { return t.folder.read(Cockpit + name); }
};

INSTANTIATE_TEST_SUITE_P(All, ShippedCockpit, ::testing::Values("Cockpits", "Templates"));

TEST_P(ShippedCockpit, LoadsAStickForEachOfEightBoardsWithoutAMessage) {
  click(1);
  EXPECT_THAT(statusLines,
              ElementsAre("InitJoystick 0", "InitJoystick 1", "InitJoystick 2", "InitJoystick 3",
                          "InitJoystick 4", "InitJoystick 5", "InitJoystick 6", "InitJoystick 7"));
  EXPECT_THAT(t.op.takeBoxes(), IsEmpty());
  EXPECT_EQ(t.exitStatus(), std::nullopt);
  for (int i = 0; i < ShippedSticks; ++i)
    EXPECT_EQ(present(nameOf(i)), shippedText(nameOf(i))) << i;
}

TEST_P(ShippedCockpit, SavingAStickThatNobodyChangedWritesTheSameFile) {
  click(1);
  for (int i = 0; i < ShippedSticks; ++i) {
    t.folder.write(Cockpit + nameOf(i), "");
    stick(static_cast<std::size_t>(i)).cmdOK.press();
    EXPECT_EQ(present(nameOf(i)), shippedText(nameOf(i))) << i;
  }
}

/// Levers, switches, push buttons and encoders have a catalogue each.
TEST_P(ShippedCockpit, EachAssignmentStandsInTheCatalogueOfItsKind) {
  click(1);
  for (std::size_t i = 0; i < ShippedSticks; ++i) {
    frmCStick& one = stick(i);
    const std::string name = "stick " + std::to_string(i);
    for (int axis = 0; axis < frmCStick::Axes; ++axis)
      expectOffered(one.AxisMode() == 1 ? one.cboACoder : one.cboAxes, one.optAxes(axis),
                    name + " axis " + std::to_string(axis));
    for (int line = 0; line < frmCStick::Lines; ++line) {
      const std::string& kind = one.OnOff(line).Tag();
      expectOffered(kind == "0"   ? one.cboButtons
                    : kind == "1" ? one.cboSwitches
                                  : one.cboCoder,
                    one.optSwitches(line), name + " line " + std::to_string(line));
    }
    for (int button = 0; button < frmCMore::Buttons; ++button)
      expectOffered(more(i).cboButtons, more(i).optSwitches(button),
                    name + " extra button " + std::to_string(button));
  }
}

TEST_P(ShippedCockpit, ItsFlapsAreTheDetentsOfThe737) {
  t.store.FsVersionCode = 1;
  t.server.flaps->InitFlaps();
  const auto& table = t.server.store.FlapTable;
  std::vector<int> degrees;
  for (int i = 1; i <= table(0).Degrees; ++i) degrees.push_back(table(i).Degrees);
  EXPECT_THAT(degrees, ElementsAre(0, 1, 2, 5, 10, 15, 25, 30, 40));
  t.server.flaps->writeFile(t.store.CockpitPath);
  EXPECT_EQ(present("Flaps.cfg"), shippedText("Flaps.cfg"));
}

TEST_P(ShippedCockpit, ItsSoundsAreWithinTheScaleAndThoseThatPlayAreThere) {
  SoundSettings sound;
  sound.read(shipped("sound.cfg"), false);
  EXPECT_LE(sound.rumble.Volume, sound.rumble.MaxVolume);
  EXPECT_LE(sound.bump.Volume, sound.bump.MaxVolume);
  for (const int volume : {sound.rumble.Volume, sound.rumble.MaxVolume, sound.bump.Volume,
                           sound.bump.MaxVolume, sound.tyres.Volume, sound.start.Volume}) {
    EXPECT_GT(volume, 0);
    EXPECT_LE(volume, 100);
  }
  const auto playable = [](int enabled, const std::string& file) {
    return enabled == 0 || fs::exists(shipped("sound/" + file));
  };
  EXPECT_TRUE(playable(sound.rumble.Enabled, sound.rumble.file));
  EXPECT_TRUE(playable(sound.bump.Enabled, sound.bump.file));
  EXPECT_TRUE(playable(sound.tyres.Enabled, sound.tyres.file));
  EXPECT_TRUE(playable(sound.start.Enabled, sound.start.file));
}

}  // namespace
}  // namespace vorlent
