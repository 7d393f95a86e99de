#pragma once

#include <string>

#include "platform/PerformanceDb.h"

namespace vorlent {

/// For a system that has no reader of databases: none is ever there.
class AbsentPerformanceDb : public PerformanceDb {
 public:
  bool open(const std::string& /*path*/) override { return false; }
  PerformanceReading read() override { return {}; }
};

}  // namespace vorlent
