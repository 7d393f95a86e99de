#include "extras/frmSound.h"

#include <filesystem>

#include "extras/SoundTest.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class SoundForm : public SoundTest {
 protected:
  /// What the operator does while the form is up.
  void whenShown(std::function<void()> work) {
    host.op.onShow = [work = std::move(work)](Form&) { work(); };
    host.form.cmdSound.press();
  }
  std::string soundCfg() const { return host.folder.read("Cockpits/737-700/sound.cfg"); }
  std::vector<std::string> boxes() {
    std::vector<std::string> texts;
    for (const TextBox* box :
         {&form.txtRum(0), &form.txtRum(1), &form.txtRum(2), &form.txtRum(3), &form.txtBump(0),
          &form.txtBump(1), &form.txtBump(2), &form.txtTyres(), &form.txtStart()})
      texts.push_back(box->Text());
    return texts;
  }

  frmSound& form = *host.server.soundForm;
};

TEST_F(SoundForm, ItsButtonShowsItModally) {
  host.form.cmdSound.press();
  EXPECT_EQ(host.op.shown.back(), (RecordingOperator::Shown{"frmSound", "Sound", true}));
}

TEST_F(SoundForm, ShowsWhatIsInForce) {
  sounds.bump.Enabled = 0;
  v.SoundDeviceId = 2;
  whenShown([&] {
    EXPECT_THAT(boxes(), ElementsAre("60", "1", "95", "5", "10", "0.1", "100", "80", "70"));
    EXPECT_EQ(form.chkRum.Value(), 1);
    EXPECT_EQ(form.chkBump.Value(), 0);
    EXPECT_EQ(form.chkTyres.Value(), 1);
    EXPECT_EQ(form.chkStart.Value(), 1);
    EXPECT_EQ(form.cboSoundDevice.Text(), "Headset");
  });
  EXPECT_EQ(v.SoundDeviceId, 2);
}

TEST_F(SoundForm, ADeviceBeyondTheListIsShownAsNone) {
  v.SoundDeviceId = 9;
  whenShown([&] { EXPECT_EQ(form.cboSoundDevice.ListIndex(), -1); });
  EXPECT_EQ(v.SoundDeviceId, 9);
}

TEST_F(SoundForm, AClickOnADeviceStoresItsPlaceCountedFromOne) {
  whenShown([&] {
    form.cboSoundDevice.ListIndex(2);
    EXPECT_EQ(v.SoundDeviceId, 3);
    form.cmdCancel.press();
  });
  EXPECT_EQ(v.SoundDeviceId, 3);
}

TEST_F(SoundForm, OkKeepsEveryControlAndWritesTheFile) {
  whenShown([&] {
    form.chkRum.Value(1);
    form.txtRum(0).Text("61");
    form.txtRum(1).Text("1.5");
    form.txtRum(2).Text("96");
    form.txtRum(3).Text("6");
    form.chkBump.Value(0);
    form.txtBump(0).Text("11");
    form.txtBump(1).Text("0.25");
    form.txtBump(2).Text("97");
    form.chkTyres.Value(1);
    form.txtTyres().Text("81");
    form.chkStart.Value(0);
    form.txtStart().Text("71");
    form.cmdOK.press();
  });
  EXPECT_EQ(soundCfg(), "61,1.5,96,11,0.25,97,81,71\r\n6,1,0,1,0\r\n");
  EXPECT_EQ(sounds.rumble.Volume, 61);
  EXPECT_EQ(sounds.rumble.Factor, 1.5F);
  EXPECT_EQ(sounds.rumble.Threshold, 6);
  EXPECT_EQ(sounds.bump.Enabled, 0);
  EXPECT_EQ(sounds.bump.MaxVolume, 97);
  EXPECT_EQ(sounds.start.Volume, 71);
  EXPECT_FALSE(form.Visible());
  EXPECT_THAT(host.op.hidden, ElementsAre("frmSound"));
}

TEST_F(SoundForm, WhatItWritesIsReadBack) {
  whenShown([&] { form.cmdOK.press(); });
  SoundSettings read;
  read.read(host.folder / "Cockpits/737-700/sound.cfg", false);
  EXPECT_EQ(read.bump.Factor, 0.1F);
  EXPECT_EQ(read.rumble.Threshold, 5);
  EXPECT_EQ(read.start.Enabled, 1);
}

TEST_F(SoundForm, CancelAndTheCloseBoxDropTheChanges) {
  const std::string before = soundCfg();
  whenShown([&] {
    form.txtRum(0).Text("1");
    form.chkRum.Value(0);
    form.cmdCancel.press();
  });
  whenShown([&] {
    EXPECT_EQ(form.txtRum(0).Text(), "60");
    form.txtRum(0).Text("1");
    form.close();
  });
  EXPECT_EQ(sounds.rumble.Volume, 60);
  EXPECT_EQ(sounds.rumble.Enabled, 1);
  EXPECT_EQ(soundCfg(), before);
  EXPECT_FALSE(form.Visible());
}

