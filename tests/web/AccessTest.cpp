#include "web/Access.h"

#include <gtest/gtest.h>

#include <set>

namespace vorlent {
namespace {

using Verdict = Access::Verdict;

TEST(AccessOnLoopback, KnowsThisMachinesNamesAlone) {
  const Access access(8737, "");
  for (const char* host : {"localhost:8737", "127.0.0.1:8737", "[::1]:8737", "LocalHost:8737"})
    EXPECT_EQ(access.maySee({host, "", ""}), Verdict::Granted) << host;
  // A foreign name that was led here, another port, and no name at all.
  for (const char* host : {"evil.example:8737", "localhost", "localhost:80", "localhost:8737x", ""})
    EXPECT_EQ(access.maySee({host, "", ""}), Verdict::UnknownHost) << host;
}

TEST(AccessOnLoopback, OnlyAPageOfOursMayConnect) {
  const Access access(8737, "");
  EXPECT_EQ(access.mayConnect({"localhost:8737", "http://localhost:8737", ""}), Verdict::Granted);
  for (const char* origin : {"", "null", "http://127.0.0.1:8737", "https://localhost:8737",
                             "http://localhost:8738", "http://evil.example"})
    EXPECT_EQ(access.mayConnect({"localhost:8737", origin, ""}), Verdict::OtherOrigin) << origin;
  EXPECT_EQ(access.mayConnect({"evil.example:8737", "http://evil.example:8737", ""}),
            Verdict::UnknownHost);
}

TEST(AccessOnLoopback, HasNoTokenThatCouldBeGuessed) {
  const Access access(8737, "");
  EXPECT_FALSE(access.isToken(""));
}

TEST(AccessOnANetwork, AsksForTheTokenInTheCookie) {
  const Access access(8737, "abcdefghijkmnpqrstuv");
  const auto seen = [&access](const std::string& cookie) {
    return access.maySee({"192.168.0.7:8737", "", cookie});
  };
  EXPECT_EQ(seen("vorlent-web-8737=abcdefghijkmnpqrstuv"), Verdict::Granted);
  EXPECT_EQ(seen("a=1; vorlent-web-8737=abcdefghijkmnpqrstuv; b=2"), Verdict::Granted);
  for (const char* cookie :
       {"", "vorlent-web-8737=", "vorlent-web-8737", "vorlent-web-8737=abcdefghijkmnpqrstu",
        "vorlent-web-8737=abcdefghijkmnpqrstuw", "vorlent-web-8738=abcdefghijkmnpqrstuv",
        "xvorlent-web-8737=abcdefghijkmnpqrstuv", "vorlent-web-87370=abcdefghijkmnpqrstuv",
        ";;; ;"})
    EXPECT_EQ(seen(cookie), Verdict::NoToken) << cookie;
}

TEST(AccessOnANetwork, TheTokenAloneLetsNoPageOfAnotherOriginConnect) {
  const Access access(8737, "abcdefghijkmnpqrstuv");
  const std::string cookie = "vorlent-web-8737=abcdefghijkmnpqrstuv";
  EXPECT_EQ(access.mayConnect({"cockpit:8737", "http://cockpit:8737", cookie}), Verdict::Granted);
  EXPECT_EQ(access.mayConnect({"cockpit:8737", "http://evil.example", cookie}),
            Verdict::OtherOrigin);
  EXPECT_EQ(access.mayConnect({"cockpit:8737", "http://cockpit:8737", ""}), Verdict::NoToken);
}

TEST(AccessOnANetwork, TheCookieIsForThisSiteAndNoScript) {
  EXPECT_EQ(Access(8737, "abc").cookie(),
            "vorlent-web-8737=abc; Path=/; HttpOnly; SameSite=Strict");
}

TEST(RandomToken, HasTwentyCharactersThatNobodyMistakes) {
  std::set<std::string> tokens;
  for (int i = 0; i < 100; ++i) tokens.insert(randomToken());
  EXPECT_EQ(tokens.size(), 100U);
  for (const std::string& token : tokens) {
    EXPECT_EQ(token.size(), 20U);
    EXPECT_EQ(token.find_first_of("01loABCDEFGHIJKLMNOPQRSTUVWXYZ"), std::string::npos);
  }
}

TEST(IsHostText, HasNothingThatEndsAPartOfAHeader) {
  for (const std::string host : {"127.0.0.1:8737", "[::1]:8737", "Cockpit-2_a.lan", ""})
    EXPECT_TRUE(isHostText(host)) << host;
  for (const std::string& host :
       std::vector<std::string>{"a;b", "a b", "a,b", "a\nb", "a'b", "\xE4", {'a', '\0'}})
    EXPECT_FALSE(isHostText(host)) << host;
}

TEST(IsLoopback, IsWhatThisMachineAloneReaches) {
  EXPECT_TRUE(isLoopback("127.0.0.1"));
  EXPECT_TRUE(isLoopback("127.1.2.3"));
  EXPECT_FALSE(isLoopback("0.0.0.0"));
  EXPECT_FALSE(isLoopback("192.168.127.1"));
}

}  // namespace
}  // namespace vorlent
