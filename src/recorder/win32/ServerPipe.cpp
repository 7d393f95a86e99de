#include "recorder/ServerPipe.h"

#include <windows.h>

#include <array>

namespace vorlent {
namespace {

/// Later than the server, which has the system's own number.
constexpr DWORD ShutdownOrder = 0x180;

/// Two pipes. One read is on its way when none of its bytes has come yet.
class TwoPipes : public ServerPipe {
 public:
  TwoPipes() { onItsWay_.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr); }
  ~TwoPipes() override {
    DWORD count = 0;
    if (waiting_ && CancelIoEx(input_, &onItsWay_) != 0)
      GetOverlappedResult(input_, &onItsWay_, &count, TRUE);
    CloseHandle(onItsWay_.hEvent);
  }
  TwoPipes(const TwoPipes&) = delete;
  TwoPipes& operator=(const TwoPipes&) = delete;

  std::optional<std::string_view> read(std::optional<std::int64_t> longest_ms) override {
    if (!waiting_ && !ask()) return std::nullopt;
    const DWORD limit_ms = longest_ms ? static_cast<DWORD>(*longest_ms) : INFINITE;
    if (WaitForSingleObject(onItsWay_.hEvent, limit_ms) != WAIT_OBJECT_0) return "";
    waiting_ = false;
    DWORD count = 0;
    if (GetOverlappedResult(input_, &onItsWay_, &count, FALSE) == 0 || count == 0)
      return std::nullopt;
    return std::string_view(buffer_.data(), count);
  }

  void tell(const std::string& sentence) override {
    const std::string line = sentence + "\n";
    DWORD count = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line.data(), static_cast<DWORD>(line.size()), &count,
              nullptr);
  }

 private:
  bool ask() {
    waiting_ = ReadFile(input_, buffer_.data(), static_cast<DWORD>(buffer_.size()), nullptr,
                        &onItsWay_) != 0 ||
               GetLastError() == ERROR_IO_PENDING;
    return waiting_;
  }

  HANDLE input_ = GetStdHandle(STD_INPUT_HANDLE);
  OVERLAPPED onItsWay_{};
  std::array<char, 65536> buffer_;
  bool waiting_ = false;
};

}  // namespace

std::unique_ptr<ServerPipe> pipeFromServer() {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  SetConsoleCtrlHandler(nullptr, TRUE);
  SetProcessShutdownParameters(ShutdownOrder, 0);
  return std::make_unique<TwoPipes>();
}

}  // namespace vorlent
