#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vorlent {

/// What a simulator says of itself: a number for each property that was asked for. What it has not
/// told yet is a NaN.
class PropertyValues {
 public:
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  explicit PropertyValues(std::vector<std::string> names)
      : names_(std::move(names)), values_(names_.size(), Unknown) {
    for (std::size_t i = 0; i < names_.size(); ++i) slots_[names_[i]] = i;
  }

  std::size_t size() const { return names_.size(); }
  const std::string& name(std::size_t slot) const { return names_[slot]; }
  const std::vector<std::string>& names() const { return names_; }
  std::size_t slotOf(const std::string& name) const {
    const auto found = slots_.find(name);
    return found == slots_.end() ? None : found->second;
  }

  double operator[](std::size_t slot) const { return values_[slot]; }
  double named(const std::string& name) const {
    const std::size_t slot = slotOf(name);
    return slot == None ? Unknown : values_[slot];
  }
  bool knows(std::size_t slot) const { return !std::isnan(values_[slot]); }
  /// A NaN or an infinity leaves what was there.
  void set(std::size_t slot, double value) {
    if (std::isfinite(value)) values_[slot] = value;
  }
  void forget() { values_.assign(values_.size(), Unknown); }

 private:
  static constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();

  std::vector<std::string> names_;
  std::vector<double> values_;
  std::map<std::string, std::size_t> slots_;
};

}  // namespace vorlent
