#include "check/offsetRows.h"

#include <cstring>

namespace vorlent {
namespace {

using enum OffsetForm;
using enum OffsetUse;

constexpr double PerDegree16 = 65536.0 / 360;
constexpr double PerDegree32 = 4294967296.0 / 360;
constexpr double MetresPerFoot = 0.3048;
constexpr double PerKnotOfMetres = 65536 * 1852.0 / 3600;
constexpr double PerPercent = 163.84;
constexpr double LatitudePerDegree = 10001750.0 / 90;
constexpr double FullTravel = 16383;

// clang-format off
constexpr std::array Rows{
    OffsetRow{0x023A, U8,  "UTC second",                  "s",      1, 0, 59, Clock},
    OffsetRow{0x023B, U8,  "UTC hour",                    "h",      1, 0, 23},
    OffsetRow{0x023C, U8,  "UTC minute",                  "min",    1, 0, 59},
    OffsetRow{0x0564, S32, "latitude, upper half",        "deg",    LatitudePerDegree, -90, 90},
    OffsetRow{0x056C, S32, "longitude, upper half",       "deg",    PerDegree32, -180, 180},
    OffsetRow{0x0574, S32, "altitude, upper half",        "ft",     MetresPerFoot, -2000, 60000},
    OffsetRow{0x0B4C, S16, "elevation of the ground",     "ft",     MetresPerFoot, -2000, 30000},
    OffsetRow{0x0366, U16, "on the ground",               "",       1, 0, 1},
    OffsetRow{0x0578, S32, "pitch, nose up",              "deg",    -PerDegree32, -90, 90},
    OffsetRow{0x057C, S32, "bank, right wing down",       "deg",    -PerDegree32, -180, 180},
    OffsetRow{0x0580, U32, "true heading",                "deg",    PerDegree32, 0, 360},
    OffsetRow{0x02A0, S16, "magnetic variation, east",    "deg",    PerDegree16, -180, 180},
    OffsetRow{0x02B4, U32, "ground speed",                "kt",     PerKnotOfMetres, 0, 1200},
    OffsetRow{0x02B8, U32, "true airspeed",               "kt",     128, 0, 1200},
    OffsetRow{0x02BC, U32, "indicated airspeed",          "kt",     128, 0, 600},
    OffsetRow{0x02C4, U16, "barber pole",                 "kt",     128, 0, 510},
    OffsetRow{0x02C8, S16, "vertical speed",              "ft/min", 256 * MetresPerFoot / 60, -12000, 12000},
    OffsetRow{0x11C6, U16, "Mach",                        "",       20480, 0, 2},
    OffsetRow{0x0330, U16, "altimeter setting",           "hPa",    16, 850, 1100},
    OffsetRow{0x0E8C, S16, "outside temperature",         "C",      256, -100, 60},
    OffsetRow{0x0E90, U16, "wind",                        "kt",     1, 0, 300},
    OffsetRow{0x0E92, U16, "wind from, true",             "deg",    PerDegree16, 0, 360},
    OffsetRow{0x0AEC, U8,  "number of engines",           "",       1, 1, 4},
    OffsetRow{0x0609, U8,  "kind of engines",             "",       1, 0, 5},
    OffsetRow{0x0889, U8,  "engines that run",            "bits",   1, 0, 15},
    OffsetRow{0x0898, U16, "N1 of engine 1",              "%",      PerPercent, 0, 130},
    OffsetRow{0x0930, U16, "N1 of engine 2",              "%",      PerPercent, 0, 130},
    OffsetRow{0x0896, U16, "N2 of engine 1",              "%",      PerPercent, 0, 130},
    OffsetRow{0x092E, U16, "N2 of engine 2",              "%",      PerPercent, 0, 130},
    OffsetRow{0x0918, Double, "fuel flow of engine 1",    "lb/h",   1, 0, 60000},
    OffsetRow{0x09B0, Double, "fuel flow of engine 2",    "lb/h",   1, 0, 60000},
    OffsetRow{0x3B70, Double, "EGT of engine 1",          "deg R",  1, 0, 3000},
    OffsetRow{0x3AB0, Double, "EGT of engine 2",          "deg R",  1, 0, 3000},
    OffsetRow{0x30C0, Double, "gross weight",             "lb",     1, 500, 1500000},
    OffsetRow{0x0BDC, U16, "flap lever",                  "",       1, 0, FullTravel},
    OffsetRow{0x0BE0, U16, "flaps",                       "",       1, 0, FullTravel},
    OffsetRow{0x3BFA, U16, "from one flap detent to the next", "",  1, 0, FullTravel},
    OffsetRow{0x0BE8, U16, "gear lever",                  "",       1, 0, FullTravel},
    OffsetRow{0x0BEC, U16, "nose gear",                   "",       1, 0, FullTravel},
    OffsetRow{0x0BB6, S16, "aileron, right",              "",       1, -FullTravel, FullTravel},
    OffsetRow{0x0C48, S8,  "NAV1 course needle",          "",       1, -127, 127},
    OffsetRow{0x0C49, S8,  "NAV1 glideslope needle",      "",       1, -127, 127},
    OffsetRow{0x0C4B, U8,  "NAV1 to or from",             "",       1, 0, 2},
    OffsetRow{0x0C4E, U16, "NAV1 course",                 "deg",    1, 0, 360},
    OffsetRow{0x0870, U16, "back along the approach, true", "deg",  65535.0 / 360, 0, 360},
    OffsetRow{0x0BC0, S16, "elevator trim",               "",       1, -FullTravel, FullTravel, Written},
    OffsetRow{0x2EB0, Double, "aileron trim",             "rad",    1, -3.2, 3.2, Written},
    OffsetRow{0x0278, U8,  "automatic coordination",      "",       1, 0, 1, Written},
    OffsetRow{0x088C, S16, "thrust lever of engine 1",    "%",      PerPercent, -100, 100, Written},
    OffsetRow{0x0924, S16, "thrust lever of engine 2",    "%",      PerPercent, -100, 100, Written},
    OffsetRow{0x07BC, U8,  "autopilot master",            "",       1, 0, 1, Written},
    OffsetRow{0x07D0, U8,  "altitude hold",               "",       1, 0, 1, Written},
    OffsetRow{0x0810, U8,  "autothrottle",                "",       1, 0, 1, Written},
    OffsetRow{0x07CC, U16, "selected heading",            "deg",    PerDegree16, 0, 359.995, Written},
    OffsetRow{0x07D4, S32, "selected altitude",           "ft",     65536 * MetresPerFoot, -2000, 65000, Written},
    OffsetRow{0x07E2, U16, "selected airspeed",           "kt",     1, 0, 999, Written},
    OffsetRow{0x07E8, U16, "selected Mach",               "",       65500, 0, 1, Written},
    OffsetRow{0x07F2, S16, "selected vertical speed",     "ft/min", 1, -10000, 10000, Written},
};
// clang-format on

template <class T>
double loaded(std::span<const std::byte> bytes) {
  T value{};
  std::memcpy(&value, bytes.data(), sizeof value);
  return static_cast<double>(value);
}

template <class T>
void stored(std::span<std::byte> bytes, double number) {
  const T value = static_cast<T>(number);
  std::memcpy(bytes.data(), &value, sizeof value);
}

struct FormRow {
  std::size_t size;
  double (*load)(std::span<const std::byte>);
  void (*store)(std::span<std::byte>, double);
};

template <class T>
constexpr FormRow formOf() {
  return {sizeof(T), loaded<T>, stored<T>};
}

/// In the order of OffsetForm.
constexpr std::array Forms{formOf<std::uint8_t>(), formOf<std::int8_t>(),   formOf<std::uint16_t>(),
                           formOf<std::int16_t>(), formOf<std::uint32_t>(), formOf<std::int32_t>(),
                           formOf<double>()};

const FormRow& rowOf(OffsetForm form) { return Forms[static_cast<std::size_t>(form)]; }

}  // namespace

std::size_t sizeOf(OffsetForm form) { return rowOf(form).size; }

double numberIn(std::span<const std::byte> bytes, OffsetForm form) {
  return rowOf(form).load(bytes);
}

void putNumber(std::span<std::byte> bytes, OffsetForm form, double number) {
  rowOf(form).store(bytes, number);
}

std::span<const OffsetRow> offsetRows() { return Rows; }

}  // namespace vorlent
