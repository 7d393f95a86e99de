#include "platform/ProgramStarter.h"

#include <windows.h>

#include <array>
#include <filesystem>
#include <utility>

namespace vorlent {
namespace {

/// Owns a handle.
class Handle {
 public:
  explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() {
    if (handle_ != nullptr) CloseHandle(handle_);
  }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

BOOL CALLBACK closeWindowOf(HWND window, LPARAM process) {
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == static_cast<DWORD>(process)) PostMessageA(window, WM_CLOSE, 0, 0);
  return TRUE;
}

class Child : public StartedProgram {
 public:
  Child(Handle process, DWORD id, Handle output)
      : process_(std::move(process)), id_(id), output_(std::move(output)) {}
  ~Child() override {
    if (!ended()) TerminateProcess(process_.get(), 1);
  }

  std::string output() override {
    std::string text;
    DWORD waiting = 0;
    while (PeekNamedPipe(output_.get(), nullptr, 0, nullptr, &waiting, nullptr) && waiting > 0) {
      std::array<char, 4096> buffer;
      DWORD count = 0;
      if (!ReadFile(output_.get(), buffer.data(), buffer.size(), &count, nullptr)) break;
      text.append(buffer.data(), count);
    }
    return text;
  }

  std::optional<int> ended() override {
    DWORD status = 0;
    if (WaitForSingleObject(process_.get(), 0) != WAIT_OBJECT_0) return std::nullopt;
    GetExitCodeProcess(process_.get(), &status);
    constexpr DWORD LastOwnStatus = 127;
    return status > LastOwnStatus ? 128 : static_cast<int>(status);
  }

  /// A program with a window ends as if its close box was clicked, one in this console as by
  /// Ctrl-C.
  void end() override {
    EnumWindows(closeWindowOf, static_cast<LPARAM>(id_));
    GenerateConsoleCtrlEvent(CTRL_BREAK_EVENT, id_);
  }

 private:
  Handle process_;
  DWORD id_;
  Handle output_;
};

class Starter : public ProgramStarter {
 public:
  std::unique_ptr<StartedProgram> start(const std::string& path) override {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE from = nullptr, to = nullptr;
    if (!CreatePipe(&from, &to, &inherited, 0)) return nullptr;
    Handle output(from);
    const Handle input(to);
    SetHandleInformation(from, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = to;
    startup.hStdError = to;
    PROCESS_INFORMATION process{};
    const auto native = std::filesystem::path(std::u8string(path.begin(), path.end())).wstring();
    std::wstring commandLine = L"\"" + native + L"\"";
    if (!CreateProcessW(native.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                        CREATE_NEW_PROCESS_GROUP, nullptr, nullptr, &startup, &process))
      return nullptr;
    const Handle thread(process.hThread);
    return std::make_unique<Child>(Handle(process.hProcess), process.dwProcessId,
                                   std::move(output));
  }
  std::string fileName(const std::string& program) const override { return program + ".exe"; }
};

}  // namespace

std::unique_ptr<ProgramStarter> openProgramStarter() { return std::make_unique<Starter>(); }

}  // namespace vorlent
