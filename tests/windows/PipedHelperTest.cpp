#include "platform/win32/PipedHelper.h"

#include <gtest/gtest.h>

#include <chrono>

#include "support/places.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t Most_bytes = 32 << 20;

AskHelper helperSide() { return askOnce(programsFolder() + "/HelperSide.exe"); }

TEST(PipedHelper, AnswersWithAnyBytesAndMoreThanAPipeHolds) {
  const Message question{std::string("\0\r\n\x1a", 4), std::string(16 << 20, 'x'), ""};
  EXPECT_EQ(helperSide()(question, 20s, Most_bytes).message, question);
}

TEST(PipedHelper, EachQuestionHasAHelperOfItsOwn) {
  const AskHelper ask = helperSide();
  EXPECT_EQ(ask({"crash"}, 20s, Most_bytes).message, std::nullopt);
  EXPECT_EQ(ask({"one"}, 20s, Most_bytes).message, Message{"one"});
  EXPECT_EQ(ask({"two"}, 20s, Most_bytes).message, Message{"two"});
}

TEST(PipedHelper, OneThatCrashesIsNotLate) {
  const HelperAnswer answer = helperSide()({"crash"}, 20s, Most_bytes);
  EXPECT_EQ(answer.message, std::nullopt);
  EXPECT_FALSE(answer.late);
  EXPECT_FALSE(answer.missing);
}

TEST(PipedHelper, OneThatHangsCostsItsDeadline) {
  const auto start = std::chrono::steady_clock::now();
  const HelperAnswer answer = helperSide()({"hang"}, 1s, Most_bytes);
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_TRUE(answer.late);
  EXPECT_EQ(answer.message, std::nullopt);
  EXPECT_GE(took, 1s);
  EXPECT_LT(took, 10s);
}

TEST(PipedHelper, AnAnswerBeyondTheLimitIsNone) {
  EXPECT_EQ(helperSide()({std::string(100, 'x')}, 20s, 50).message, std::nullopt);
}

TEST(PipedHelper, OneThatIsNotThereIsMissing) {
  EXPECT_TRUE(askOnce(programsFolder() + "/no-helper.exe")({"one"}, 20s, Most_bytes).missing);
}

TEST(PipedHelper, AHelperStandsBesideTheProgramThatAsks) {
  const std::string program = helperProgram("HelperSide");
  EXPECT_TRUE(program.ends_with("HelperSide.exe")) << program;
  EXPECT_EQ(askOnce(program)({"one"}, 20s, Most_bytes).message, Message{"one"});
}

}  // namespace
}  // namespace vorlent
