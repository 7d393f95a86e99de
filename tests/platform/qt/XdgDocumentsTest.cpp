#include "platform/qt/XdgDocuments.h"

#include <filesystem>
#include <optional>

#include "platform/qt/QtFixture.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

class XdgDocumentsTest : public QtFixture {
 protected:
  /// The result of a program in the place of xdg-open.
  std::optional<int> resultOf(const std::string& program) {
    std::optional<int> result;
    XdgDocuments(program).open(folder / "a page.htm", [&](int r) { result = r; });
    comes([&] { return result.has_value(); });
    return result;
  }
  std::string script(const std::string& lines) const {
    folder.write("open", "#!/bin/sh\n" + lines + "\n");
    fs::permissions(folder / "open", fs::perms::owner_all);
    return folder / "open";
  }

  TempFolder folder;
};

TEST_F(XdgDocumentsTest, ProgramGetsThePathAsOneWord) {
  EXPECT_EQ(resultOf(script("echo \"$#:$1\" > \"$(dirname \"$1\")/got\"")), 33);
  EXPECT_EQ(folder.read("got"), "1:" + folder / "a page.htm" + "\n");
}

TEST_F(XdgDocumentsTest, StatusTellsWhatIsMissing) {
  EXPECT_EQ(resultOf(script("exit 1")), 1);
  EXPECT_EQ(resultOf(script("exit 2")), 32);
  EXPECT_EQ(resultOf(script("exit 3")), 3);
  EXPECT_EQ(resultOf(script("exit 4")), 32);
  EXPECT_EQ(resultOf(script("exit 127")), 3);
}

TEST_F(XdgDocumentsTest, WithoutTheProgramAToolIsMissing) {
  EXPECT_EQ(resultOf(folder / "no-such-program"), 3);
}

}  // namespace
}  // namespace vorlent
