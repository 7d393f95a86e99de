#include <gtest/gtest.h>

#include <filesystem>

#include "support/TempFolder.h"
#include "zip/ZipArchive.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

TEST(ZipOfAFolder, LeavesLinksOut) {
  const TempFolder folder;
  folder.write("secret", "secret");
  folder.write("in/x", "1");
  fs::create_symlink(folder / "secret", folder / "in/link");
  packFolder(folder / "in", folder / "a.zip");
  unpackZip(folder / "a.zip", folder / "out");
  EXPECT_TRUE(fs::exists(folder / "out/x"));
  EXPECT_FALSE(fs::exists(folder / "out/link"));
}

}  // namespace
}  // namespace vorlent
