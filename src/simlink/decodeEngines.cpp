#include <cmath>

#include "base/numbers.h"
#include "base/units.h"
#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

constexpr double UnitsPerPercent = FullScale / 100;

/// The pressure ratio and the exhaust gas came later than the other doubles.
bool hasDoubles(const EngineInput& in) { return in.variables.FsVersionCode >= 6; }

bool isTurboprop(const EngineInput& in) {
  return in.variables.EngineType == 5 && isModern(in.variables);
}

/// Out of the engine's block of doubles.
double turbine(const EngineInput& in, std::uint32_t firstEngine) {
  return in.f64(firstEngine, 0x100);
}

constexpr DecodeRow CountRows[] = {
    {"EngineCount", [](auto& s, auto& v) { set(v.EngineCount, s.u8(0x0AEC)); }},
    {"EngineCount2", [](auto& s, auto& v) { set(v.EngineCount2, s.u8(0x0AEC)); }},
    {"EngineTypeRaw", [](auto& s, auto& v) { set(v.EngineTypeRaw, s.u8(0x0609)); }},
    {"EngineType", [](auto&, auto& v) { v.EngineType = v.EngineTypeRaw; }},
    {"EngineCombustionBits",
     [](auto& s, auto& v) { set(v.EngineCombustionBits, addBytes(s.u8(0x0888), s.u8(0x0889))); }},
};

constexpr EngineRow Rows[] = {
    {"ThrustLever",
     [](auto& in, auto& engine) {
       // docs/peculiarities.md: thrust lever fold.
       set(engine.ThrustLever, folded(in.u16(0x088C) / UnitsPerPercent, 100, 399));
     }},
    {"PropValue",
     [](auto& in, auto& engine) {
       set(engine.PropValue, in.u16(0x088E) / UnitsPerPercent);
       set(engine.PropValue, turbine(in, 0x2408));
     }},
    {"Mixture",
     [](auto& in, auto& engine) { set(engine.Mixture, in.u16(0x0890) / UnitsPerPercent); }},
    {"Starter", [](auto& in, auto& engine) { set(engine.Starter, in.u8(0x0892)); }},
    {"Combustion", [](auto& in, auto& engine) { set(engine.Combustion, in.u8(0x0894)); }},
    {"N2", [](auto& in, auto& engine) { set(engine.N2, in.u16(0x0896) / UnitsPerPercent); }},
    {"N1",
     [](auto& in, auto& engine) {
       set(engine.N1, isTurboprop(in) ? turbine(in, 0x2010) : in.u16(0x0898) * 100.0 / FullScale);
     }},
    {"Epr",
     [](auto& in, auto& engine) {
       set(engine.Epr, hasDoubles(in) ? turbine(in, 0x2030) : in.u16(0x08A8) * 16.0 / FullScale);
     }},
    {"AntiIce", [](auto& in, auto& engine) { set(engine.AntiIce, in.u8(0x08B2)); }},
    {"OilTemp",
     [](auto& in, auto& engine) {
       // docs/peculiarities.md: oil temperature sign.
       const double whole = folded(in.u8(0x08B9), 128, 256);
       set(engine.OilTemp, (whole + in.u8(0x08B8) / 256.0) * 1.4 / 0.64);
     }},
    {"OilPressure",
     [](auto& in, auto& engine) { set(engine.OilPressure, in.u16(0x08BA) / 256.0 * 0.55 / 0.64); }},
    {"Egt",
     [](auto& in, auto& engine) {
       const double fahrenheit = hasDoubles(in) ? in.f64(0x3B70, -0xC0) - RankineAtZeroFahrenheit
                                                : in.u16(0x08BE) / 256.0 * 8.6 / 0.64;
       set(engine.Egt, FahrenheitToCelsius(fahrenheit));
     }},
    {"Word08C0",
     [](auto& in, auto& engine) { set(engine.Word08C0, in.u16(0x08C0) / 256.0 * 0.1652 / 0.64); }},
    {"OilQuantity",
     [](auto& in, auto& engine) { set(engine.OilQuantity, in.u16(0x08D0) / UnitsPerPercent); }},
    {"Vibration",
     [](auto& in, auto& engine) { set(engine.Vibration, in.u16(0x08D4) * 5.0 / FullScale); }},
    {"HydPressure", [](auto& in, auto& engine) { set(engine.HydPressure, in.u16(0x08D8) / 4.0); }},
    {"HydQuantity",
     [](auto& in, auto& engine) { set(engine.HydQuantity, in.u16(0x08DC) * 100.0 / FullScale); }},
    {"Cht", [](auto& in, auto& engine) { set(engine.Cht, in.f64(0x08E8, EngineRecord_bytes)); }},
    {"Itt",
     [](auto& in, auto& engine) {
       const double fahrenheit = isModern(in.variables)
                                     ? turbine(in, 0x2038) - RankineAtZeroFahrenheit
                                     : in.u16(0x08F0) / UnitsPerPercent;
       set(engine.Itt, FahrenheitToCelsius(fahrenheit));
     }},
    {"Torque",
     [](auto& in, auto& engine) {
       set(engine.Torque,
           isModern(in.variables) ? turbine(in, 0x2028) : in.u16(0x08F4) / FullScale);
     }},
    {"Word08F8",
     [](auto& in, auto& engine) { set(engine.Word08F8, in.u16(0x08F8) / UnitsPerPercent); }},
    {"Word0908",
     [](auto& in, auto& engine) { set(engine.Word0908, in.u16(0x0908) / FullScale * 100); }},
    {"FuelFlow",
     [](auto& in, auto& engine) {
       set(engine.FuelFlow,
           isTurboprop(in) ? turbine(in, 0x2060) : in.f64(0x0918, EngineRecord_bytes));
     }},
    {"GeneratorA", [](auto& in, auto& engine) { set(engine.GeneratorA, in.f64(0x2880, 0x10)); }},
    {"GeneratorB", [](auto& in, auto& engine) { set(engine.GeneratorB, in.f64(0x2888, 0x10)); }},
    {"FuelUsedLb",
     [](auto& in, auto& engine) {
       set(engine.FuelUsedLb,
           double{in.variables.FuelLbPerGallon} * in.variables.FuelBurnt(in.number));
     }},
};

}  // namespace

std::span<const DecodeRow> engineCountRows() { return CountRows; }
std::span<const EngineRow> engineRows() { return Rows; }

}  // namespace vorlent
