#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/RuntimeError.h"
#include "platform/Wave.h"
#include "require.h"

// An input is a wave file, or what somebody takes for one.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    const vorlent::Wave wave = vorlent::waveFrom(bytes);
    VORLENT_REQUIRE(wave.rate_Hz >= 1000 && wave.rate_Hz <= 192000);
    VORLENT_REQUIRE(wave.frames() >= 1);
    VORLENT_REQUIRE(wave.samples.size() == 2 * wave.frames());
    VORLENT_REQUIRE(wave.frames() <= size);
    VORLENT_REQUIRE(vorlent::waveFrom(bytes).samples == wave.samples);
  } catch (const vorlent::RuntimeError& fault) {
    VORLENT_REQUIRE(!fault.description().empty());
  }
  return 0;
}
