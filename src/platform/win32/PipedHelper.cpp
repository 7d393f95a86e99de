#include "platform/win32/PipedHelper.h"

#include <windows.h>

#include <array>
#include <future>
#include <memory>
#include <utility>

#include "base/files.h"
#include "platform/ProgramFolder.h"
#include "platform/win32/helper/PipeMessages.h"
#include "platform/win32/wide.h"

namespace vorlent {
namespace {

struct Close {
  void operator()(void* handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, Close>;

struct Pipe {
  Handle read;
  Handle write;
};

Pipe makePipe() {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  if (CreatePipe(&read, &write, &inheritable, 0) == 0) return {};
  return {Handle(read), Handle(write)};
}

/// A job whose processes end with the last handle to it, which goes with this process.
Handle endingJob() {
  Handle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

/// Of the handles that a child may have, it has those that it is given and no others.
class Inherited {
 public:
  explicit Inherited(const std::array<HANDLE, 2>& handles) : handles_(handles) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    bytes_.resize(size);
    InitializeProcThreadAttributeList(list(), 1, 0, &size);
    UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_.data(),
                              sizeof handles_, nullptr, nullptr);
  }
  ~Inherited() { DeleteProcThreadAttributeList(list()); }
  Inherited(const Inherited&) = delete;
  Inherited& operator=(const Inherited&) = delete;

  LPPROC_THREAD_ATTRIBUTE_LIST list() {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(bytes_.data());
  }

 private:
  std::array<HANDLE, 2> handles_;
  std::string bytes_;
};

/// The process, without a window; nothing when it cannot be started.
Handle started(const std::string& program, HANDLE input, HANDLE output) {
  Inherited inherited({input, output});
  STARTUPINFOEXW startup{};
  startup.StartupInfo.cb = sizeof startup;
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdInput = input;
  startup.StartupInfo.hStdOutput = output;
  startup.lpAttributeList = inherited.list();
  const std::wstring path = wide(nativePath(program));
  std::wstring commandLine = L"\"" + path + L"\"";
  PROCESS_INFORMATION process{};
  if (CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                     CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                     &startup.StartupInfo, &process) == 0)
    return nullptr;
  CloseHandle(process.hThread);
  return Handle(process.hProcess);
}

HelperAnswer ask(const std::string& program, const Message& question,
                 std::chrono::milliseconds deadline, std::size_t mostOfAnAnswer_bytes) {
  Pipe to = makePipe();
  Pipe from = makePipe();
  const Handle job = endingJob();
  const Handle process = started(program, to.read.get(), from.write.get());
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
