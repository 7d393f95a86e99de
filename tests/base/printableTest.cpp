#include "base/printable.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

TEST(Printable, LeavesTextAsItIs) {
  for (const char* text :
       {"", "Connection on 5", "a\tb", "\\x1B", " ~", "Flugh\xC3\xB6he", "10 \xE2\x82\xAC",
        "\xC2\xA0", "\xF0\x9F\x9B\xAB", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF"})
    EXPECT_EQ(printable(text), text);
}

TEST(Printable, EscapesControlCharactersByTheirBytes) {
  EXPECT_EQ(printable("\x1B[2J"), "\\x1B[2J");
  EXPECT_EQ(printable("a\x07"
                      "b\x7F\n\r"),
            "a\\x07b\\x7F\\x0A\\x0D");
  EXPECT_EQ(printable(std::string_view("\0\x1F", 2)), "\\x00\\x1F");
  EXPECT_EQ(printable("\xC2\x9B"
                      "2J\xC2\x80"),
            "\\xC2\\x9B2J\\xC2\\x80");
}

TEST(Printable, EscapesWhatTurnsTheDirectionOfWriting) {
  EXPECT_EQ(printable("\xE2\x80\xAE"
                      "exit"),
            "\\xE2\\x80\\xAEexit");
  EXPECT_EQ(printable("\xE2\x80\xAA\xE2\x81\xA6\xE2\x81\xA9"),
            "\\xE2\\x80\\xAA\\xE2\\x81\\xA6\\xE2\\x81\\xA9");
  for (const char* beside : {"\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\xA5", "\xE2\x81\xAA"})
    EXPECT_EQ(printable(beside), beside);
}

TEST(Printable, EscapesEachByteThatIsNotUtf8) {
  EXPECT_EQ(printable("\x9B"
                      "2J"),
            "\\x9B2J");
  EXPECT_EQ(printable("H\xF6he"), "H\\xF6he");
  EXPECT_EQ(printable("\xC3"), "\\xC3");
  EXPECT_EQ(printable("\xE2\x82"), "\\xE2\\x82");
  EXPECT_EQ(printable("\xE2\x82z"), "\\xE2\\x82z");
  EXPECT_EQ(printable("\xBF\xFF\xC0\xC1"), "\\xBF\\xFF\\xC0\\xC1");
}

TEST(Printable, EscapesWhatIsLongerThanItsCharacterSurrogatesAndWhatIsBeyondTheLastCharacter) {
  EXPECT_EQ(printable("\xC0\x9B"), "\\xC0\\x9B");
  EXPECT_EQ(printable("\xE0\x82\x9B"), "\\xE0\\x82\\x9B");
  EXPECT_EQ(printable("\xF0\x80\x82\x9B"), "\\xF0\\x80\\x82\\x9B");
  EXPECT_EQ(printable("\xED\xA0\x80"), "\\xED\\xA0\\x80");
  EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\\xF4\\x90\\x80\\x80");
}

}  // namespace
}  // namespace vorlent
