#include <filesystem>

#include "autoflight/AutoflightTest.h"
#include "base/files.h"
#include "core/frmMainClient.h"
#include "support/places.h"

namespace vorlent {
namespace {

const std::string Folder = "\\\\fmc1\\Tarnwick\\FMS\\";
const std::string PlanPath = Folder + "plan.cfg";
const std::string TuningPath = Folder + "Acft\\737-700\\737-700.acf";

/// In reading order: key, value in the file, and what it was before.
struct Key {
  const char* name;
  float value;
  float before;
};

constexpr Key Keys[] = {
    {"TurningRangeVor", 6, 5},
    {"TurningRangeWpt", 4, 3},
    {"RollControlFactor", 0.5F, 0.4F},
    {"PitchControlfactor", 20.5F, 0},
    {"ClimbPitchFactor", 0.035F, 0},
    {"PitchSensitivity", 300, 0},
    {"VspeedSensitivity", 90, 0},
    {"ThrottleControlFactor", 0.05F, 0},
    {"MaxBankCourseDeviation", 25, 30},
    {"BankLimitLowAltitude", 9, 8},
    {"BankLimitHighAltitude", 28, 30},
    {"MaxTrackOffset", 2.5F, 3},
    {"N1ToThr0", 0.01F, 0},
    {"N1ToThr1", -0.5F, 0},
    {"N1ToThr2", 12, 0},
};
constexpr std::size_t KeyCount = std::size(Keys);

class Tuning : public AutoflightTest {
 protected:
  void SetUp() override {
    AutoflightTest::SetUp();
    t.networkFiles.files[PlanPath] = "[Flight]\r\nAircraft=737-700\r\n";
    setDefaults();
  }

  void setDefaults() {
    renew();
    ap().tuning.apTurnRangeVor = 5;
    ap().tuning.apTurnRangeWpt = 3;
    ap().apRollControlFactor(0.4F);
    ap().tuning.apMaxBankCourseDeviation = 30;
    ap().tuning.apBankLimitLowAlt = 8;
    ap().tuning.apBankLimitHighAlt = 30;
    ap().tuning.apMaxTrackOffset = 3;
  }

  /// The tuning file, without one key or complete.
  void fileWithout(std::size_t missing) {
    std::string text = "[Other]\r\nTurningRangeVor=99\r\n[ApConfig]\r\n";
    for (std::size_t i = 0; i < KeyCount; ++i)
      if (i != missing)
        text += std::string(Keys[i].name) + "=" + singleText(Keys[i].value) + "\r\n";
    t.networkFiles.files[TuningPath] = text;
  }

  std::vector<float> values() {
    const auto& thr = afds().N1ToThr();
    return {ap().tuning.apTurnRangeVor,
            ap().tuning.apTurnRangeWpt,
            ap().apRollControlFactor(),
            ap().tuning.apPitchControlfactor,
            ap().tuning.apClimbPitchFactor,
            ap().tuning.apPitchSensitivityFix,
            ap().tuning.apVspeedSensitivityFix,
            at().apThrottleControlFactor(),
            ap().tuning.apMaxBankCourseDeviation,
            static_cast<float>(ap().tuning.apBankLimitLowAlt),
            static_cast<float>(ap().tuning.apBankLimitHighAlt),
            ap().tuning.apMaxTrackOffset,
            thr[0],
            thr[1],
            thr[2]};
  }

  std::vector<float> readUpTo(std::size_t count) {
    std::vector<float> expected;
    for (std::size_t i = 0; i < KeyCount; ++i)
      expected.push_back(i < count ? Keys[i].value : Keys[i].before);
    return expected;
  }
};

TEST_F(Tuning, CompleteFileGivesEveryValue) {
  fileWithout(KeyCount);
  EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), "737-700");
  EXPECT_EQ(values(), readUpTo(KeyCount));
  EXPECT_EQ(afds().AccelerationAltitude(), 1500);
}

TEST_F(Tuning, RollFactorIsTheWorkingOneToo) {
  fileWithout(KeyCount);
  afds().ReadAircraftConfig(PlanPath);
  ap().ApEngaged(1);
  store().Bank = 10;
  bus.writes.clear();
  ap().HoldBank(0);
  EXPECT_EQ(written(), Texts{"2EB0=0.087266465028127"});  // 10 x 0.5 degrees
}

TEST_F(Tuning, MissingKeyStopsThereAndTheEarlierOnesStay) {
  for (std::size_t missing = 0; missing < KeyCount; ++missing) {
    SCOPED_TRACE(Keys[missing].name);
    setDefaults();
    fileWithout(missing);
    EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), "737-700");
    EXPECT_EQ(values(), readUpTo(missing));
    EXPECT_EQ(afds().AccelerationAltitude(), 0);
  }
}

