#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

/// A set of IPv4 networks.
class AddressRanges {
 public:
  /// `text`: an address ("192.168.0.7") or a network ("192.168.0.0/24", prefix 0..32). False, and
  /// nothing added, for anything else.
  bool add(std::string_view text);
  /// False for a text that is no dotted IPv4 address.
  bool contains(std::string_view address) const;
  bool empty() const { return ranges_.empty(); }

 private:
  struct Range {
    std::uint32_t network;
    std::uint32_t mask;
  };
  std::vector<Range> ranges_;
};

}  // namespace vorlent
