#pragma once

#include <algorithm>
#include <initializer_list>
#include <span>
#include <vector>

#include "input/CommandTable.h"

namespace vorlent {

/// The rows of all families in the order of their codes.
inline std::vector<CommandRow> joinedRows(
    std::initializer_list<std::span<const CommandRow>> families) {
  std::vector<CommandRow> rows;
  for (const auto& family : families) rows.insert(rows.end(), family.begin(), family.end());
  std::sort(rows.begin(), rows.end(),
            [](const CommandRow& a, const CommandRow& b) { return a.code < b.code; });
  return rows;
}

}  // namespace vorlent
