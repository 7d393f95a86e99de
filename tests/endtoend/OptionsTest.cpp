#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "endtoend/Process.h"
#include "support/TempFolder.h"
#include "support/places.h"

namespace vorlent {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A program in a folder of its own, on a machine without a screen.
class ProgramOptions : public testing::TestWithParam<std::string> {
 protected:
  ProgramOptions() {
    const std::filesystem::path program = std::filesystem::path(programsFolder()) / GetParam();
    std::error_code differentDisk;
    std::filesystem::create_hard_link(program, folder / GetParam(), differentDisk);
    if (differentDisk) std::filesystem::copy_file(program, folder / GetParam());
  }
  /// Its status. What it says is in `output` and `errors`, what it leaves behind in `files`.
  int statusWith(const std::string& option) {
    Process process(
        "/bin/sh",
        {"-c", R"("$1" "$2" 2>"$3")", "sh", folder / GetParam(), option, outside / "errors"},
        {"DISPLAY=:none", "WAYLAND_DISPLAY=", "QT_QPA_PLATFORM=xcb",
         "VORLENT_BUS=" + folder / "bus", "HOME=" + folder / "home", "LC_ALL=C"});
    const int status = process.waitForEnd().value_or(-1);
    output = process.output();
    errors = outside.read("errors");
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
      files.insert(entry.path().filename().string());
    return status;
  }

  TempFolder folder;
  TempFolder outside;
  std::string output;
  std::string errors;
  std::set<std::string> files;
};

TEST_P(ProgramOptions, HelpGoesToStandardOutputAndNothingElseHappens) {
  EXPECT_EQ(statusWith("--help"), 0);
  EXPECT_THAT(output, AllOf(HasSubstr("\nUsage: " + GetParam() + " [OPTIONS]"),
                            HasSubstr("\n  --help "), HasSubstr("\n  --version ")));
  EXPECT_THAT(errors, IsEmpty());
  EXPECT_EQ(files, std::set{GetParam()});
}

TEST_P(ProgramOptions, VersionIsTheProjectsAndNothingElseHappens) {
  EXPECT_EQ(statusWith("--version"), 0);
  EXPECT_EQ(output, GetParam() + " " VORLENT_VERSION "\n");
  EXPECT_THAT(errors, IsEmpty());
  EXPECT_EQ(files, std::set{GetParam()});
}

/// Of the programs with an event loop, which would end them without a word.
TEST(DescriptorLimit, TooFewFilesForAStartAreTold) {
  for (const std::string name : {"vorlent", "vorlentd", "vorlent-display", "vorlent-web"}) {
    Process process(
        "/bin/sh",
        {"-c", R"(exec 2>&1 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ulimit -n 6; exec "$1")", "sh",
         std::filesystem::path(programsFolder()) / name},
        {"QT_QPA_PLATFORM=offscreen"});
    EXPECT_EQ(process.waitForEnd(), 1) << name << ": " << process.output();
    EXPECT_EQ(process.output(),
              name +
                  ": Only 3 more files can be opened, and the start needs 16. The limit is 6: "
                  "raise it, for example with \"ulimit -n 1024\", and start again\n");
  }
}

TEST_P(ProgramOptions, AnUnknownOneIsToldOnStandardErrorAndEndsWithStatusTwo) {
  EXPECT_EQ(statusWith("--colour"), 2);
  EXPECT_THAT(output, IsEmpty());
  EXPECT_THAT(errors, AllOf(StartsWith(GetParam() + ": "), HasSubstr("--colour")));
  EXPECT_EQ(files, std::set{GetParam()});
}

INSTANTIATE_TEST_SUITE_P(All, ProgramOptions,
                         testing::Values("vorlent", "vorlentd", "vorlent-sim", "vorlent-display",
                                         "vorlent-stick", "vorlent-sound", "vorlent-check",
                                         "vorlent-bridge", "vorlent-plan", "vorlent-web",
                                         "vorlent-keeper", "vorlent-share", "vorlent-mdb",
                                         "vorlent-zip", "vorlent-recorder", "vorlent-replay"),
                         [](const auto& tested) {
                           std::string name = tested.param;
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
}  // namespace vorlent
