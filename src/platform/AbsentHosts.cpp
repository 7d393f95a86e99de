#include "platform/AbsentHosts.h"

#include "base/text.h"
#include "platform/EventLoop.h"

namespace vorlent {

void AbsentHosts::add(const std::string& host) {
  since_ms_[upperCase(host)] = clock_.tickCount_ms();
}

bool AbsentHosts::contains(const std::string& host) {
  const std::uint32_t now_ms = clock_.tickCount_ms();
  std::erase_if(since_ms_,
                [now_ms](const auto& entry) { return now_ms - entry.second >= Absence_ms; });
  return since_ms_.contains(upperCase(host));
}

}  // namespace vorlent
