#include <string>

#include "base/text.h"
#include "simlink/decodeRows.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

/// Hours, minutes and seconds, each two characters without their blanks.
std::string localTime(const Snapshot& s) {
  const auto pair = [&s](std::uint32_t offset) {
    return replaced(s.characters(offset, 2), " ", "");
  };
  return pair(0x0C20) + " " + pair(0x0C23) + " " + pair(0x0C26);
}

void decodeElectrical(const Snapshot& s, modPublic& v) {
  int element = 0;
  for (const std::uint32_t offset : {0x2824U, 0x282CU, 0x2834U, 0x2840U, 0x2848U, 0x2850U, 0x2858U,
                                     0x2860U, 0x2868U, 0x2870U, 0x2878U}) {
    ++element;
    attempt([&] { set(v.Electrical(element), s.f64(offset)); });
  }
}

void decodeFailures(const Snapshot& s, modPublic& v) {
  const auto flag = [&](int element, std::uint32_t offset) {
    v.FailureFlags(element).clear();
    appendInteger(v.FailureFlags(element), s.u8(offset));
    v.FailureText += v.FailureFlags(element);
    v.FailureText += v.Sep;
  };
  v.FailureText.clear();
  int element = 1;
  for (std::uint32_t offset = 0x3BD6; offset <= 0x3BE7; ++offset) flag(element++, offset);
  flag(element++, 0x0B71);
  flag(element, 0x32F8);
}

constexpr DecodeRow Rows[] = {
    {"ZuluTime", [](auto& s, auto& v) { set(v.ZuluTime, s.u8(0x023B) + s.u8(0x023C) / 100.0); }},
    {"LocalTimeText", [](auto& s, auto& v) { v.LocalTimeText = localTime(s); }},
    {"Paused", [](auto& s, auto& v) { set(v.Paused, s.u8(0x0264)); }},
    {"FrameRateByte", [](auto& s, auto& v) { set(v.FrameRateByte, s.u8(0x0274)); }},
    {"LightsByte1", [](auto& s, auto& v) { set(v.LightsByte1, s.u8(0x0280)); }},
    {"LightsByte2", [](auto& s, auto& v) { set(v.LightsByte2, s.u8(0x0281)); }},
    {"LightsByte3", [](auto& s, auto& v) { set(v.LightsByte3, s.u8(0x0282)); }},
    {"LandingLights", [](auto& s, auto& v) { set(v.LandingLights, s.u8(0x028C)); }},
    {"PitotHeat", [](auto& s, auto& v) { set(v.PitotHeat, s.u8(0x029C)); }},
    {"MasterBattery", [](auto& s, auto& v) { set(v.MasterBattery, s.i32(0x281C)); }},
    {"AvionicsMaster", [](auto& s, auto& v) { set(v.AvionicsMaster, s.i32(0x2E80)); }},
    {"Long2E88", [](auto& s, auto& v) { set(v.Long2E88, s.i32(0x2E88)); }},
    {"Long2EC8", [](auto& s, auto& v) { set(v.Long2EC8, s.i32(0x2EC8)); }},
    {"Double0B18", [](auto& s, auto& v) { set(v.Double0B18, s.f64(0x0B18)); }},
    {"Electrical", decodeElectrical},
    {"FailureFlags", decodeFailures},
};

}  // namespace

std::span<const DecodeRow> systemRows() { return Rows; }

}  // namespace vorlent
