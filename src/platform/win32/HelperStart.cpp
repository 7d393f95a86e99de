#include "platform/win32/HelperStart.h"

#include <windows.h>

#include <array>

#include "base/files.h"
#include "platform/win32/wide.h"

namespace vorlent {
namespace {

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

/// Backslashes at the end of an argument would take its closing quote for a letter.
std::wstring quoted(const std::string& argument) {
  const std::size_t end = argument.find_last_not_of('\\') + 1;
  const std::string doubled(argument.size() - end, '\\');
  return wide("\"" + argument + doubled + "\"");
}

}  // namespace

void CloseHandleOnce::operator()(void* handle) const { CloseHandle(handle); }

Pipe makePipe() {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE read = nullptr;
  HANDLE write = nullptr;
  if (CreatePipe(&read, &write, &inheritable, 0) == 0) return {};
  return {Handle(read), Handle(write)};
}

Handle startHelper(const std::string& program, const std::vector<std::string>& arguments,
                   void* input, void* output) {
  Inherited inherited({input, output});
  STARTUPINFOEXW startup{};
  startup.StartupInfo.cb = sizeof startup;
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdInput = input;
  startup.StartupInfo.hStdOutput = output;
  startup.lpAttributeList = inherited.list();
  const std::string path = nativePath(program);
  std::wstring commandLine = quoted(path);
  for (const std::string& argument : arguments) commandLine += L" " + quoted(argument);
  PROCESS_INFORMATION process{};
  if (CreateProcessW(wide(path).c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                     CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                     &startup.StartupInfo, &process) == 0)
    return nullptr;
  CloseHandle(process.hThread);
  return Handle(process.hProcess);
}

}  // namespace vorlent
