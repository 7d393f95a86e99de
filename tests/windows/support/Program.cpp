#include "windows/support/Program.h"

#include <windows.h>

#include <array>
#include <stdexcept>
#include <utility>

#include "base/files.h"
#include "platform/win32/wide.h"

namespace vorlent {
namespace {

using Clock = std::chrono::steady_clock;

void require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + " failed: " + std::to_string(GetLastError()));
}

/// A job whose processes end with the last handle to it, which goes with this process.
HANDLE endingJob() {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  require(SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits),
          "Limiting the job");
  return job;
}

/// Its first end can be inherited.
std::pair<HANDLE, HANDLE> pipe(bool toChild) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  require(CreatePipe(&read, &write, &inheritable, 0), "Making a pipe");
  const auto ends = toChild ? std::pair(read, write) : std::pair(write, read);
  SetHandleInformation(ends.second, HANDLE_FLAG_INHERIT, 0);
  return ends;
}

std::wstring commandLine(const std::string& program, const std::vector<std::string>& arguments) {
  std::string line = "\"" + program + "\"";
  for (const std::string& argument : arguments) line += " \"" + argument + "\"";
  return wide(line);
}

}  // namespace

void Program::Close::operator()(void* handle) const { CloseHandle(handle); }

Program::Program(const std::string& path, const std::vector<std::string>& arguments,
                 ProcessGroup group)
    : job_(endingJob()) {
  const auto [input, toIt] = pipe(true);
  const auto [output, fromIt] = pipe(false);
  input_.reset(toIt);
  from_.reset(fromIt);
  const Handle itsInput(input);
  const Handle itsOutput(output);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  startup.hStdError = output;
  PROCESS_INFORMATION started{};
  std::wstring line = commandLine(nativePath(path) + ".exe", arguments);
  const DWORD groupFlag = group == ProcessGroup::Own ? CREATE_NEW_PROCESS_GROUP : 0;
  require(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED | groupFlag,
                         nullptr, nullptr, &startup, &started),
          path);
  process_.reset(started.hProcess);
  id_ = started.dwProcessId;
  const Handle thread(started.hThread);
  require(AssignProcessToJobObject(job_.get(), process_.get()), "Joining the job");
  ResumeThread(thread.get());
}

Program::~Program() {
  kill();
  WaitForSingleObject(process_.get(), INFINITE);
}

void Program::type(const std::string& line) const {
  const std::string text = line + "\r\n";
  DWORD written = 0;
  require(WriteFile(input_.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr),
          "Typing");
}

void Program::kill() const { TerminateProcess(process_.get(), 9); }

bool Program::hasEnded() const { return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0; }

/// A pipe cannot be waited for with a limit.
bool Program::readMore(Clock::time_point until) {
  for (;;) {
    const bool ended = hasEnded();
    DWORD waiting = 0;
    if (PeekNamedPipe(from_.get(), nullptr, 0, nullptr, &waiting, nullptr) == 0) return false;
    if (waiting > 0) {
      std::array<char, 4096> buffer;
      DWORD count = 0;
      if (ReadFile(from_.get(), buffer.data(), buffer.size(), &count, nullptr) == 0) return false;
      output_.append(buffer.data(), count);
      return true;
    }
    if (ended || Clock::now() > until) return false;
    WaitForSingleObject(process_.get(), 5);
  }
}

std::optional<std::string> Program::waitForLine(const std::string& part,
                                                std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  for (;;) {
    for (auto end = output_.find('\n', searched_); end != std::string::npos;
         end = output_.find('\n', searched_)) {
      std::string line = output_.substr(searched_, end - searched_);
      searched_ = end + 1;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.find(part) != std::string::npos) return line;
    }
    if (!readMore(until)) return std::nullopt;
  }
}

std::optional<int> Program::waitForEnd(std::chrono::milliseconds limit) {
  const auto until = Clock::now() + limit;
  while (readMore(until)) {
  }
  if (!hasEnded()) return std::nullopt;
  DWORD status = 0;
  GetExitCodeProcess(process_.get(), &status);
  return static_cast<int>(status);
}

}  // namespace vorlent
