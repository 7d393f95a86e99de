#pragma once

#include <cstddef>
#include <span>

/// Shared memory that is mapped into this process. Whoever may open it may also cut it short; to
/// touch what is gone then would end the process by SIGBUS. A view that is watched gets empty
/// memory in that place, and counts as damaged. There is one list in the process because a signal
/// handler has to reach it.
namespace vorlent {

/// `view` starts at the start of a page. False when there is no room for it in the list.
bool watchView(std::span<std::byte> view);
/// To be called before the memory is unmapped.
void forgetView(const std::byte* start);
/// Whether anything in it was gone when it was touched. It stays so.
bool isViewDamaged(const std::byte* start);

/// For signal handlers: puts empty memory where `address` is, if that is in a view. False when it
/// is not, or there is no memory.
bool mendView(const void* address);

}  // namespace vorlent
