#include "database/DatabaseHelper.h"

#include <sys/resource.h>
#include <unistd.h>

#include "database/firstRow.h"
#include "platform/NetworkFiles.h"
#include "platform/linux/helper/databaseMessages.h"

namespace vorlent {
namespace {

using namespace databaseMessages;

constexpr std::size_t MostOfAQuestion_bytes = NetworkFiles::MostOfAPlan_bytes + 64;
constexpr unsigned LongestCall_s = 5;

Message answerTo(const Message& question) {
  try {
    const auto row = firstRow(question.empty() ? std::string() : question[0], "PerfData");
    if (!row) return {Empty};
    Message answer{Row};
    for (const auto& [name, text] : *row) {
      answer.push_back(name);
      answer.push_back(text);
    }
    return answer;
  } catch (const DatabaseFault& fault) {
    return {Fault, fault.what()};
  }
}

/// A crash on a damaged file is expected and of no interest to anybody.
void leaveNoCore() {
  constexpr rlimit None{0, 0};
  setrlimit(RLIMIT_CORE, &None);
}

}  // namespace

void answerDatabaseQuestion(const MessageSocket& socket) {
  leaveNoCore();
  Message question;
  if (socket.receive(question, MostOfAQuestion_bytes) != MessageSocket::Outcome::Done) return;
  alarm(LongestCall_s);
  socket.send(answerTo(question));
}

}  // namespace vorlent
