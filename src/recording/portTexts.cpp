#include "recording/portTexts.h"

#include <cstring>

#include "recording/Bytes.h"

namespace vorlent::recorded {

std::string textOfLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t end; (end = text.find('\n', from)) != std::string::npos; from = end + 1)
    lines.push_back(text.substr(from, end - from));
  return lines;
}

std::string textOfControllers(const std::vector<ControllerInfo>& devices) {
  std::vector<std::string> lines;
  lines.reserve(devices.size());
  for (const ControllerInfo& device : devices)
    lines.push_back(device.name + '\t' + device.connection);
  return textOfLines(lines);
}

std::vector<ControllerInfo> controllersOf(const std::string& text) {
  std::vector<ControllerInfo> devices;
  for (const std::string& line : linesOf(text)) {
    const std::size_t tab = line.rfind('\t');
    if (tab == std::string::npos) refuseBytes();
    devices.push_back({line.substr(0, tab), line.substr(tab + 1)});
  }
  return devices;
}

std::string textOfStick(const ControllerState& state) {
  return {reinterpret_cast<const char*>(&state), sizeof state};
}

ControllerState stickOf(const std::string& text) {
  ControllerState state;
  if (text.size() != sizeof state) refuseBytes();
  std::memcpy(&state, text.data(), sizeof state);
  return state;
}

std::string performanceText(const PerformanceReading& reading) {
  std::string text;
  putText(text, reading.fault);
  putNumber(text, reading.row ? 1 : 0);
  if (!reading.row) return text;
  for (const auto& [name, value] : *reading.row) {
    putText(text, name);
    putText(text, value);
  }
  return text;
}

PerformanceReading performanceOf(const std::string& text) {
  ByteReader bytes(text);
  PerformanceReading reading;
  reading.fault = bytes.text();
  if (bytes.numberUpTo(1) == 0) return reading;
  reading.row.emplace();
  while (!bytes.atEnd()) {
    const std::string name(bytes.text());
    (*reading.row)[name] = bytes.text();
  }
  return reading;
}

std::int64_t numberOfTime(const LocalTime& time) {
  return time.hour * 10000 + time.minute * 100 + time.second;
}

LocalTime timeOf(std::int64_t number) {
  return {static_cast<int>(number / 10000), static_cast<int>(number / 100 % 100),
          static_cast<int>(number % 100)};
}

}  // namespace vorlent::recorded
