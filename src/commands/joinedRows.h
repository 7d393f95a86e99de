#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "commands/CommandTable.h"

namespace vorlent {

/// What the builder chooses for a control that is to do nothing.
constexpr CommandRow notAssigned(std::int16_t code) {
  return {code, "Not assigned", [](CommandContext&, float) {}};
}

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
