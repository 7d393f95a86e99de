#include "base/numbers.h"
#include "simlink/decodeRows.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

double percent(double x) { return x * 100 / FullScale; }

bool isTurboprop(const modPublic& v) { return v.EngineType == 5; }

/// Out of the engine's block of doubles.
constexpr TypedRead turbine(std::uint16_t offset) { return engine(F64(offset), 0x100); }

constexpr XPlaneRow CountRows[] = {
    {"EngineCount", {U8(0x0AEC)}, [](auto& in, auto& v) { set(v.EngineCount, in[0]); }},
    {"EngineCount2", {U8(0x0AEC)}, [](auto& in, auto& v) { set(v.EngineCount2, in[0]); }},
    {"EngineTypeRaw", {U8(0x0609)}, [](auto& in, auto& v) { set(v.EngineTypeRaw, in[0]); }},
    {"EngineType", {}, [](auto&, auto& v) { v.EngineType = v.EngineTypeRaw; }},
    {"EngineCombustionBits",
     {U8(0x0889)},
     [](auto& in, auto& v) { set(v.EngineCombustionBits, in[0]); }},
};

constexpr XPlaneEngineRow Rows[] = {
    {"ThrustLever",
     {engine(S16(0x088C))},
     [](auto& in, auto&, auto& e) {
       // docs/peculiarities.md: thrust lever fold.
       set(e.ThrustLever, folded(percent(in[0]), 100, 399));
     }},
    {"PropValue",
     {engine(S16(0x088E)), turbine(0x2408)},
     [](auto& in, auto&, auto& e) {
       set(e.PropValue, percent(in[0]));
       set(e.PropValue, in[1]);
     }},
    {"Mixture",
     {engine(S16(0x0890))},
     [](auto& in, auto&, auto& e) { set(e.Mixture, percent(in[0])); }},
    {"Starter", {engine(U8(0x0892))}, [](auto& in, auto&, auto& e) { set(e.Starter, in[0]); }},
    {"Combustion",
     {engine(U8(0x0894))},
     [](auto& in, auto&, auto& e) { set(e.Combustion, in[0]); }},
    {"N2", {engine(S16(0x0896))}, [](auto& in, auto&, auto& e) { set(e.N2, percent(in[0])); }},
    {"N1",
     {engine(S16(0x0898)), turbine(0x2010)},
     [](auto& in, auto& v, auto& e) { set(e.N1, isTurboprop(v) ? in[1] : percent(in[0])); }},
    {"Epr",
     {engine(S16(0x08A8))},
     [](auto& in, auto&, auto& e) { set(e.Epr, in[0] * 16 / FullScale); }},
    {"AntiIce", {engine(U8(0x08B2))}, [](auto& in, auto&, auto& e) { set(e.AntiIce, in[0]); }},
    {"OilTemp",
     {engine(U8(0x08B8)), engine(U8(0x08B9))},
     [](auto& in, auto&, auto& e) {
       // docs/peculiarities.md: oil temperature sign.
       set(e.OilTemp, (folded(in[1], 128, 256) + in[0] / 256) * 1.4 / 0.64);
     }},
    {"OilPressure",
     {engine(S16(0x08BA))},
     [](auto& in, auto&, auto& e) { set(e.OilPressure, in[0] * 55 / FullScale); }},
    {"Egt",
     {engine(S16(0x08BE))},
     [](auto& in, auto&, auto& e) { set(e.Egt, FahrenheitToCelsius(in[0] * 860 / FullScale)); }},
    {"Word08C0",
     {engine(U16(0x08C0))},
     [](auto& in, auto&, auto& e) { set(e.Word08C0, in[0] / 256 * 0.1652 / 0.64); }},
    {"OilQuantity",
     {engine(S16(0x08D0))},
     [](auto& in, auto&, auto& e) { set(e.OilQuantity, percent(in[0])); }},
    {"Vibration",
     {engine(U16(0x08D4))},
     [](auto& in, auto&, auto& e) { set(e.Vibration, in[0] * 5 / FullScale); }},
    {"HydPressure",
     {engine(U16(0x08D8))},
     [](auto& in, auto&, auto& e) { set(e.HydPressure, in[0] / 4); }},
    {"HydQuantity",
     {engine(U16(0x08DC))},
     [](auto& in, auto&, auto& e) { set(e.HydQuantity, percent(in[0])); }},
    {"Cht", {engine(F64(0x08E8))}, [](auto& in, auto&, auto& e) { set(e.Cht, in[0]); }},
    {"Itt",
     {engine(S16(0x08F0)), turbine(0x2038)},
     [](auto& in, auto& v, auto& e) {
       set(e.Itt,
           FahrenheitToCelsius(isModern(v) ? in[1] - RankineAtZeroFahrenheit : percent(in[0])));
     }},
    {"Torque",
     {engine(S16(0x08F4))},
     [](auto& in, auto&, auto& e) { set(e.Torque, in[0] / FullScale); }},
    {"Word08F8",
     {engine(S16(0x08F8))},
     [](auto& in, auto&, auto& e) { set(e.Word08F8, percent(in[0])); }},
    {"Word0908",
     {engine(U16(0x0908))},
     [](auto& in, auto&, auto& e) { set(e.Word0908, in[0] / FullScale * 100); }},
    {"FuelFlow",
     {engine(F64(0x0918)), turbine(0x2060)},
     [](auto& in, auto& v, auto& e) {
       set(e.FuelFlow, isTurboprop(v) && isModern(v) ? in[1] : in[0]);
     }},
    {"GeneratorA",
     {engine(F64(0x2880), 0x10)},
     [](auto& in, auto&, auto& e) { set(e.GeneratorA, in[0]); }},
    {"GeneratorB",
     {engine(F64(0x2888), 0x10)},
     [](auto& in, auto&, auto& e) { set(e.GeneratorB, in[0]); }},
};

}  // namespace

std::span<const XPlaneRow> xplaneEngineCountRows() { return CountRows; }
std::span<const XPlaneEngineRow> xplaneEngineRows() { return Rows; }

}  // namespace vorlent
