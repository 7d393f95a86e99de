#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "commands/listing/commandListing.h"
#include "support/places.h"

namespace vorlent {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(CommandsDocument, IsWhatTheTablesSay) {
  EXPECT_EQ(readFile(joinedPath(docsFolder(), "commands.md")), commandListing())
      << "build/release/bin/vorlent-commands > docs/commands.md";
}

TEST(CommandsDocument, ListsACommandOfEachRoutineUnderItsCode) {
  EXPECT_THAT(commandListing(),
              AllOf(HasSubstr("\n| 81 | MCP altitude | |\n"), HasSubstr("\n| 169 | MCP LNAV |\n"),
                    HasSubstr("\n| 4 | Start levers all |\n"), HasSubstr("\n| 25 | OBS1 |\n")));
}

TEST(CommandsDocument, MarksWhatALeverCanSet) {
  EXPECT_THAT(commandListing(), AllOf(HasSubstr("\n| 16 | Rudder | lever |\n"),
                                      Not(HasSubstr("| MCP heading | lever |"))));
}

TEST(CommandsDocument, LeavesOutACodeThatOnlyReads) {
  EXPECT_THAT(commandListing(), Not(HasSubstr("Reading around the middle")));
}

}  // namespace
}  // namespace vorlent
