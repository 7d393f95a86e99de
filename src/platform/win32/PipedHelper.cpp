#include "platform/win32/PipedHelper.h"

#include <windows.h>

#include <future>
#include <utility>

#include "base/files.h"
#include "platform/ProgramFolder.h"
#include "platform/win32/HelperStart.h"
#include "platform/win32/helper/PipeMessages.h"

namespace vorlent {
namespace {

/// A job whose processes end with the last handle to it, which goes with this process.
Handle endingJob() {
  Handle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

HelperAnswer ask(const std::string& program, const Message& question,
                 std::chrono::milliseconds deadline, std::size_t mostOfAnAnswer_bytes) {
  Pipe to = makePipe();
  Pipe from = makePipe();
  const Handle job = endingJob();
  const Handle process = startHelper(program, {}, to.read.get(), from.write.get());
  if (!process) return {{}, false, true};
  AssignProcessToJobObject(job.get(), process.get());
  to.read.reset();
  from.write.reset();
  auto answer = std::async(std::launch::async, [&]() -> std::optional<Message> {
    if (!writeMessage(to.write.get(), question)) return std::nullopt;
    return readMessage(from.read.get(), mostOfAnAnswer_bytes);
  });
  const bool late = answer.wait_for(deadline) != std::future_status::ready;
  // Its end lets go of whoever waits at the pipes.
  TerminateProcess(process.get(), 1);
  auto message = answer.get();
  if (late) return {{}, true, false};
  return {std::move(message), false, false};
}

}  // namespace

std::string helperProgram(const std::string& name) {
  return joinedPath(executableFolder(), name + ".exe");
}

AskHelper askOnce(const std::string& program) {
  return [program](const Message& question, std::chrono::milliseconds deadline,
                   std::size_t mostOfAnAnswer_bytes) {
    return ask(program, question, deadline, mostOfAnAnswer_bytes);
  };
}

}  // namespace vorlent
