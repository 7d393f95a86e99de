#pragma once

#include <chrono>
#include <string>
#include <utility>

#include "platform/PerformanceDb.h"
#include "platform/helper/Message.h"

namespace vorlent {

class NetworkFiles;

/// An Access database that is fetched through NetworkFiles and read by the helper vorlent-mdb.
class MdbPerformanceDb : public PerformanceDb {
 public:
  static constexpr std::chrono::milliseconds Deadline{1000};

  /// `helper` is a new one for each question: the last file may have damaged it.
  MdbPerformanceDb(NetworkFiles& files, AskHelper helper)
      : files_(files), helper_(std::move(helper)) {}

  bool open(const std::string& path) override;
  PerformanceReading read() override;

 private:
  PerformanceReading readBytes(std::string bytes) const;

  NetworkFiles& files_;
  AskHelper helper_;
  std::string path_;  ///< empty: none is open
};

}  // namespace vorlent
