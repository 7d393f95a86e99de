#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace vorlent {

class EventLoop;

/// The hosts that cost a deadline lately: for a while nobody waits for them again. Names count in
/// any case of letters.
class AbsentHosts {
 public:
  static constexpr std::uint32_t Absence_ms = 30'000;

  explicit AbsentHosts(EventLoop& clock) : clock_(clock) {}

  void add(const std::string& host);
  bool contains(const std::string& host);

 private:
  EventLoop& clock_;
  std::map<std::string, std::uint32_t> since_ms_;
};

}  // namespace vorlent
