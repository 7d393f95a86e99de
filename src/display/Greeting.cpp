#include "display/Greeting.h"

#include <charconv>
#include <vector>

#include "base/RuntimeError.h"
#include "base/text.h"

namespace vorlent {
namespace {

std::vector<std::string_view> splitAtBackslash(std::string_view text) {
  std::vector<std::string_view> fields;
  for (;;) {
    const auto at = text.find('\\');
    fields.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return fields;
    text.remove_prefix(at + 1);
  }
}

bool readWhole(std::string_view text, int& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

/// The code with the digit 1 behind it, without anything between them.
bool readVersion(std::string_view text, int& version) {
  return text.ends_with('1') && readWhole(text.substr(0, text.size() - 1), version);
}

}  // namespace

std::string greeting(int interval_ms, std::string_view machineName) {
  if (interval_ms < MinInterval_ms || interval_ms > MaxInterval_ms || !isHostName(machineName))
    throw RuntimeError(RuntimeError::InvalidCall);
  return "Connection on vorlent display " + std::to_string(interval_ms) + " " +
         std::string(machineName);
}

std::optional<GreetingReply> readGreetingReply(std::string_view datagram) {
  const auto fields = splitAtBackslash(datagram);
  GreetingReply reply;
  if (fields.size() != 5 || !readVersion(fields[0], reply.simulatorVersion) ||
      !readWhole(fields[2], reply.engineCount) || !readWhole(fields[3], reply.flapIncrement))
    return std::nullopt;
  reply.folder = fields[1];
  reply.decimalMark = fields[4];
  return reply;
}

}  // namespace vorlent
