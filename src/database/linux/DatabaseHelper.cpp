#include "database/DatabaseHelper.h"

#include <sys/resource.h>
#include <unistd.h>

#include "database/databaseAnswer.h"
#include "platform/linux/helper/MessageSocket.h"

namespace vorlent {
namespace {

/// A crash on a damaged file is expected and of no interest to anybody.
void leaveNoCore() {
  constexpr rlimit None{0, 0};
  setrlimit(RLIMIT_CORE, &None);
}

}  // namespace

void answerDatabaseQuestion() {
  leaveNoCore();
  const MessageSocket socket{Descriptor(STDIN_FILENO)};
  Message question;
  if (socket.receive(question, MostOfADatabaseQuestion_bytes) != MessageSocket::Outcome::Done)
    return;
  alarm(LongestDatabaseCall_s);
  socket.send(databaseAnswer(question));
}

}  // namespace vorlent
