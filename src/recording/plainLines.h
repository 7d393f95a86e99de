#pragma once

#include <optional>
#include <string>
#include <vector>

#include "recording/Event.h"

namespace vorlent::recorded {

/// What the table `line` tells of an event, in plain.
struct PlainLine {
  std::string kind;
  std::string who;
  std::string text;
  bool operator==(const PlainLine&) const = default;
};
/// Nothing for an event that is not there.
std::optional<PlainLine> plainLine(const Event& event);

struct PlainWrite {
  std::uint32_t offset = 0;
  std::string bytes;
  bool operator==(const PlainWrite&) const = default;
};
/// The writes of an exchange that the simulator has taken.
std::vector<PlainWrite> plainWrites(const Exchanged& exchange);

}  // namespace vorlent::recorded
