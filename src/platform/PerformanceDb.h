#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace vorlent {

struct IgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return lessIgnoringCase(a, b); }
};

/// The first row of the table PerfData: the texts of its fields by their names, decimals with a
/// point; a field without a value is missing.
using PerfDataRow = std::map<std::string, std::string, IgnoringCase>;

/// The answer of one reading: the first row; no row where the table is empty; or what is wrong.
struct PerformanceReading {
  std::optional<PerfDataRow> row;
  std::string fault;
};

/// The planning display's database, by `\\host\share\path`. Whatever does not answer costs at most
/// a deadline.
class PerformanceDb {
 public:
  virtual ~PerformanceDb() = default;
  /// True when the database is there; remembers it for read(). One that is not there leaves none
  /// to read.
  virtual bool open(const std::string& path) = 0;
  /// Afresh from the file. Without an open database neither a row nor a fault.
  virtual PerformanceReading read() = 0;
};

}  // namespace vorlent
