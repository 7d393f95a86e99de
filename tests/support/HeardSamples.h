#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vorlent {

/// What a loudspeaker was given: 16 bits, left and right in turn, and when.
class HeardSamples {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  explicit HeardSamples(int rate_Hz) : rate_Hz_(rate_Hz) {}

  /// More of them, which are there now.
  void add(std::span<const std::int16_t> samples, Moment now);
  bool reach(Moment moment) const;
  /// The first moment from `from` on at which either channel is louder, of 1.
  std::optional<Moment> firstAbove(double amplitude, Moment from) const;
  /// Mean level of a channel, dB against full scale.
  double level_dB(int channel, Moment from, Moment until) const;

 private:
  std::size_t frameAt(Moment moment) const;
  Moment momentOf(std::size_t frame) const;

  int rate_Hz_;
  std::vector<std::int16_t> samples_;
  Moment begin_ = Moment::max();  ///< of the first frame
};

}  // namespace vorlent
