#pragma once

#include <optional>
#include <string>
#include <vector>

#include "display/RecordReader.h"

namespace vorlent {

struct PageStatus {
  std::string server;
  std::string folder;  ///< of the aircraft; empty while no reply has come
  unsigned long recordCount = 0;
  std::optional<double> stale_s;  ///< age of the record, when it is too old to be trusted
  std::string message;
};

constexpr std::size_t PageHeight = 23;  ///< the line under it is left for typing

/// The instrument page: PageHeight lines of at most `width` printable characters. The first one
/// tells what is stale.
std::vector<std::string> livePage(const std::optional<Record>& record, const PageStatus& status,
                                  std::size_t width);

}  // namespace vorlent
