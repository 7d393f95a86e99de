// A helper in a process of its own, for the tests of the pipes to it. It gives a question back as
// the answer; one that begins with "hang", "doze" or "crash" has none.

#include <windows.h>

#include <cstdlib>

#include "platform/win32/helper/PipeMessages.h"

int main() {
  using namespace vorlent;
  constexpr std::size_t Most_bytes = 32 << 20;
  const auto question = readMessage(GetStdHandle(STD_INPUT_HANDLE), Most_bytes);
  if (!question || question->empty()) return 1;
  if (question->front() == "hang") Sleep(INFINITE);
  if (question->front() == "doze") Sleep(15'000);
  if (question->front() == "crash") std::_Exit(3);
  return writeMessage(GetStdHandle(STD_OUTPUT_HANDLE), *question) ? 0 : 1;
}
