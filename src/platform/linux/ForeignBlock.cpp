#include "platform/linux/ForeignBlock.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/linux/SharedViews.h"

namespace vorlent {
namespace {

constexpr std::size_t LongestName = 250;

/// A name of shared memory is one name behind a slash, and may hold no other.
std::string sharedMemoryName(std::string_view blockName) {
  if (blockName.empty() || blockName.size() > LongestName) return {};
  if (blockName.find_first_of(std::string_view("/\0", 2)) != std::string::npos) return {};
  std::string name = "/";
  name += blockName;
  std::replace(name.begin(), name.end(), ':', '.');
  return name;
}

}  // namespace

ForeignBlock::~ForeignBlock() { unmap(); }

std::span<std::byte> ForeignBlock::open(std::string_view name, std::size_t size) {
  if (view_.size() != size || name != name_ || !stillGood(size)) {
    unmap();
    map(name, size);
  }
  return view_;
}

bool ForeignBlock::isIntact() const { return !isViewDamaged(view_.data()); }

/// A block without a name was dropped by its owner, who may have made another of the same name.
/// Memory beyond the end of a block that was cut short cannot be touched.
bool ForeignBlock::stillGood(std::size_t size) const {
  struct stat found {};
  return isIntact() && fstat(file_.number(), &found) == 0 && found.st_nlink > 0 &&
         found.st_uid == owner_ && found.st_size >= static_cast<off_t>(size);
}

void ForeignBlock::map(std::string_view name, std::size_t size) {
  const std::string sharedName = sharedMemoryName(name);
  if (sharedName.empty()) return;
  file_ = Descriptor(shm_open(sharedName.c_str(), O_RDWR | O_CLOEXEC, 0));
  if (!file_ || !stillGood(size)) return;
  void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file_.number(), 0);
  if (memory == MAP_FAILED) return;
  view_ = {static_cast<std::byte*>(memory), size};
  name_ = name;
  if (!watchView(view_)) unmap();
}

void ForeignBlock::unmap() {
  if (!view_.empty()) {
    forgetView(view_.data());
    munmap(view_.data(), view_.size());
  }
  view_ = {};
  file_ = Descriptor();
}

}  // namespace vorlent
