#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

/// COM and NAV: the digits behind the leading 1 of the megahertz.
double bcdMegahertz(std::uint16_t word) {
  return BcdToDec(static_cast<std::uint8_t>(word)) / 100.0 +
         BcdToDec(static_cast<std::uint8_t>(word >> 8)) + 100;
}

double bcdKilohertz(const Snapshot& s, std::uint32_t high, std::uint32_t low,
                    std::uint32_t thousands, std::uint32_t tenths) {
  return BcdToDec(s.u8(high)) * 100.0 + BcdToDec(s.u8(low)) + s.u8(thousands) * 1000.0 +
         s.u8(tenths) / 10.0;
}

double standbyFrequency(const Snapshot& s, const modPublic& v, std::uint32_t offset) {
  return isModern(v) ? bcdMegahertz(s.u16(offset)) : 0;
}

constexpr DecodeRow Rows[] = {
    {"Adf1Freq",
     [](auto& s, auto& v) { set(v.Adf1Freq, bcdKilohertz(s, 0x034D, 0x034C, 0x0357, 0x0356)); }},
    {"Adf2Freq",
     [](auto& s, auto& v) { set(v.Adf2Freq, bcdKilohertz(s, 0x02D5, 0x02D4, 0x02D7, 0x02D6)); }},
    {"Com1Freq", [](auto& s, auto& v) { set(v.Com1Freq, bcdMegahertz(s.u16(0x034E))); }},
    {"Nav1Freq", [](auto& s, auto& v) { set(v.Nav1Freq, bcdMegahertz(s.u16(0x0350))); }},
    {"Nav2Freq", [](auto& s, auto& v) { set(v.Nav2Freq, bcdMegahertz(s.u16(0x0352))); }},
    {"TransponderCode",
     [](auto& s, auto& v) {
       set(v.TransponderCode, BcdToDec(s.u8(0x0355)) * 100 + BcdToDec(s.u8(0x0354)));
     }},
    {"Com2Freq", [](auto& s, auto& v) { set(v.Com2Freq, standbyFrequency(s, v, 0x3118)); }},
    {"Com1Standby", [](auto& s, auto& v) { set(v.Com1Standby, standbyFrequency(s, v, 0x311A)); }},
    {"Com2Standby", [](auto& s, auto& v) { set(v.Com2Standby, standbyFrequency(s, v, 0x311C)); }},
    // The NAV standbys keep what they hold when the simulator is too old to have them.
    {"Nav1Standby",
     [](auto& s, auto& v) {
       if (isModern(v)) set(v.Nav1Standby, bcdMegahertz(s.u16(0x311E)));
     }},
    {"Nav2Standby",
     [](auto& s, auto& v) {
       if (isModern(v)) set(v.Nav2Standby, bcdMegahertz(s.u16(0x3120)));
     }},
};

}  // namespace

std::span<const DecodeRow> radioRows() { return Rows; }

}  // namespace vorlent
