#include "support/ProcessCosts.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace vorlent {

ProcessCosts::ProcessCosts(pid_t process) : process_(process) {
  if (clock_getcpuclockid(process, &cpuClock_) != 0)
    throw std::runtime_error("no such process to measure");
}

double ProcessCosts::cpu_s() const {
  timespec spent{};
  if (clock_gettime(cpuClock_, &spent) != 0) throw std::runtime_error("the process has ended");
  return static_cast<double>(spent.tv_sec) + 1e-9 * static_cast<double>(spent.tv_nsec);
}

double ProcessCosts::peakMemory_MB() const {
  std::ifstream status("/proc/" + std::to_string(process_) + "/status");
  for (std::string word; status >> word;) {
    double size_KiB = 0;
    if (word == "VmHWM:" && status >> size_KiB) return size_KiB * 1024 / 1e6;
  }
  throw std::runtime_error("the process has ended");
}

}  // namespace vorlent
