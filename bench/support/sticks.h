#pragma once

#include <string>

#include "endtoend/Cockpit.h"

namespace vorlent {

/// The most sticks that a server has.
constexpr int MostSticks = 8;

/// Gives each stick of the cockpit this file, and lets all of them be polled at this pace. Boards
/// of the machine then do as well as virtual ones.
void furnishSticks(const Cockpit& cockpit, const std::string& stickFile, int period_ms);

/// Switches the sticks of the running server on. Raises std::runtime_error unless there are at
/// least `count` of them.
void startSticks(const Cockpit& cockpit, int count);

}  // namespace vorlent
