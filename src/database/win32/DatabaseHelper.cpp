#include "database/DatabaseHelper.h"

#include <windows.h>

#include <chrono>
#include <thread>

#include "database/databaseAnswer.h"
#include "platform/win32/helper/PipeMessages.h"

namespace vorlent {
namespace {

/// A crash on a damaged file is expected and of no interest to anybody.
void leaveNoBox() { SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX); }

void endAfterTheLongestCall() {
  std::thread([] {
    std::this_thread::sleep_for(std::chrono::seconds(LongestDatabaseCall_s));
    TerminateProcess(GetCurrentProcess(), 1);
  }).detach();
}

}  // namespace

void answerDatabaseQuestion() {
  leaveNoBox();
  const auto question = readMessage(GetStdHandle(STD_INPUT_HANDLE), MostOfADatabaseQuestion_bytes);
  if (!question) return;
  endAfterTheLongestCall();
  writeMessage(GetStdHandle(STD_OUTPUT_HANDLE), databaseAnswer(*question));
}

}  // namespace vorlent
