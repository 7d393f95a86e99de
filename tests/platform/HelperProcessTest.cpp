#include "platform/linux/HelperProcess.h"

#include <fcntl.h>
#include <signal.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "gtest/gtest.h"
#include "support/TempFolder.h"
#include "support/eventually.h"

namespace vorlent {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t Most_bytes = 1000;

/// Helpers made of a shell script; their standard input is the connection, both ways.
class HelperProcessTest : public testing::Test {
 protected:
  HelperProcess helper(const std::string& body, Message greeting = {}) const {
    folder.write("helper", "#!/bin/sh\ncd '" + folder.path() + "'\necho $$ >> ids\n" + body + "\n");
    std::filesystem::permissions(folder / "helper", std::filesystem::perms::owner_all);
    return HelperProcess(folder / "helper", std::move(greeting));
  }
  static HelperAnswer ask(HelperProcess& helper, const Message& question) {
    return helper.ask(question, 10s, Most_bytes);
  }
  bool isGone(const std::string& id) const { return kill(std::stoi(id), 0) < 0 && errno == ESRCH; }

  TempFolder folder;
};

/// Sends back whatever comes.
const std::string Echo = "exec cat >&0";

TEST_F(HelperProcessTest, TellsTheQuestionAndGivesTheAnswer) {
  HelperProcess echo = helper(Echo);
  const Message question{"word", "", std::string("\0\xFF\n", 3)};
  const HelperAnswer answer = ask(echo, question);
  EXPECT_EQ(answer.message, question);
  EXPECT_FALSE(answer.late);
  EXPECT_FALSE(answer.missing);
}

TEST_F(HelperProcessTest, OneHelperAnswersAllQuestions) {
  HelperProcess echo = helper(Echo);
  EXPECT_EQ(ask(echo, {"1"}).message, Message{"1"});
  EXPECT_EQ(ask(echo, {"2"}).message, Message{"2"});
  const std::string ids = folder.read("ids");
  EXPECT_EQ(ids.find('\n'), ids.size() - 1) << ids;
}

TEST_F(HelperProcessTest, IsGreetedBeforeItsFirstQuestion) {
  HelperProcess echo = helper(Echo, {"hello"});
  EXPECT_EQ(ask(echo, {"1"}).message, Message{"hello"});
  EXPECT_EQ(ask(echo, {"2"}).message, Message{"1"});
}

TEST_F(HelperProcessTest, OneThatIsLateIsKilledAndAnotherStartedForTheNextQuestion) {
  HelperProcess hanging = helper("[ -e once ] || { : > once; exec sleep 60; }; " + Echo);
  const HelperAnswer late = hanging.ask({"1"}, 1s, Most_bytes);
  EXPECT_EQ(late.message, std::nullopt);
  EXPECT_TRUE(late.late);
  EXPECT_TRUE(isGone(folder.read("ids")));
  EXPECT_EQ(ask(hanging, {"2"}).message, Message{"2"});
}

TEST_F(HelperProcessTest, OneThatReadsNothingIsLateToo) {
  HelperProcess deaf = helper("exec sleep 60");
  EXPECT_TRUE(deaf.ask({std::string(10'000'000, 'x')}, 1s, Most_bytes).late);
}

TEST_F(HelperProcessTest, OneThatFallsSilentInItsAnswerIsLate) {
  HelperProcess slow = helper("printf '\\100\\0\\0\\0xx' >&0; exec sleep 60");
  EXPECT_TRUE(slow.ask({"1"}, 1s, Most_bytes).late);
}

TEST_F(HelperProcessTest, OneThatCrashesLeavesNoAnswerAndIsNotLate) {
  HelperProcess crashing = helper("[ -e once ] || { : > once; kill -SEGV $$; }; " + Echo);
  const HelperAnswer none = ask(crashing, {"1"});
  EXPECT_EQ(none.message, std::nullopt);
  EXPECT_FALSE(none.late);
  EXPECT_FALSE(none.missing);
  EXPECT_EQ(ask(crashing, {"2"}).message, Message{"2"});
}

TEST_F(HelperProcessTest, OneThatDiedBetweenTwoQuestionsIsReplacedAtOnce) {
  HelperProcess echo = helper(Echo);
  EXPECT_EQ(ask(echo, {"1"}).message, Message{"1"});
  const int id = std::stoi(folder.read("ids"));
  ASSERT_EQ(kill(id, SIGKILL), 0);
  siginfo_t ended{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(id), &ended, WEXITED | WNOWAIT), 0);
  EXPECT_EQ(ask(echo, {"2"}).message, Message{"2"});
}

TEST_F(HelperProcessTest, AnAnswerThatIsTooLongIsNone) {
  HelperProcess echo = helper(Echo);
  EXPECT_EQ(ask(echo, {std::string(996, 'x')}).message, Message{std::string(996, 'x')});
  EXPECT_EQ(ask(echo, {std::string(997, 'x')}).message, std::nullopt);
  EXPECT_EQ(ask(echo, {"1"}).message, Message{"1"});
}

TEST_F(HelperProcessTest, AnAnswerOfPiecesThatDoNotFitIsNone) {
  HelperProcess wrong = helper("printf '\\5\\0\\0\\0\\2\\0\\0\\0x' >&0; " + Echo);
  const HelperAnswer answer = ask(wrong, {"1"});
  EXPECT_EQ(answer.message, std::nullopt);
  EXPECT_FALSE(answer.late);
}

TEST_F(HelperProcessTest, AProgramThatIsNotThereIsMissing) {
  HelperProcess none(folder / "none");
  EXPECT_TRUE(ask(none, {"1"}).missing);
}

TEST_F(HelperProcessTest, NoneOfOurFilesReachesIt) {
  folder.write("ours", "");
  const Descriptor ours(open((folder / "ours").c_str(), O_RDONLY));  // as a library may open it
  ASSERT_TRUE(ours);
  HelperProcess looking = helper("ls -l /proc/$$/fd > open; " + Echo);
  EXPECT_EQ(ask(looking, {"1"}).message, Message{"1"});
  EXPECT_NE(folder.read("open").find("socket:"), std::string::npos);
  EXPECT_EQ(folder.read("open").find(folder / "ours"), std::string::npos) << folder.read("open");
}

TEST_F(HelperProcessTest, EndsWithItsOwner) {
  {
    HelperProcess echo = helper(Echo);
    EXPECT_EQ(ask(echo, {"1"}).message, Message{"1"});
  }
  EXPECT_TRUE(isGone(folder.read("ids")));
}

TEST(UnpackedMessage, IsNothingWhenItsPiecesDoNotFit) {
  using namespace std::string_literals;
  EXPECT_EQ(unpacked(""), Message{});
  EXPECT_EQ(unpacked("\2\0\0\0xy\0\0\0\0"s), (Message{"xy", ""}));
  EXPECT_EQ(unpacked("\2\0\0"s), std::nullopt);
  EXPECT_EQ(unpacked("\3\0\0\0xy"s), std::nullopt);
  EXPECT_EQ(unpacked("\xFF\xFF\xFF\xFFxy"s), std::nullopt);
}

}  // namespace
}  // namespace vorlent
