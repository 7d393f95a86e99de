#include "base/folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::EndsWith;

class Folders : public ::testing::Test {
 protected:
  TempFolder folder;
};

TEST_F(Folders, NamesThatAreNoneOnOneOfTheSystemsAreRefused) {
  for (const std::string name : {"737-700", "a b", "M\xC3\xBCnchen", "x.y", ".hidden"})
    EXPECT_TRUE(isFolderName(name)) << name;
  for (const std::string name : {"", ".", "..", "a/b", "a\\b", "a:b", "a*", "a?", "\"", "<", ">",
                                 "|", "a\nb", "a\tb", "end.", "end ", "\x7f"})
    EXPECT_FALSE(isFolderName(name)) << name;
  EXPECT_EQ(raisedBy([&] { subFolder(folder.path(), ".."); }), 52);
}

TEST_F(Folders, AFaultEndsWithThePathThatItIsAbout) {
  try {
    makeFolder(folder / "missing/new");
    FAIL();
  } catch (const RuntimeError& fault) {
    EXPECT_EQ(fault.number(), 76);
    EXPECT_EQ(fault.description(), "Path not found\n" + nativePath(folder / "missing/new"));
  }
}

TEST_F(Folders, AFileOrAFolderInThePlaceOfANewOneIsAFault) {
  folder.write("taken", "a file");
  fs::create_directory(folder / "there");
  EXPECT_EQ(raisedBy([&] { makeFolder(folder / "taken"); }), 75);
  EXPECT_EQ(raisedBy([&] { makeFolder(folder / "there"); }), 75);
  EXPECT_EQ(folder.read("taken"), "a file");
}

TEST_F(Folders, FilesAreCopiedAndFoldersBesideThemAreNot) {
  folder.write("from/B.wav", std::string("\0\xff", 2));
  folder.write("from/a.wav", "1");
  folder.write("from/sub/c.wav", "2");
  makeFolder(folder / "to");
  copyFiles(folder / "from", folder / "to");
  EXPECT_THAT(filesIn(folder / "to"), ElementsAre("a.wav", "B.wav"));
  EXPECT_EQ(folder.read("to/B.wav"), std::string("\0\xff", 2));
  EXPECT_FALSE(fs::exists(folder / "to/sub"));
}

TEST_F(Folders, NoFilesAreCopiedOfAFolderThatIsNotThere) {
  makeFolder(folder / "to");
  copyFiles(folder / "missing", folder / "to");
  EXPECT_THAT(filesIn(folder / "to"), ElementsAre());
}

TEST_F(Folders, AFolderIsCopiedWithItsSubFolders) {
  folder.write("from/sub/deep/x", "1");
  fs::create_directories(folder / "from/empty");
  copyFolder(folder / "from", folder / "to");
  EXPECT_EQ(folder.read("to/sub/deep/x"), "1");
  EXPECT_TRUE(fs::is_directory(folder / "to/empty"));
}

TEST_F(Folders, NothingIsCopiedOverWhatIsThere) {
  folder.write("from/x", "new");
  folder.write("to/x", "old");
  EXPECT_EQ(raisedBy([&] { copyFolder(folder / "from", folder / "to"); }), 75);
  EXPECT_EQ(folder.read("to/x"), "old");
}

TEST_F(Folders, WhatIsOverwrittenIsKeptBesideOnce) {
  folder.write("from/x", "new");
  folder.write("from/same", "same");
  folder.write("to/x", "old");
  folder.write("to/same", "same");
  folder.write("to/own", "own");
  copyFolderOver(folder / "from", folder / "to");
  EXPECT_EQ(folder.read("to/x"), "new");
  EXPECT_EQ(folder.read("to/x.bak"), "old");
  EXPECT_EQ(folder.read("to/own"), "own");
  EXPECT_FALSE(fs::exists(folder / "to/same.bak"));
  folder.write("from/x", "newer");
  copyFolderOver(folder / "from", folder / "to");
  EXPECT_EQ(folder.read("to/x"), "newer");
  EXPECT_EQ(folder.read("to/x.bak"), "old");
}

TEST_F(Folders, AFolderOverItselfStaysAsItIs) {
  folder.write("from/x", "1");
  copyFolderOver(folder / "from", folder / "from");
  EXPECT_THAT(filesIn(folder / "from"), ElementsAre("x"));
  EXPECT_EQ(folder.read("from/x"), "1");
}

TEST_F(Folders, AMovedFolderIsThereAsAWholeAndNotOverAnother) {
  folder.write("from/x", "1");
  folder.write("taken/y", "2");
  EXPECT_EQ(raisedBy([&] { moveFolder(folder / "from", folder / "taken"); }), 75);
  moveFolder(folder / "from", folder / "to");
  EXPECT_EQ(folder.read("to/x"), "1");
  EXPECT_FALSE(fs::exists(folder / "from"));
  deleteFolder(folder / "to");
  EXPECT_FALSE(fs::exists(folder / "to"));
  EXPECT_EQ(raisedBy([&] { deleteFolder(folder / "to"); }), 0);
}

TEST_F(Folders, OneFolderIsTheSameByAnyPath) {
  makeFolder(folder / "a");
  EXPECT_TRUE(sameFolder(folder / "a", folder / "A/../a/"));
  EXPECT_FALSE(sameFolder(folder / "a", folder.path()));
  EXPECT_FALSE(sameFolder(folder / "missing", folder / "missing"));
}

}  // namespace
}  // namespace vorlent
