#include "zip/ZipArchive.h"

#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <stdexcept>

#include "base/files.h"
#include "base/folders.h"
#include "support/TempFolder.h"
#include "zip/entryPath.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// One entry of a zip that a test makes by hand.
struct Made {
  std::string name;
  std::string content = "x";
  std::string link = {};
  unsigned type = AE_IFREG;
};

void makeZip(const std::string& path, const std::vector<Made>& entries) {
  archive* writer = archive_write_new();
  archive_write_set_format_zip(writer);
  ASSERT_EQ(archive_write_open_filename(writer, path.c_str()), ARCHIVE_OK);
  for (const Made& made : entries) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, made.name.c_str());
    archive_entry_set_filetype(entry, made.type);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, static_cast<la_int64_t>(made.content.size()));
    if (!made.link.empty()) archive_entry_set_symlink(entry, made.link.c_str());
    archive_write_header(writer, entry);
    if (made.link.empty()) archive_write_data(writer, made.content.data(), made.content.size());
    archive_entry_free(entry);
  }
  archive_write_free(writer);
}

class Zip : public ::testing::Test {
 protected:
  /// Why it was not unpacked; empty when it was.
  std::string faultOf(const std::vector<Made>& entries, const ZipLimits& limits = {}) {
    fs::remove(folder / "made.zip");
    makeZip(folder / "made.zip", entries);
    return unpacked("made.zip", limits);
  }
  std::string unpacked(const std::string& zip, const ZipLimits& limits = {}) {
    try {
      unpackZip(folder / zip, folder / "out", limits);
      return "";
    } catch (const std::runtime_error& error) {
      EXPECT_FALSE(fs::exists(folder / "out"));
      return error.what();
    }
  }

  TempFolder folder;
};

TEST_F(Zip, AFolderComesBackAsItWas) {
  const std::string wave = std::string(200000, '\xAB') + std::string("\0\n\r", 3);
  folder.write("in/Flaps.cfg", "1,2\r\n");
  folder.write("in/sound/rumble.wav", wave);
  folder.write("in/stick/stick0.cfg", "");
  packFolder(folder / "in", folder / "a.zip");
  unpackZip(folder / "a.zip", folder / "out");
  EXPECT_EQ(folder.read("out/Flaps.cfg"), "1,2\r\n");
  EXPECT_EQ(folder.read("out/sound/rumble.wav"), wave);
  EXPECT_TRUE(fs::exists(folder / "out/stick/stick0.cfg"));
  EXPECT_LT(fs::file_size(folder / "a.zip"), 20000U);
}

TEST_F(Zip, NamesBeyondAsciiComeBack) {
  if (!std::setlocale(LC_CTYPE, "C.UTF-8")) std::setlocale(LC_CTYPE, "");  // as vorlent-zip does
  const std::string in = folder / "Fl\xC3\xBCge";
  makeFolder(in);
  replaceFile(joinedPath(in, "Geb\xC3\xBCll.wav"), "RIFF");
  packFolder(in, folder / "\xC3\x9C.zip");
  const std::string out = folder / "\xC3\x96";
  unpackZip(folder / "\xC3\x9C.zip", out);
  EXPECT_EQ(readFile(joinedPath(out, "Geb\xC3\xBCll.wav")), "RIFF");
}

TEST_F(Zip, AnOldFileIsNotOverwritten) {
  folder.write("in/x", "1");
  folder.write("a.zip", "old");
  EXPECT_THROW(packFolder(folder / "in", folder / "a.zip"), std::runtime_error);
  EXPECT_EQ(folder.read("a.zip"), "old");
}

TEST_F(Zip, APackThatFailsLeavesNoFile) {
  folder.write("in/a", "1");
  folder.write("in/b", "2");
  EXPECT_THROW(packFolder(folder / "in", folder / "a.zip", {1, 100}), std::runtime_error);
  EXPECT_FALSE(fs::exists(folder / "a.zip"));
}

TEST_F(Zip, APlaceOutOfReachIsToldInPlainWords) {
  folder.write("in/Flaps.cfg", "1,2\r\n");
  const std::string zip = folder / std::string(300, 'x');
  try {
    packFolder(folder / "in", zip);
    FAIL() << "packed";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string(error.what()).rfind(zip + " cannot be written: ", 0), 0U) << error.what();
  }
}

TEST_F(Zip, EntriesThatLeadOutsideAreRefusedAndLeaveNothing) {
  for (const std::string name : {"../evil", "a/../../evil", "/tmp/evil", "a//b", "..\\evil",
                                 "C:/evil", "a/./b", "nul\x01"}) {
    EXPECT_THAT(faultOf({{"fine"}, {name}}), HasSubstr("outside")) << name;
    EXPECT_FALSE(fs::exists(folder / "evil"));
  }
}

TEST_F(Zip, LinksInAZipAreRefused) {
  EXPECT_THAT(faultOf({{"link", "", "/etc/passwd", AE_IFLNK}}), HasSubstr("is no file"));
}

TEST_F(Zip, AFileThatIsInItTwiceIsRefused) {
  EXPECT_THAT(faultOf({{"x"}, {"x"}}), HasSubstr("twice"));
}

TEST_F(Zip, TooManyOrTooLargeFilesAreRefused) {
  EXPECT_THAT(faultOf({{"a"}, {"b"}, {"c"}}, {2, 1000}), HasSubstr("too many"));
  EXPECT_THAT(faultOf({{"a", std::string(600, 'x')}, {"b", std::string(600, 'x')}}, {9, 1000}),
              HasSubstr("too large"));
  EXPECT_EQ(faultOf({{"a", std::string(500, 'x')}, {"b", std::string(500, 'x')}}, {2, 1000}), "");
}

TEST_F(Zip, WhatIsNoZipFileIsRefused) {
  folder.write("no.zip", "this is a text, not a zip file");
  EXPECT_NE(unpacked("no.zip"), "");
  folder.write("empty.zip", "");
  EXPECT_NE(unpacked("empty.zip"), "");
  EXPECT_NE(unpacked("missing.zip"), "");
}

TEST_F(Zip, ACutOffZipIsRefused) {
  folder.write("in/x", std::string(100000, 'a') + "b");
  folder.write("in/y", "tail");
  packFolder(folder / "in", folder / "a.zip");
  const std::string whole = folder.read("a.zip");
  folder.write("cut.zip", whole.substr(0, 60));
  EXPECT_NE(unpacked("cut.zip"), "");
}

TEST(EntryPath, IsTheNameWithSlashes) {
  EXPECT_EQ(entryPath("sound\\x.wav"), "sound/x.wav");
  EXPECT_EQ(entryPath("sound/"), "sound");
  EXPECT_EQ(entryPath("1/2/3/4/5/6/7/8"), "1/2/3/4/5/6/7/8");
  EXPECT_EQ(entryPath("1/2/3/4/5/6/7/8/9"), std::nullopt);
  for (const char* none : {"", "/", ".", "..", "a/..", "../a", "/a", "a//b", "c:x", "a\nb"})
    EXPECT_EQ(entryPath(none), std::nullopt) << none;
}

}  // namespace
}  // namespace vorlent
