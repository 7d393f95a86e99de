#include "base/units.h"
#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/derived.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

double celsius256(std::uint16_t x) { return foldedOnes(x) / 256; }

void decodeWeather(const Snapshot& s, modPublic& v) {
  for (std::uint32_t k = 0; k < 8; ++k) {
    const double factor = k == 1 ? FeetPerMetre : 1;
    attempt([&] {
      const auto sum = addBytes(s.u8(0x0E5A + 2 * k), s.u8(0x0E5B + 2 * k));
      set(v.WeatherSums(static_cast<int>(k) + 1), sum * factor);
    });
  }
}

constexpr DecodeRow Rows[] = {
    {"OutsideAirTemp", [](auto& s, auto& v) { set(v.OutsideAirTemp, celsius256(s.u16(0x0E8C))); }},
    {"TotalAirTemp", [](auto& s, auto& v) { set(v.TotalAirTemp, celsius256(s.u16(0x11D0))); }},
    {"TotalAirTempSlow", [](auto&, auto& v) { deriveSlowTotalAirTemp(v); }},
    {"WindSpeedKt", [](auto& s, auto& v) { set(v.WindSpeedKt, s.u16(0x0E90)); }},
    {"WindDirection", [](auto& s, auto& v) { set(v.WindDirection, degrees16(s.u16(0x0E92))); }},
    {"AmbientQnh", [](auto& s, auto& v) { set(v.AmbientQnh, s.u16(0x0EC6) / 16.0); }},
    {"Word0EEE", [](auto& s, auto& v) { set(v.Word0EEE, s.u16(0x0EEE) * FeetPerMetre); }},
    {"WeatherSums", decodeWeather},
};

}  // namespace

std::span<const DecodeRow> weatherRows() { return Rows; }

}  // namespace vorlent
