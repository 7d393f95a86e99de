#include "base/numbers.h"
#include "base/units.h"
#include "simlink/derived.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

template <int Element>
void decodeWeatherSum(const TypedInput& in, modPublic& v) {
  const double factor = Element == 2 ? FeetPerMetre : 1;
  set(v.WeatherSums(Element), addBytes(in.byte(0), in.byte(0, 1)) * factor);
}

constexpr XPlaneRow Rows[] = {
    {"OutsideAirTemp",
     {S16(0x0E8C)},
     [](auto& in, auto& v) { set(v.OutsideAirTemp, in[0] / 256); }},
    {"TotalAirTemp", {S16(0x11D0)}, [](auto& in, auto& v) { set(v.TotalAirTemp, in[0] / 256); }},
    {"TotalAirTempSlow", {}, [](auto&, auto& v) { deriveSlowTotalAirTemp(v); }},
    {"WindSpeedKt", {U16(0x0E90)}, [](auto& in, auto& v) { set(v.WindSpeedKt, in[0]); }},
    {"WindDirection",
     {U16(0x0E92)},
     [](auto& in, auto& v) { set(v.WindDirection, in[0] * 360 / Turn16); }},
    {"AmbientQnh", {U16(0x0EC6)}, [](auto& in, auto& v) { set(v.AmbientQnh, in[0] / 16); }},
    {"Word0EEE",
     {S16(0x0EEE)},
     [](auto& in, auto& v) { set(v.Word0EEE, in[0] * FeetPerMetreOfXPlane); }},
    {"WeatherSums(1)", {U8(0x0E5A, 2)}, decodeWeatherSum<1>},
    {"WeatherSums(2)", {U8(0x0E5C, 2)}, decodeWeatherSum<2>},
    {"WeatherSums(3)", {U8(0x0E5E, 2)}, decodeWeatherSum<3>},
    {"WeatherSums(4)", {U8(0x0E60, 2)}, decodeWeatherSum<4>},
    {"WeatherSums(5)", {U8(0x0E62, 2)}, decodeWeatherSum<5>},
    {"WeatherSums(6)", {U8(0x0E64, 2)}, decodeWeatherSum<6>},
    {"WeatherSums(7)", {U8(0x0E66, 2)}, decodeWeatherSum<7>},
    {"WeatherSums(8)", {U8(0x0E68, 2)}, decodeWeatherSum<8>},
};

}  // namespace

std::span<const XPlaneRow> xplaneWeatherRows() { return Rows; }

}  // namespace vorlent
