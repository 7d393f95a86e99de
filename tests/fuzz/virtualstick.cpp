#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "platform/StickDevice.h"
#include "require.h"
#include "stick/StickProgram.h"

// An input is what a virtual stick sends in one packet, and a line of steps for vorlent-stick.

using namespace vorlent;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool isAxis(std::int32_t value) { return value >= 0 && value <= 65535; }
bool isDirection(std::int32_t value) { return value >= -1 && value <= 35999; }
bool isButton(std::uint8_t value) { return value == 0 || value == 0x80; }

void requireInRange(const ControllerState& state) {
  for (const std::int32_t axis :
       {state.x, state.y, state.z, state.rx, state.ry, state.rz, state.slider[0], state.slider[1]})
    VORLENT_REQUIRE(isAxis(axis));
  VORLENT_REQUIRE(std::all_of(state.POV.begin(), state.POV.end(), isDirection));
  VORLENT_REQUIRE(std::all_of(state.buttons.begin(), state.buttons.end(), isButton));
}

/// A stick without readers, with one line of input. It ends after ten seconds, however long the
/// line wants to wait.
class LineOnly : public StickDevice {
 public:
  explicit LineOnly(std::string line) : line_(std::move(line)) {}
  void show(const ControllerState& state) override { requireInRange(state); }
  bool pause(int duration_ms) override {
    VORLENT_REQUIRE(duration_ms >= 0 && duration_ms <= 3600000);
    left_ms_ -= duration_ms;
    return left_ms_ > 0;
  }
  bool awaitReader() override { return true; }
  std::optional<std::string> nextLine() override { return std::exchange(line_, std::nullopt); }

 private:
  std::optional<std::string> line_;
  int left_ms_ = 10000;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const auto state = stateFromPacket(text);
  VORLENT_REQUIRE(state.has_value() == (size == 80));
  if (state) requireInRange(*state);

  LineOnly device(text);
  StickProgram(device, [](const std::string& complaint) {
    VORLENT_REQUIRE(!complaint.empty());
  }).run({});
  return 0;
}
