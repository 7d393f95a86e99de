#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace vorlent {

/// A shared block that a client has made, mapped into this process as long as this object lives.
/// Held any longer it would keep the client from making the block anew under the same name.
class ForeignBlock {
 public:
  ForeignBlock(const std::string& name, std::size_t size_bytes);

  /// The first `size_bytes` bytes of the block, or an empty span when there is none of this name,
  /// it is smaller, or its memory was reserved and never provided.
  std::span<std::byte> memory() const;

 private:
  struct Close {
    void operator()(void* handle) const;
  };
  struct Unmap {
    void operator()(void* view) const;
  };

  std::unique_ptr<void, Close> handle_;
  std::unique_ptr<void, Unmap> view_;
  std::size_t size_bytes_;
};

}  // namespace vorlent
