#include "web/pageAnswers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace vorlent {
namespace {

using testing::HasSubstr;

const std::optional<Access> Loopback = Access(8737, "");
const std::optional<Access> WithToken = Access(8737, "abcdefghijkmnpqrstuv");

std::optional<PageFile> oneFile(const std::string& path) {
  if (path != "/main.js") return std::nullopt;
  return PageFile{"text/javascript", "go();"};
}

PageRequest requestOf(const std::string& path) {
  return {true, path, "", {"127.0.0.1:8737", "", ""}};
}

std::string headerOf(const PageAnswer& answer, const std::string& name) {
  const auto at = std::find_if(answer.headers.begin(), answer.headers.end(),
                               [&name](const auto& header) { return header.first == name; });
  return at == answer.headers.end() ? "" : at->second;
}

TEST(PageAnswers, AFileIsGivenWithItsTypeAndIsNotKept) {
  const PageAnswer answer = answerTo(requestOf("/main.js"), Loopback, oneFile);
  EXPECT_EQ(answer.status, 200);
  EXPECT_EQ(answer.body.type, "text/javascript");
  EXPECT_EQ(answer.body.content, "go();");
  EXPECT_EQ(headerOf(answer, "Cache-Control"), "no-store");
}

TEST(PageAnswers, OtherPathsAndOtherMethodsAreRefused) {
  EXPECT_EQ(answerTo(requestOf("/secret"), Loopback, oneFile).status, 404);
  PageRequest post = requestOf("/main.js");
  post.isGet = false;
  EXPECT_EQ(answerTo(post, Loopback, oneFile).status, 405);
}

TEST(PageAnswers, AForeignNameOfThisMachineIsRefused) {
  PageRequest request = requestOf("/main.js");
  request.caller.host = "evil.example:8737";
  EXPECT_EQ(answerTo(request, Loopback, oneFile).status, 421);
}

TEST(PageAnswers, NobodyIsLetInBeforeTheServerAdmits) {
  EXPECT_EQ(answerTo(requestOf("/main.js"), std::nullopt, oneFile).status, 401);
}

TEST(PageAnswers, TheTokenIsTakenForACookieAndNothingElseIs) {
  PageRequest request = requestOf("/main.js");
  EXPECT_EQ(answerTo(request, WithToken, oneFile).status, 401);
  request.token = "abcdefghijkmnpqrstuw";
  EXPECT_EQ(answerTo(request, WithToken, oneFile).status, 401);
  request.token = "abcdefghijkmnpqrstuv";
  const PageAnswer entry = answerTo(request, WithToken, oneFile);
  EXPECT_EQ(entry.status, 303);
  EXPECT_EQ(headerOf(entry, "Location"), "/");
  EXPECT_EQ(headerOf(entry, "Set-Cookie"),
            "vorlent-web-8737=abcdefghijkmnpqrstuv; Path=/; HttpOnly; SameSite=Strict");
  request.token = "";
  request.caller.cookie = "vorlent-web-8737=abcdefghijkmnpqrstuv";
  EXPECT_EQ(answerTo(request, WithToken, oneFile).status, 200);
}

TEST(PageAnswers, ThePolicyNamesTheHostUnlessItHoldsMoreThanAHost) {
  PageRequest request = requestOf("/main.js");
  EXPECT_THAT(headerOf(answerTo(request, Loopback, oneFile), "Content-Security-Policy"),
              HasSubstr("connect-src 'self' ws://127.0.0.1:8737; base-uri 'none'"));
  request.caller.host = "a; script-src *";
  EXPECT_THAT(headerOf(answerTo(request, Loopback, oneFile), "Content-Security-Policy"),
              HasSubstr("connect-src 'self' ws://; base-uri 'none'"));
}

}  // namespace
}  // namespace vorlent
