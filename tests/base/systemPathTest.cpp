#include "base/systemPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/files.h"
#include "base/folders.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

using testing::ElementsAre;

TEST(SystemPath, IsTheNameInUtf8) {
  EXPECT_TRUE(systemPath("Fl\xC3\xBCge").u8string() == u8"Fl\u00FCge");
  EXPECT_EQ(nameOf(systemPath("\xC3\xBC \xE2\x82\xAC \xF0\x9F\x9B\xAB")),
            "\xC3\xBC \xE2\x82\xAC \xF0\x9F\x9B\xAB");
  EXPECT_EQ(nameOf(systemPath("")), "");
}

TEST(SystemPath, FilesAndFoldersHaveNamesBeyondAscii) {
  const TempFolder temp;
  const std::string folder = joinedPath(temp.path(), "Fl\xC3\xBCge \xE2\x82\xAC");
  const std::string file = joinedPath(folder, "Geb\xC3\xBCll.cfg");
  makeFolder(folder);
  replaceFile(file, "old");
  replaceFile(file, "new");
  EXPECT_EQ(readFile(file), "new");
  EXPECT_TRUE(std::filesystem::exists(systemPath(temp.path()) / u8"Fl\u00FCge \u20AC" /
                                      u8"Geb\u00FCll.cfg"));
  EXPECT_THAT(subFolders(temp.path()), ElementsAre("Fl\xC3\xBCge \xE2\x82\xAC"));
  EXPECT_THAT(filesIn(folder), ElementsAre("Geb\xC3\xBCll.cfg"));
  appendToFile(file, "er");
  moveFolder(folder, joinedPath(temp.path(), "\xC3\x9C"));
  EXPECT_EQ(readFile(joinedPath(temp.path(), "\xC3\x9C\\Geb\xC3\xBCll.cfg")), "newer");
  deleteFolder(joinedPath(temp.path(), "\xC3\x9C"));
  EXPECT_THAT(subFolders(temp.path()), ElementsAre());
}

}  // namespace
}  // namespace vorlent
