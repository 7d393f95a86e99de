#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

namespace vorlent {

/// The top-level window of a process that is seen or not and whose class, or title, begins so; null
/// without one.
inline HWND windowOf(unsigned long process, std::string_view name) {
  struct Search {
    DWORD process;
    std::string_view name;
    HWND found;
  } search{process, name, nullptr};
  EnumWindows(
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        std::array<char, 256> text{};
        const auto is = [&](int length) {
          return std::string_view(text.data(), static_cast<std::size_t>(length))
              .starts_with(wanted.name);
        };
        if (owner != wanted.process) return TRUE;
        if (!is(GetClassNameA(window, text.data(), text.size())) &&
            !is(GetWindowTextA(window, text.data(), text.size())))
          return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace vorlent
