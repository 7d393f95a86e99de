#include "platform/qt/ZipHelper.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>

#include "platform/qt/QtFixture.h"
#include "support/TempFolder.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

class ZipHelperTest : public QtFixture {
 protected:
  /// What was told at the end; nothing when nothing came.
  std::optional<std::string> ended() {
    comes([this] { return told.has_value(); });
    return std::exchange(told, std::nullopt);
  }
  ZipFiles::Done done = [this](const std::string& fault) { told = fault; };
  /// A helper that does something else.
  std::string script(const std::string& lines) const {
    folder.write("helper", "#!/bin/sh\n" + lines + "\n");
    fs::permissions(folder / "helper", fs::perms::owner_all);
    return folder / "helper";
  }

  TempFolder folder;
  std::optional<std::string> told;
};

TEST_F(ZipHelperTest, FolderComesBackWithNamesBeyondAscii) {
  ZipHelper zip(programsFolder() + "/vorlent-zip");
  folder.write("in/sound/Geb\xC3\xBCll.wav", "RIFF");
  folder.write("in/Flaps.cfg", "1\r\n");
  zip.pack(folder / "in", folder / "a.zip", done);
  EXPECT_EQ(ended(), "");
  zip.unpack(folder / "a.zip", folder / "out", done);
  EXPECT_EQ(ended(), "");
  EXPECT_EQ(folder.read("out/sound/Geb\xC3\xBCll.wav"), "RIFF");
  EXPECT_EQ(folder.read("out/Flaps.cfg"), "1\r\n");
}

TEST_F(ZipHelperTest, TellsInASentenceWhyItDidNotSucceed) {
  ZipHelper zip(programsFolder() + "/vorlent-zip");
  zip.unpack(folder / "missing.zip", folder / "out", done);
  const auto fault = ended();
  ASSERT_TRUE(fault.has_value());
  EXPECT_NE(fault->find("missing.zip"), std::string::npos) << *fault;
  EXPECT_FALSE(fs::exists(folder / "out"));
}

TEST_F(ZipHelperTest, MissingHelperIsTold) {
  ZipHelper zip(folder / "no-such-program");
  zip.pack(folder.path(), folder / "a.zip", done);
  EXPECT_EQ(ended(), "The helper for zip files is missing");
}

TEST_F(ZipHelperTest, HelperThatCrashesOrIsTooSlowIsTold) {
  ZipHelper crashing(script("kill -SEGV $$"));
  crashing.pack(folder.path(), folder / "a.zip", done);
  EXPECT_EQ(ended(), "The helper for zip files was too slow, or crashed");
  ZipHelper slow(script("exec sleep 60"), 50);
  slow.pack(folder.path(), folder / "a.zip", done);
  EXPECT_EQ(ended(), "The helper for zip files was too slow, or crashed");
}

TEST_F(ZipHelperTest, HelperThatRunsGoesWithTheServerAndTellsNothingMore) {
  auto zip = std::make_unique<ZipHelper>(script("exec sleep 60"));
  zip->pack(folder.path(), folder / "a.zip", done);
  const auto begun = std::chrono::steady_clock::now();
  zip.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(30));
  EXPECT_FALSE(told.has_value());
}

}  // namespace
}  // namespace vorlent