TEST_F(Tuning, EveryShippedFileIsComplete) {
  int files = 0;
  const std::string folder = dataFolder() + "/Network/display/Tarnwick/FMS/Acft";
  for (const auto& aircraft : std::filesystem::directory_iterator(folder)) {
    const std::string name = aircraft.path().filename().string();
    SCOPED_TRACE(name);
    setDefaults();
    t.networkFiles.files[PlanPath] = "[Flight]\r\nAircraft=" + name + "\r\n";
    t.networkFiles.files[Folder + "Acft\\" + name + "\\" + name + ".acf"] =
        readFile(folder + "/" + name + "/" + name + ".acf");
    EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), name);
    EXPECT_EQ(afds().AccelerationAltitude(), 1500);  // set behind the last key
    ++files;
  }
  EXPECT_EQ(files, 2);
}

TEST_F(Tuning, ValueThatIsNoNumberCountsAsMissing) {
  fileWithout(KeyCount);
  std::string& text = t.networkFiles.files[TuningPath];
  text.replace(text.find("=300"), 4, "=much");
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(values(), readUpTo(5));
}

TEST_F(Tuning, ValueMayStartWithItsPoint) {
  fileWithout(KeyCount);
  std::string& text = t.networkFiles.files[TuningPath];
  const std::string written = "ClimbPitchFactor=0.035";
  text.replace(text.find(written), written.size(), "ClimbPitchFactor=.035");
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(values(), readUpTo(KeyCount));
  EXPECT_EQ(afds().AccelerationAltitude(), 1500);
}

TEST_F(Tuning, BankLimitsAreWholeNumbers) {
  fileWithout(KeyCount);
  std::string& text = t.networkFiles.files[TuningPath];
  text.replace(text.find("LowAltitude=9"), 13, "LowAltitude=9.6");
  text.replace(text.find("HighAltitude=28"), 15, "HighAltitude=40000");
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(ap().tuning.apBankLimitLowAlt, 10);
  EXPECT_EQ(ap().tuning.apBankLimitHighAlt, 30) << "an overflow stops there";
  EXPECT_EQ(ap().tuning.apMaxTrackOffset, 3);
}

TEST_F(Tuning, MissingFileChangesNothing) {
  EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), "737-700");
  EXPECT_EQ(values(), readUpTo(0));
  EXPECT_EQ(afds().AccelerationAltitude(), 0);
}

TEST_F(Tuning, WithoutAPlanFileThereIsNoAircraft) {
  fileWithout(KeyCount);
  t.networkFiles.files.erase(PlanPath);
  EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), "");
  t.networkFiles.files[PlanPath] = "[Flight]\r\nFrom=EDDF\r\n";
  EXPECT_EQ(afds().ReadAircraftConfig(PlanPath), "");
  EXPECT_EQ(values(), readUpTo(0));
}

TEST_F(Tuning, ACompleteFileIsNotTold) {
  fileWithout(KeyCount);
  t.form.SetStatusText(1, "before");
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(t.form.sbStatusBar.panelText(1), "before");
}

TEST_F(Tuning, WhatIsMissingIsToldOnBothPanelsAndInTheLog) {
  const auto told = [this] {
    EXPECT_EQ(t.form.sbStatusBar.panelText(1), t.form.sbStatusBar.panelText(2));
    EXPECT_NE(t.log().find(t.form.sbStatusBar.panelText(1)), std::string::npos);
    return t.form.sbStatusBar.panelText(1);
  };
  const std::string start = "No tuning for the autopilot, do not engage it: ";
  fileWithout(KeyCount);
  t.networkFiles.files.erase(TuningPath);
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(told(), start + "tuning of 737-700: File not found");
  fileWithout(3);
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(told(), start + "tuning of 737-700: Type mismatch");
  t.networkFiles.files[PlanPath] = "[Flight]\r\n";
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(told(), start + PlanPath + " names no aircraft");
  t.networkFiles.files.erase(PlanPath);
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_EQ(told(), start + PlanPath + " is not there");
}

TEST_F(Tuning, LeverForN1IsTheAircraftsPolynomial) {
  fileWithout(KeyCount);
  afds().ReadAircraftConfig(PlanPath);
  EXPECT_NEAR(afds().CalcThrottleFromN1(80), 36, 1e-5);  // 0.01 x 6400 - 0.5 x 80 + 12
}

TEST_F(Tuning, FileForTheClientGoesIntoItsFolderAsOneLine) {
  t.form.FmcName("fmc1");
  afds().WriteFmcFile("ACTIVE", "EDDF ");
  EXPECT_EQ(t.networkFiles.changes,
            (Texts{"remove " + Folder + "ACTIVE", "write " + Folder + "ACTIVE: EDDF \r\n"}));
}

TEST_F(Tuning, FileForAClientWithoutAMachineNameIsNotWritten) {
  t.form.FmcName("..\\elsewhere");
  afds().WriteFmcFile("ACTIVE", "EDDF ");
  EXPECT_EQ(t.networkFiles.changes, Texts{});
}

}  // namespace
}  // namespace vorlent
