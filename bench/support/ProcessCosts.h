#pragma once

#include <sys/types.h>

#include <ctime>

namespace vorlent {

/// What another process of this user costs.
class ProcessCosts {
 public:
  /// Raises std::runtime_error when there is no such process.
  explicit ProcessCosts(pid_t process);

  /// Processor time of all its threads since its start, in seconds.
  double cpu_s() const;
  /// The most memory that it has ever held at once, in megabytes of 10^6 bytes (VmHWM).
  double peakMemory_MB() const;

 private:
  pid_t process_;
  clockid_t cpuClock_ = 0;
};

}  // namespace vorlent
