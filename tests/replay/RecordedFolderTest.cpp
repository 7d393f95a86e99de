#include "replay/RecordedFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(RecordedFolder, HasTheFilesAndGoesWithTheObject) {
  std::string path;
  {
    const RecordedFolder folder(
        {{"Vorlent.ini", 4, true, "[Vo]"}, {"Cockpits/737-700/sound/bump.wav", 900000, false, ""}});
    path = folder.path();
    EXPECT_EQ(readFile(path + "/Vorlent.ini"), "[Vo]");
    EXPECT_EQ(readFile(path + "/Cockpits/737-700/sound/bump.wav"), "");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(RecordedFolder, AFileOutsideIsRefused) {
  for (const std::string path : {"../evil", "/tmp/evil", "a/../../evil", "", "..", "."})
    EXPECT_NE(raisedBy([&] { RecordedFolder folder({{path, 1, true, "x"}}); }), 0) << path;
}

}  // namespace
}  // namespace vorlent
