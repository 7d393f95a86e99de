#include "base/clsIniRw.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/OrdinaryUser.h"
#include "support/TempFolder.h"
#include "support/raisedBy.h"

namespace vorlent {
namespace {

TEST(ClsIniRwOfAFileThatCannotBeRead, ReadsEmptyTextsAndRefusesToReplaceWhatItDoesNotKnow) {
  const TempFolder folder;
  const std::string file = folder / "Vorlent.ini";
  const std::string old = "[Vorlent]\nPort=1\n";
  folder.write("Vorlent.ini", old);
  chmod(file.c_str(), 0222);
  chmod(folder.path().c_str(), 0777);
  const clsIniRw ini{};
  std::string text = "not read";
  int raised = 0;
  {
    const OrdinaryUser user;
    text = ini.ReadKey("Vorlent", "Port", file).asText();
    raised = raisedBy([&] { ini.WriteKey("Vorlent", "Port", "2", file); });
  }
  chmod(file.c_str(), 0666);
  EXPECT_EQ(text, "");
  EXPECT_EQ(raised, 70);
  EXPECT_EQ(folder.read("Vorlent.ini"), old);
}

}  // namespace
}  // namespace vorlent
