#include <gtest/gtest.h>

#include <filesystem>

#include "base/backups.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

TEST(Backups, AreNotWrittenThroughLinks) {
  const TempFolder folder;
  folder.write("mine", "precious");
  for (const char* number : {"0", "1", "2", "3"})
    std::filesystem::create_symlink(folder / "mine", folder / "Vorlent.ini.bak" + number);
  for (const char* content : {"one", "two", "three"})
    replaceKeepingBackups(folder / "Vorlent.ini", content);
  EXPECT_EQ(folder.read("mine"), "precious");
  EXPECT_EQ(folder.read("Vorlent.ini"), "three");
  EXPECT_EQ(folder.read("Vorlent.ini.bak1"), "two");
}

}  // namespace
}  // namespace vorlent
