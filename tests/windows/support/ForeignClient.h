#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace vorlent {

/// A client of the simulator interface that shares no code with ours: it asks by the system's own
/// calls. Whatever fails throws.
class ForeignClient {
 public:
  ForeignClient() {
    const std::string name = "FSASMLIB:IPC:foreign";
    window_ = FindWindowA("UIPCMAIN", nullptr);
    message_ = RegisterWindowMessageA("FSASMLIB:IPC");
    atom_ = GlobalAddAtomA(name.c_str());
    mapping_ = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, BlockSize,
                                  name.c_str());
    view_ = static_cast<std::byte*>(MapViewOfFile(mapping_, FILE_MAP_WRITE, 0, 0, 0));
    if (window_ == nullptr || view_ == nullptr)
      throw std::runtime_error("no simulator, or no block");
  }
  ~ForeignClient() {
    UnmapViewOfFile(view_);
    CloseHandle(mapping_);
    GlobalDeleteAtom(atom_);
  }
  ForeignClient(const ForeignClient&) = delete;
  ForeignClient& operator=(const ForeignClient&) = delete;

  template <class T>
  T read(std::uint32_t offset) {
    const std::uint32_t head[] = {1, offset, sizeof(T), 0};
    ask(head, sizeof head, nullptr, sizeof(T));
    T value{};
    std::memcpy(&value, view_ + sizeof head, sizeof value);
    return value;
  }
  template <class T>
  void write(std::uint32_t offset, T value) {
    const std::uint32_t head[] = {2, offset, sizeof(T)};
    ask(head, sizeof head, &value, sizeof(T));
  }

 private:
  static constexpr std::size_t BlockSize = 32768;
  static constexpr UINT Limit_ms = 10000;

  void ask(const void* head, std::size_t head_bytes, const void* data, std::size_t data_bytes) {
    std::memset(view_, 0, head_bytes + data_bytes + 4);
    std::memcpy(view_, head, head_bytes);
    if (data != nullptr) std::memcpy(view_ + head_bytes, data, data_bytes);
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutA(window_, message_, atom_, 0, SMTO_BLOCK, Limit_ms, &answer) == 0 ||
        answer != 1)
      throw std::runtime_error("the simulator does not serve");
  }

  HWND window_ = nullptr;
  UINT message_ = 0;
  ATOM atom_ = 0;
  HANDLE mapping_ = nullptr;
  std::byte* view_ = nullptr;
};

}  // namespace vorlent
