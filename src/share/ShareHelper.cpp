#include "share/ShareHelper.h"

#include <unistd.h>

#include <charconv>
#include <chrono>
#include <string>

#include "platform/NetworkFiles.h"
#include "platform/linux/helper/shareMessages.h"
#include "share/ShareClient.h"

namespace vorlent {
namespace {

using namespace shareMessages;
using Outcome = ShareClient::Outcome;

/// A file that is written, and what stands around it.
constexpr std::size_t MostOfAQuestion_bytes = NetworkFiles::MostOfAPlan_bytes + (64 << 10);
constexpr unsigned LongestCall_s = 5;
/// Less is not worth to spare.
constexpr auto Noticeable = std::chrono::milliseconds(100);

template <class T>
T numberIn(const std::string& text) {
  T number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

ShareClient::Account accountOf(const Message& told) {
  if (told.size() != 5 || told[0] != Account) return {};
  return {told[1], told[2], told[3], numberIn<std::uint16_t>(told[4])};
}

Message messageOf(Outcome outcome, std::chrono::steady_clock::duration took) {
  if (outcome == Outcome::Done) return {Done};
  if (outcome == Outcome::TooLarge) return {TooLarge};
  return {outcome == Outcome::Unreachable && took >= Noticeable ? Unreachable : None};
}

Message answerTo(const Message& question, ShareClient& client) {
  const auto path = question.size() > 1 ? networkPathOf(question[1]) : std::nullopt;
  if (!path) return {None};
  const auto began = std::chrono::steady_clock::now();
  const auto answer = [began](Outcome outcome) {
    return messageOf(outcome, std::chrono::steady_clock::now() - began);
  };
  const std::string& word = question[0];
  if (word == Exists) return answer(client.exists(*path));
  if (word == Remove) return answer(client.remove(*path));
  if (question.size() < 3) return {None};
  if (word == Write) return answer(client.write(*path, question[2]));
  if (word != Read) return {None};
  std::string content;
  const Outcome outcome = client.read(*path, numberIn<std::size_t>(question[2]), content);
  return outcome == Outcome::Done ? Message{Content, std::move(content)} : answer(outcome);
}

}  // namespace

void answerShareQuestions(const MessageSocket& socket) {
  using Ended = MessageSocket::Outcome;
  Message message;
  if (socket.receive(message, MostOfAQuestion_bytes) != Ended::Done) return;
  ShareClient client(accountOf(message));
  while (socket.receive(message, MostOfAQuestion_bytes) == Ended::Done) {
    alarm(LongestCall_s);
    const Message answer = answerTo(message, client);
    alarm(0);
    if (socket.send(answer) != Ended::Done) return;
  }
}

}  // namespace vorlent
