#pragma once

#include <cstdint>

/// The scales of the simulator's interface, for the server as for the programs beside it.
namespace vorlent {

/// A lever, a control surface, the trim, flaps, gear or spoilers at their end.
constexpr std::int16_t FullTravel = 16383;
/// A brake pressed to its end.
constexpr std::int16_t FullBrake = 32767;
/// From one detent of the flap lever to the next, where there are nine.
constexpr std::int16_t NineDetentsIncrement = 2047;

/// A gauge at 100 percent. docs/peculiarities.md: 16383 beside 16384.
constexpr double FullScale = 16384;
constexpr double FullTank = 128 * 65536.0;

/// Metres and degrees in 64 bits: the fraction is in the lower half.
constexpr double FixedPoint = 4294967296.0;

/// Of the latitude, in 32 bits.
constexpr double LatitudeUnitsPerDegree = 111130.53125;

constexpr double Turn16 = 65536;
constexpr double Turn32 = 4294967296.0;
/// docs/peculiarities.md: angles of the ILS.
constexpr double IlsTurn = 65535;

/// A negative number without a sign is that much more. Two's complement is what the
/// interface counts in; one's complement, one less, stands where the server has always counted so:
/// docs/peculiarities.md: 65535 beside 65536.
constexpr double TwosComplement16 = 65536;
constexpr double TwosComplement32 = 4294967296.0;
constexpr double OnesComplement16 = 65535;
/// The highest number without a sign in 16 bits.
constexpr double HighestSigned16 = 32767;

/// The Mach number that the simulator's autopilot holds.
constexpr double UnitsPerMach = 65500;

/// From one engine's record to the next.
constexpr int EngineRecord_bytes = 0x98;

}  // namespace vorlent
