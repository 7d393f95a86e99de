#pragma once

#include <map>
#include <memory>

#include "platform/Wave.h"

namespace vorlent {

/// What a sound library has made of each wave, shared by the voices that play it.
template <class Made>
class MadeOfWaves {
 public:
  /// Lives as long as a voice has it; `make` makes the first.
  template <class Make>
  std::shared_ptr<Made> of(const std::shared_ptr<const Wave>& wave, Make make) {
    std::erase_if(known_, [](const auto& known) { return known.second.expired(); });
    auto& known = known_[wave.get()];
    auto found = known.lock();
    if (!found) known = found = make();
    return found;
  }
  void clear() { known_.clear(); }

 private:
  std::map<const Wave*, std::weak_ptr<Made>> known_;
};

}  // namespace vorlent
