#include "platform/win32/RecorderProcess.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>

#include "platform/win32/wide.h"

namespace vorlent {
namespace {

/// Of the pipe: a second of a flight and more. So much is on its way at a time.
constexpr DWORD Buffer_bytes = 1 << 20;

std::wstring newPipeName() {
  static int count = 0;
  return wide(R"(\\.\pipe\vorlent-recorder-)" + std::to_string(GetCurrentProcessId()) + "-" +
              std::to_string(++count));
}

/// The end to read, which a child may have and can wait for with a limit.
Handle openToRead(const std::wstring& name) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  const HANDLE end = CreateFileW(name.c_str(), GENERIC_READ, 0, &inheritable, OPEN_EXISTING,
                                 FILE_FLAG_OVERLAPPED, nullptr);
  return Handle(end == INVALID_HANDLE_VALUE ? nullptr : end);
}

}  // namespace

/// The end of a pipe to which one write at a time is on its way.
class RecorderProcess::Events {
 public:
  Events() {
    const std::wstring name = newPipeName();
    const HANDLE pipe = CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_OUTBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_REJECT_REMOTE_CLIENTS, 1, Buffer_bytes, 0, 0, nullptr);
    if (pipe == INVALID_HANDLE_VALUE) return;
    pipe_.reset(pipe);
    childs = openToRead(name);
    onItsWay_.hEvent = done_.get();
  }
  ~Events() {
    DWORD count = 0;
    if (busy_ && CancelIoEx(pipe_.get(), &onItsWay_) != 0)
      GetOverlappedResult(pipe_.get(), &onItsWay_, &count, TRUE);
  }
  Events(const Events&) = delete;
  Events& operator=(const Events&) = delete;

  /// Whether the write before is through within so long.
  bool isFree(int longest_ms) {
    if (!busy_) return true;
    if (WaitForSingleObject(done_.get(), static_cast<DWORD>(longest_ms)) != WAIT_OBJECT_0)
      return false;
    DWORD count = 0;
    broken_ = GetOverlappedResult(pipe_.get(), &onItsWay_, &count, FALSE) == 0;
    busy_ = false;
    return true;
  }

  /// How many it takes; asked while it is free.
  std::size_t write(std::string_view bytes) {
    if (broken_) return 0;
    bytes_.assign(bytes.substr(0, Buffer_bytes));
    busy_ = true;
    if (WriteFile(pipe_.get(), bytes_.data(), static_cast<DWORD>(bytes_.size()), nullptr,
                  &onItsWay_) != 0 ||
        GetLastError() == ERROR_IO_PENDING)
      return bytes_.size();
    busy_ = false;
    broken_ = true;
    return 0;
  }

  /// Nobody reads any more.
  bool isBroken() const { return broken_; }

  Handle childs;  ///< to be let go of once the child has it

 private:
  Handle pipe_;
  Handle done_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  OVERLAPPED onItsWay_{};
  std::string bytes_;
  bool busy_ = false;
  bool broken_ = false;
};

RecorderProcess::RecorderProcess(const std::string& program, const std::string& folder, int size_MB)
    : events_(std::make_unique<Events>()) {
  Pipe words = makePipe();
  if (!events_->childs || !words.read) {
    lose("there is no connection to its helper");
    return;
  }
  process_ = startHelper(program, {folder, std::to_string(size_MB)}, events_->childs.get(),
                         words.write.get());
  events_->childs.reset();
  words_ = std::move(words.read);
  if (!process_) lose("its helper " + program + " cannot be started");
}

RecorderProcess::~RecorderProcess() = default;

void RecorderProcess::lose(const std::string& why) {
  events_.reset();
  said_ += "Nothing is recorded: " + why + "\n";
}

std::size_t RecorderProcess::send(std::string_view bytes) {
  if (!events_ || !events_->isFree(0)) return 0;
  const std::size_t taken = events_->write(bytes);
  if (events_->isBroken()) {
    receive();
    lose("its helper has ended");
  }
  return taken;
}

void RecorderProcess::receive() {
  std::array<char, 4096> buffer;
  DWORD waiting = 0;
  DWORD count = 0;
  while (PeekNamedPipe(words_.get(), nullptr, 0, nullptr, &waiting, nullptr) != 0 && waiting > 0 &&
         ReadFile(words_.get(), buffer.data(), buffer.size(), &count, nullptr) != 0)
    said_.append(buffer.data(), count);
}

std::optional<std::string> RecorderProcess::news() {
  if (events_) receive();
  const std::size_t end = said_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string sentence = said_.substr(0, end);
  said_.erase(0, end + 1);
  return sentence;
}

void RecorderProcess::end(std::string_view rest) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + std::chrono::milliseconds(LongestFarewell_ms);
  const auto left_ms = [&until] {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now());
    return std::max(0, static_cast<int>(left.count()));
  };
  while (events_ && events_->isFree(left_ms()) && !rest.empty()) {
    const std::size_t taken = send(rest);
    rest.remove_prefix(taken);
  }
  events_.reset();
  if (process_) WaitForSingleObject(process_.get(), static_cast<DWORD>(left_ms()));
}

}  // namespace vorlent
