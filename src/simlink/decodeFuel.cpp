#include "simlink/decodeRows.h"
#include "simlink/derived.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

void decodeTank(const Snapshot& s, FuelTank& tank, std::uint32_t offset) {
  set(tank.Level, s.u32(offset) * 1.19209289550781e-05);
  set(tank.Capacity, s.u32(offset + 4));
}

constexpr DecodeRow Rows[] = {
    {"FuelLbPerGallon", [](auto& s, auto& v) { set(v.FuelLbPerGallon, s.u16(0x0AF4) / 256.0); }},
    {"FuelSelector", [](auto& s, auto& v) { set(v.FuelSelector, s.u8(0x0AF8)); }},
    {"FuelTanks centre",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::Centre), 0x0B74); }},
    {"FuelTanks left main",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftMain), 0x0B7C); }},
    {"FuelTanks left aux",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftAux), 0x0B84); }},
    {"FuelTanks left tip",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::LeftTip), 0x0B8C); }},
    {"FuelTanks right main",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightMain), 0x0B94); }},
    {"FuelTanks right aux",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightAux), 0x0B9C); }},
    {"FuelTanks right tip",
     [](auto& s, auto& v) { decodeTank(s, v.FuelTanks(Tank::RightTip), 0x0BA4); }},
    {"FuelTanks without aux", [](auto&, auto& v) { emptyMissingAuxTanks(v); }},
    {"FuelTotalLb", [](auto&, auto& v) { deriveFuelTotal(v); }},
};

}  // namespace

std::span<const DecodeRow> fuelRows() { return Rows; }

}  // namespace vorlent
