#include "base/utf16.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

using namespace std::string_literals;

struct Pair {
  const char* name;
  std::string units;
  std::string text;
};

class Utf16 : public ::testing::TestWithParam<Pair> {};

TEST_P(Utf16, BecomesUtf8AndComesBack) {
  EXPECT_EQ(utf8OfUtf16(GetParam().units), GetParam().text);
  EXPECT_EQ(utf16OfUtf8(GetParam().text), GetParam().units);
}

INSTANTIATE_TEST_SUITE_P(
    All, Utf16,
    ::testing::Values(Pair{"OneByte", "A\0\0\0"s, "A\0"s},             // U+0041, U+0000
                      Pair{"TwoBytes", "\xFC\0"s, "\xC3\xBC"},         // U+00FC
                      Pair{"ThreeBytes", "\xAC\x20", "\xE2\x82\xAC"},  // U+20AC
                      Pair{"LastUnit", "\xFF\xFF", "\xEF\xBF\xBF"},    // U+FFFF
                      // U+1F6EB, U+10FFFF
                      Pair{"Surrogates", "\x3D\xD8\xEB\xDE\xFF\xDB\xFF\xDF",
                           "\xF0\x9F\x9B\xAB\xF4\x8F\xBF\xBF"},
                      Pair{"LoneHigh", "\x3D\xD8\x41\0"s, "\xED\xA0\xBD\x41"},
                      Pair{"LoneLowThenHigh", "\xEB\xDE\x3D\xD8", "\xED\xBB\xAB\xED\xA0\xBD"}),
    [](const auto& instance) { return instance.param.name; });

TEST(Utf16OfBytes, TakesWhatIsNoUtf8AsLatin1) {
  EXPECT_EQ(utf16OfUtf8("M\xFCn"), "M\0\xFC\0n\0"s);
  EXPECT_EQ(utf16OfUtf8("\xE2\x82"), "\xE2\0\x82\0"s);                      // cut short
  EXPECT_EQ(utf16OfUtf8("\xC1\x81"), "\xC1\0\x81\0"s);                      // longer than need be
  EXPECT_EQ(utf16OfUtf8("\xF4\x90\x80\x80"), "\xF4\0\x90\0\x80\0\x80\0"s);  // above U+10FFFF
}

TEST(Utf8OfUtf16, LeavesALastOddByteOut) { EXPECT_EQ(utf8OfUtf16("A\0B"s), "A"); }

}  // namespace
}  // namespace vorlent
