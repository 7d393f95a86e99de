#pragma once

#include <chrono>
#include <string>

#include "platform/PerformanceDb.h"

namespace vorlent {

class NetworkFiles;

/// An Access database that is fetched through NetworkFiles and read by the helper vorlent-mdb, a
/// new one for each reading.
class MdbPerformanceDb : public PerformanceDb {
 public:
  static constexpr std::chrono::milliseconds Deadline{1000};

  /// `helper` is the program.
  MdbPerformanceDb(NetworkFiles& files, std::string helper)
      : files_(files), helper_(std::move(helper)) {}

  bool open(const std::string& path) override;
  PerformanceReading read() override;

 private:
  PerformanceReading readBytes(std::string bytes) const;

  NetworkFiles& files_;
  std::string helper_;
  std::string path_;  ///< empty: none is open
};

}  // namespace vorlent
