#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "platform/linux/Descriptor.h"

namespace vorlent {

/// A shared block that a client has made, mapped into this process. The client can cut it short at
/// any time: what is gone reads as 0.
class ForeignBlock {
 public:
  /// Only a block that belongs to `owner` is opened.
  explicit ForeignBlock(uid_t owner = getuid()) : owner_(owner) {}
  ForeignBlock(const ForeignBlock&) = delete;
  ForeignBlock& operator=(const ForeignBlock&) = delete;
  ~ForeignBlock();

  /// The first `size` bytes of the block with this name, or an empty span when there is none, it is
  /// smaller or it belongs to somebody else. The mapping is kept for the next call with the same
  /// name and made anew when the client has dropped the block or cut it short.
  std::span<std::byte> open(std::string_view name, std::size_t size);
  /// Whether all of it has been there since it was opened.
  bool isIntact() const;

 private:
  void map(std::string_view name, std::size_t size);
  void unmap();
  bool stillGood(std::size_t size) const;

  uid_t owner_;
  std::string name_;
  Descriptor file_;
  std::span<std::byte> view_;
};

}  // namespace vorlent
