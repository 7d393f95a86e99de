#pragma once

#include <string>
#include <vector>

#include "platform/Controllers.h"
#include "platform/EventLoop.h"
#include "platform/PerformanceDb.h"

/// Answers of ports as the number or the text of an Answered, and back. What cannot be read back
/// raises RuntimeError InputPastEnd.
namespace vorlent::recorded {

std::string textOfLines(const std::vector<std::string>& lines);
std::vector<std::string> linesOf(const std::string& text);

std::string textOfControllers(const std::vector<ControllerInfo>& devices);
std::vector<ControllerInfo> controllersOf(const std::string& text);

std::string textOfStick(const ControllerState& state);
ControllerState stickOf(const std::string& text);

std::string performanceText(const PerformanceReading& reading);
PerformanceReading performanceOf(const std::string& text);

std::int64_t numberOfTime(const LocalTime& time);
LocalTime timeOf(std::int64_t number);

}  // namespace vorlent::recorded
