#include "platform/win32/WindowsSimulatorBus.h"

#include <windows.h>

namespace vorlent {
namespace {

HWND windowOf(WindowHandle window) { return reinterpret_cast<HWND>(window); }
HANDLE handleOf(BlockHandle block) { return reinterpret_cast<HANDLE>(block); }

}  // namespace

WindowHandle WindowsSimulatorBus::findWindow(const std::string& windowClass) {
  return reinterpret_cast<WindowHandle>(
      FindWindowExA(nullptr, nullptr, windowClass.c_str(), nullptr));
}

std::string WindowsSimulatorBus::obstacle() {
  if (!refused_) return {};
  return "The simulator runs with higher rights than this program, and Windows lets nobody ask it: "
         "start both as administrator, or neither";
}

MessageId WindowsSimulatorBus::registerMessage(const std::string& text) {
  return RegisterWindowMessageA(text.c_str());
}

AtomId WindowsSimulatorBus::addAtom(const std::string& text) {
  return GlobalAddAtomA(text.c_str());
}

void WindowsSimulatorBus::deleteAtom(AtomId atom) { GlobalDeleteAtom(static_cast<ATOM>(atom)); }

BlockResult WindowsSimulatorBus::createBlock(const std::string& name, std::size_t size_bytes) {
  const std::uint64_t size = size_bytes;
  SetLastError(ERROR_SUCCESS);
  const HANDLE block =
      CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE,
                         static_cast<DWORD>(size >> 32), static_cast<DWORD>(size), name.c_str());
  return {reinterpret_cast<BlockHandle>(block), GetLastError() == ERROR_ALREADY_EXISTS};
}

std::byte* WindowsSimulatorBus::mapBlock(BlockHandle block) {
  return static_cast<std::byte*>(MapViewOfFile(handleOf(block), FILE_MAP_WRITE, 0, 0, 0));
}

void WindowsSimulatorBus::unmapBlock(std::byte* view) { UnmapViewOfFile(view); }

void WindowsSimulatorBus::dropBlock(BlockHandle block) { CloseHandle(handleOf(block)); }

SendResult WindowsSimulatorBus::sendMessage(WindowHandle window, MessageId message, AtomId atom,
                                            int timeout_ms) {
  DWORD_PTR reply = 0;
  // A time-out may leave the last error as it was.
  SetLastError(ERROR_SUCCESS);
  const LRESULT sent = SendMessageTimeoutA(windowOf(window), message, atom, 0, SMTO_BLOCK,
                                           static_cast<UINT>(timeout_ms), &reply);
  const DWORD error = GetLastError();
  refused_ = sent == 0 && error == ERROR_ACCESS_DENIED;
  if (sent != 0) return {true, static_cast<std::int32_t>(reply), 0};
  return {false, 0, error == ERROR_TIMEOUT ? DWORD{ERROR_SUCCESS} : error};
}

void WindowsSimulatorBus::showWindow(WindowHandle window, bool maximised) {
  ShowWindowAsync(windowOf(window), maximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL);
}

void WindowsSimulatorBus::bringToFront(WindowHandle window) {
  SetForegroundWindow(windowOf(window));
}

std::uint32_t WindowsSimulatorBus::processId() { return GetCurrentProcessId(); }

}  // namespace vorlent
