#include "input/triples.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "independentText.h"
#include "input/commands.h"
#include "require.h"
#include "support/TestServer.h"

// An input is a line of triples behind one byte, of which bit 0 chooses the regional mark: a point
// or a comma.

namespace {

struct Call {
  char kind;
  int code;
  float value;
  bool operator==(const Call&) const = default;
};

class RecordingCommands : public vorlent::Commands {
 public:
  using Commands::Commands;
  void SetAnalogValues(std::int16_t id, float value) override { calls.push_back({'A', id, value}); }
  void SetButtonValues(std::int16_t id, float value) override { calls.push_back({'P', id, value}); }
  void SetToggleValues(std::int16_t id, float value) override { calls.push_back({'T', id, value}); }
  void SetEncoderValues(std::int16_t id, float value) override {
    calls.push_back({'E', id, value});
  }
  std::vector<Call> calls;
};

/// A number with a point, or, where the mark is a comma and there is no point, with commas for it.
std::optional<double> markedNumber(std::string text, bool comma) {
  if (const auto value = independent::number(text)) return value;
  if (!comma || text.find('.') != std::string::npos) return std::nullopt;
  for (char& c : text)
    if (c == ',') c = '.';
  return independent::number(text);
}

struct Expected {
  std::vector<Call> calls;
  bool endsInAFault = false;
};

Expected expectedOf(const std::string& line, bool comma) {
  Expected expected;
  const auto fields = independent::split(line, ' ');
  for (std::size_t at = 0; at + 3 < fields.size(); at += 3) {
    const auto code = independent::wholeNumber(fields[at + 1], -32768, 32767);
    const auto value = markedNumber(fields[at + 2], comma);
    if (!code || !value || std::fabs(*value) >= 0x1.ffffffp+127) {
      expected.endsInAFault = true;
      return expected;
    }
    const std::string& kind = fields[at];
    const bool known = kind == "E" || kind == "T" || kind == "P";
    expected.calls.push_back({known ? kind[0] : 'A', *code, static_cast<float>(*value)});
  }
  return expected;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static vorlent::TestServer t;
  const bool comma = (data[0] & 1) != 0;
  const std::string line(data + 1, data + size);
  RecordingCommands commands(t.server);
  bool fault = false;
  try {
    vorlent::carryOutTriples(commands, line, comma ? "," : ".");
  } catch (const vorlent::RuntimeError&) {
    fault = true;
  }
  const Expected expected = expectedOf(line, comma);
  VORLENT_REQUIRE(commands.calls == expected.calls);
  VORLENT_REQUIRE(fault == expected.endsInAFault);
  return 0;
}
