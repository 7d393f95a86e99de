#include "platform/win32/ForeignBlock.h"

#include <windows.h>

namespace vorlent {
namespace {

/// Memory that its owner has reserved only is mapped, but any access to it ends the program.
bool isThere(const void* view, std::size_t size_bytes) {
  MEMORY_BASIC_INFORMATION found{};
  return VirtualQuery(view, &found, sizeof found) != 0 && found.State == MEM_COMMIT &&
         found.RegionSize >= size_bytes;
}

}  // namespace

void ForeignBlock::Close::operator()(void* handle) const { CloseHandle(handle); }
void ForeignBlock::Unmap::operator()(void* view) const { UnmapViewOfFile(view); }

ForeignBlock::ForeignBlock(const std::string& name, std::size_t size_bytes)
    : handle_(OpenFileMappingA(FILE_MAP_WRITE, FALSE, name.c_str())), size_bytes_(size_bytes) {
  // To ask for more than there is fails here, and not at an access later.
  if (handle_) view_.reset(MapViewOfFile(handle_.get(), FILE_MAP_WRITE, 0, 0, size_bytes_));
  if (view_ && !isThere(view_.get(), size_bytes_)) view_.reset();
}

std::span<std::byte> ForeignBlock::memory() const {
  if (!view_) return {};
  return {static_cast<std::byte*>(view_.get()), size_bytes_};
}

}  // namespace vorlent