TEST_F(SoundForm, OkWithAllFourOffUnchecksTheMenuAndItsButton) {
  whenShown([&] {
    for (CheckBox* box : {&form.chkRum, &form.chkBump, &form.chkTyres, &form.chkStart})
      box->Value(0);
    form.cmdOK.press();
  });
  EXPECT_FALSE(host.form.Settings(Setting::AircraftSound).Checked());
  EXPECT_FALSE(host.form.cmdSound.Enabled());
}

TEST_F(SoundForm, OkWithOneOnChecksTheMenuAndItsButton) {
  host.form.Settings(Setting::AircraftSound).Checked(false);
  host.form.cmdSound.Enabled(false);
  whenShown([&] {
    for (CheckBox* box : {&form.chkRum, &form.chkBump, &form.chkTyres}) box->Value(0);
    form.cmdOK.press();
  });
  EXPECT_TRUE(host.form.Settings(Setting::AircraftSound).Checked());
  EXPECT_TRUE(host.form.cmdSound.Enabled());
}

TEST(SoundFormAfterAStartWithSoundOn, OkBringsBackTheFlagsThatTheStartCleared) {
  TestServer host;
  host.configure("SoundOn", "True");
  host.start();
  frmSound& form = *host.server.soundForm;
  EXPECT_EQ(host.server.soundSettings->rumble.Enabled, 0);
  host.op.onShow = [&](Form&) {
    EXPECT_EQ(form.chkRum.Value(), 0);
    EXPECT_EQ(form.txtRum(3).Text(), "0");
    form.chkRum.Value(1);
    form.cmdOK.press();
  };
  host.form.cmdSound.press();
  host.greet(0);
  EXPECT_THAT(host.soundDevice.calls, ElementsAre("open 1", "load rumble.wav", "rumble.wav loop",
                                                  "rumble.wav volume -10000"));
}

TEST_F(SoundForm, ABoxThatHoldsNoNumberKeepsTheFormAndEverythingAsItWas) {
  const std::string before = soundCfg();
  for (const std::string wrong : {"loud", "", "40000", "1,5"}) {
    whenShown([&] {
      form.txtRum(0).Text("50");
      form.txtBump(2).Text(wrong);
      form.cmdOK.press();
      EXPECT_TRUE(form.Visible());
      EXPECT_EQ(host.op.takeBoxes().at(0).text,
                "txtBump(2) holds \"" + wrong + "\": A whole number from -32768 to 32767");
    });
    EXPECT_EQ(sounds.rumble.Volume, 60);
    EXPECT_EQ(soundCfg(), before);
    form.cmdCancel.press();
  }
}

TEST_F(SoundForm, AMissingFileIsToldAndEndsTheProcess) {
  fs::remove(host.folder / "Cockpits/737-700/sound.cfg");
  host.server.failureDomain.run([&] { whenShown([&] { form.cmdOK.press(); }); });
  EXPECT_EQ(host.op.takeBoxes().at(0).title, "File error");
  EXPECT_EQ(host.exitStatus(), 1);
}

TEST_F(SoundForm, TabsGoDownTheForm) {
  std::vector<std::string> names;
  for (const Control* control : form.controls())
    if (dynamic_cast<const Label*>(control) == nullptr) names.push_back(control->name());
  EXPECT_THAT(names, ElementsAre("cboSoundDevice", "chkRum", "txtRum(0)", "txtRum(1)", "txtRum(2)",
                                 "txtRum(3)", "chkBump", "txtBump(0)", "txtBump(1)", "txtBump(2)",
                                 "chkTyres", "txtTyres(0)", "chkStart", "txtStart(0)", "cmdOK",
                                 "cmdCancel"));
}

TEST_F(SoundForm, LabelsAndToolTipsStandAsBuildersKnowThem) {
  EXPECT_EQ(form.chkRum.Caption(), "Ground Rumble");
  EXPECT_EQ(form.chkBump.Caption(), "Touchdown Bump");
  EXPECT_EQ(form.chkTyres.Caption(), "Wheel Spinup");
  EXPECT_EQ(form.chkStart.Caption(), "Starter Sound");
  EXPECT_EQ(form.lblVolume.Caption(), "Volume");
  EXPECT_EQ(form.lblFactor.Caption(), "+Factor");
  EXPECT_EQ(form.lblThreshold.Caption(), "Treshold (kts)");
  EXPECT_EQ(form.txtRum(0).ToolTipText(), "Base volume of tyre rumble");
  EXPECT_EQ(form.txtRum(1).ToolTipText(), "Factor to multiply with speed");
  EXPECT_EQ(form.txtRum(2).ToolTipText(), "Max volume");
  EXPECT_EQ(form.txtBump(0).ToolTipText(), "Base volume of touchdown bump");
  EXPECT_EQ(form.txtTyres().ToolTipText(), "Volume of type spinup");
  EXPECT_EQ(form.txtStart().ToolTipText(), "Volume of engine starter");
}

}  // namespace
}  // namespace vorlent
