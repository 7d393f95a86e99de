#include "base/folders.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

TEST(FoldersOnAFullDisk, WhatWasThereStaysWhenACopyFailsInTheMiddle) {
  const TempFolder folder;
  folder.write("from/a.cfg", "new a");
  folder.write("from/large.wav", std::string(10000, 'n'));
  folder.write("from/z.cfg", "new z");
  folder.write("to/a.cfg", "old a");
  folder.write("to/large.wav", "old wave");
  folder.write("to/z.cfg", "old z");
  {
    const FullDisk full(5000);
    EXPECT_EQ(raisedBy([&] { copyFolderOver(folder / "from", folder / "to"); }), 75);
  }
  EXPECT_EQ(folder.read("to/a.cfg"), "new a");
  EXPECT_EQ(folder.read("to/a.cfg.bak"), "old a");
  EXPECT_EQ(folder.read("to/large.wav"), "old wave");
  EXPECT_EQ(folder.read("to/z.cfg"), "old z");
  EXPECT_FALSE(fs::exists(folder / "to/large.wav.new"));
}

TEST(FoldersOnAFullDisk, WithoutRoomForTheBackupNothingIsOverwritten) {
  const TempFolder folder;
  folder.write("from/x.wav", "new");
  folder.write("to/x.wav", std::string(10000, 'o'));
  {
    const FullDisk full(5000);
    EXPECT_EQ(raisedBy([&] { copyFolderOver(folder / "from", folder / "to"); }), 75);
  }
  EXPECT_EQ(folder.read("to/x.wav"), std::string(10000, 'o'));
}

TEST(FoldersWithoutRights, NothingIsMadeInThemAndTheFaultSaysSo) {
  const TempFolder folder;
  fs::create_directory(folder / "locked");
  constexpr auto ReadAndSearch = fs::perms(0555);
  fs::permissions(folder / "locked", ReadAndSearch);
  fs::permissions(folder.path(), fs::perms::all);
  const OrdinaryUser user;
  EXPECT_EQ(raisedBy([&] { makeFolder(folder / "locked/new"); }), 70);
  EXPECT_FALSE(fs::exists(folder / "locked/new"));
}

TEST(FoldersWithLinks, ALinkThatLeadsBackIsAFaultInPlaceOfAnEndlessCopy) {
  const TempFolder folder;
  folder.write("from/x", "1");
  fs::create_directory_symlink(folder / "from", folder / "from/back");
  EXPECT_EQ(raisedBy([&] { copyFolder(folder / "from", folder / "to"); }), 75);
}

}  // namespace
}  // namespace vorlent
