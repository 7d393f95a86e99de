#include "windows/SimulatorProcess.h"

#include <windows.h>

#include <stdexcept>

#include "support/places.h"

namespace vorlent {
namespace {

void require(bool done, const std::string& what) {
  if (!done) throw std::runtime_error(what + " failed: " + std::to_string(GetLastError()));
}

/// A job whose processes end with the last handle to it, which goes with this process.
HANDLE endingJob() {
  const HANDLE job = CreateJobObjectA(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  require(SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits),
          "Limiting the job");
  return job;
}

}  // namespace

void SimulatorProcess::Close::operator()(void* handle) const { CloseHandle(handle); }

SimulatorProcess::SimulatorProcess(const std::string& arguments, const std::string& program)
    : job_(endingJob()), input_(inheritablePipe()), output_(inheritablePipe()) {
  start("\"" + programsFolder() + "/" + program + ".exe\" " + arguments);
  greeting_ = firstLine();
}

SimulatorProcess::~SimulatorProcess() { end(); }

SimulatorProcess::Pipe SimulatorProcess::inheritablePipe() {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  require(CreatePipe(&read, &write, &inheritable, 0), "Making a pipe");
  return {Handle(read), Handle(write)};
}

void SimulatorProcess::start(const std::string& commandLine) {
  SetHandleInformation(input_.write.get(), HANDLE_FLAG_INHERIT, 0);
  SetHandleInformation(output_.read.get(), HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input_.read.get();
  startup.hStdOutput = output_.write.get();
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started{};
  std::string writable = commandLine;
  require(CreateProcessA(nullptr, writable.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED,
                         nullptr, nullptr, &startup, &started),
          commandLine);
  process_.reset(started.hProcess);
  const Handle thread(started.hThread);
  require(AssignProcessToJobObject(job_.get(), process_.get()), "Joining the job");
  ResumeThread(thread.get());
  // The child's ends are its own from here: when it goes, the pipe tells.
  input_.read.reset();
  output_.write.reset();
}

std::string SimulatorProcess::firstLine() const {
  std::string line;
  char character = 0;
  DWORD count = 0;
  while (ReadFile(output_.read.get(), &character, 1, &count, nullptr) && count == 1 &&
         character != '\r' && character != '\n')
    line += character;
  return line;
}

void SimulatorProcess::goOn() {
  DWORD written = 0;
  require(WriteFile(input_.write.get(), "\n", 1, &written, nullptr), "Going on");
}

void SimulatorProcess::end() {
  TerminateProcess(process_.get(), 0);
  WaitForSingleObject(process_.get(), INFINITE);
}

}  // namespace vorlent
