#include "simulator/TraceFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/RuntimeError.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

class TraceFileTest : public testing::Test {
 protected:
  TraceFile::Note note() {
    return [this](const std::string& text) { notes.push_back(text); };
  }

  TempFolder folder;
  std::vector<std::string> notes;
};

TEST_F(TraceFileTest, EachLineIsInTheFileAtOnce) {
  TraceFile file(folder / "a.csv", note());
  file.write("one\n");
  EXPECT_EQ(folder.read("a.csv"), "one\n");
  file.write("two\n");
  EXPECT_EQ(folder.read("a.csv"), "one\ntwo\n");
  EXPECT_TRUE(file.complete());
}

TEST_F(TraceFileTest, AnOldFileIsReplaced) {
  folder.write("a.csv", "of an earlier flight, and long\n");
  TraceFile(folder / "a.csv", note()).write("new\n");
  EXPECT_EQ(folder.read("a.csv"), "new\n");
}

TEST_F(TraceFileTest, AFileThatCannotBeMadeIsToldWithTheReason) {
  const std::string path = folder / "missing/a.csv";
  try {
    const TraceFile file(path, note());
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(),
              "cannot write the trace " + path + ": No such file or directory");
  }
}

}  // namespace
}  // namespace vorlent
