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
  std::string message;
};

constexpr std::size_t PageWidth = 79;
constexpr std::size_t PageHeight = 23;  ///< the line under it is left for typing

/// The instrument page: PageHeight lines of at most PageWidth printable characters.
std::vector<std::string> livePage(const std::optional<Record>& record, const PageStatus& status);

}  // namespace vorlent
