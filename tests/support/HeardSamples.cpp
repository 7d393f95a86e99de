#include "support/HeardSamples.h"

#include <algorithm>
#include <cmath>

namespace vorlent {

/// A block never comes before its last frame was played: the earliest block tells the moments best.
void HeardSamples::add(std::span<const std::int16_t> samples, Moment now) {
  samples_.insert(samples_.end(), samples.begin(), samples.end());
  const std::chrono::duration<double> played(static_cast<double>(samples_.size()) / 2 / rate_Hz_);
  begin_ = std::min(begin_, now - std::chrono::duration_cast<Moment::duration>(played));
}

bool HeardSamples::reach(Moment moment) const {
  return !samples_.empty() && samples_.size() / 2 > frameAt(moment);
}

std::size_t HeardSamples::frameAt(Moment moment) const {
  const std::chrono::duration<double> since = moment - begin_;
  return static_cast<std::size_t>(std::max(0.0, since.count() * rate_Hz_));
}

HeardSamples::Moment HeardSamples::momentOf(std::size_t frame) const {
  const std::chrono::duration<double> since(static_cast<double>(frame) / rate_Hz_);
  return begin_ + std::chrono::duration_cast<Moment::duration>(since);
}

std::optional<HeardSamples::Moment> HeardSamples::firstAbove(double amplitude, Moment from) const {
  for (std::size_t i = 2 * frameAt(from); i < samples_.size(); ++i)
    if (std::abs(samples_[i]) > amplitude * 32768) return momentOf(i / 2);
  return std::nullopt;
}

double HeardSamples::level_dB(int channel, Moment from, Moment until) const {
  double sum = 0;
  std::size_t count = 0;
  const std::size_t end = std::min(frameAt(until), samples_.size() / 2);
  for (std::size_t frame = frameAt(from); frame < end; ++frame, ++count) {
    const double sample = samples_[2 * frame + static_cast<std::size_t>(channel)] / 32768.0;
    sum += sample * sample;
  }
  return 10 * std::log10(sum / static_cast<double>(count) + 1e-30);
}

}  // namespace vorlent
