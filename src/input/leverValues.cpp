#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "core/Server.h"
#include "input/LeverTable.h"
#include "input/frequencies.h"

namespace vorlent {
namespace {

std::int16_t wholePercent(const LeverReading& lever) { return toInt16(lever.travel() * 100); }

/// 0 to `Top`, in whole steps, counted from `Bottom`.
template <int Top, int Bottom = 0>
AnalogResult whole(const LeverReading& lever) {
  return toInt16(toInt16(lever.travel() * Top) + Bottom);
}

/// 0 to `Top`, without steps.
template <int Top>
AnalogResult real(const LeverReading& lever) {
  return toSingle(lever.travel() * Top);
}

/// `Width` from end to end, 0 in the middle.
template <int Width>
AnalogResult aroundMiddle(const LeverReading& lever) {
  return toSingle(lever.fromMiddle() * Width / AnalogMax);
}

AnalogResult forward(const LeverReading& lever) { return toSingle(lever.fromMiddle()); }
AnalogResult backward(const LeverReading& lever) { return toSingle(0 - lever.fromMiddle()); }

/// Altitudes step by 500 ft.
template <int Top_1000ft>
AnalogResult altitude(const LeverReading& lever) {
  const double thousands = lever.travel() * Top_1000ft;
  const double below = std::trunc(thousands);
  return toSingle((thousands - below > 0.5 ? below + 0.5 : below) * 1000);
}

/// `Width` hundreds of feet per minute from end to end; down is the upper end of the travel.
template <int Width>
AnalogResult verticalSpeed(const LeverReading& lever) {
  return toSingle(std::trunc((0 - lever.fromMiddle()) / AnalogMax * Width) * 100);
}

/// A pedal that rests a little off its stop does not brake.
AnalogResult brake(const LeverReading& lever) {
  constexpr float Slack = 2000;
  return toInt16(lever.value > Slack ? lever.value : 0);
}

AnalogResult comFraction(const LeverReading& lever) {
  return ComFraction(toSingle(lever.travel() * 0.975));
}
AnalogResult navFraction(const LeverReading& lever) {
  return NavFraction(toSingle(lever.travel() * 0.999));
}

AnalogResult magneto(const LeverReading& lever) { return toInt16(lever.travel() * 4 - 0.5); }

/// Courses step by 2 degrees.
AnalogResult obs(const LeverReading& lever) {
  std::int16_t degrees = toInt16(lever.travel() * 370);
  if (degrees % 2 != 0) ++degrees;
  if (degrees > 360) degrees = toInt16(degrees - 360);
  return degrees;
}

using Levers = IndexedArray<std::int16_t, 1, 4>;

/// A simulator may tell more engines than there are levers for.
std::int16_t copiedToAll(Levers& levers, const LeverReading& lever, std::int16_t percent) {
  const int engines = std::min<int>(lever.server.store.EngineCount, Levers::Last);
  for (int engine = 1; engine <= engines; ++engine) levers(engine) = percent;
  return percent;
}

AnalogResult allMixtures(const LeverReading& lever) {
  return copiedToAll(lever.server.store.MixtureLevers, lever, wholePercent(lever));
}

template <int Engine>
AnalogResult mixture(const LeverReading& lever) {
  return lever.server.store.MixtureLevers(Engine) = wholePercent(lever);
}

AnalogResult allThrottles(const LeverReading& lever) {
  return copiedToAll(lever.server.store.ThrottleLevers, lever, wholePercent(lever));
}

template <int Engine>
AnalogResult throttle(const LeverReading& lever) {
  return lever.server.store.ThrottleLevers(Engine) = wholePercent(lever);
}

/// Percent; the lower fifth of the travel is reverse, which goes out without its sign.
std::int16_t throttleWithReverse(const LeverReading& lever) {
  return toInt16(std::fabs(std::nearbyint(lever.travel() * 125 - 25)));
}

AnalogResult allThrottlesWithReverse(const LeverReading& lever) {
  return copiedToAll(lever.server.store.ThrottleLevers, lever, throttleWithReverse(lever));
}

template <int Engine>
AnalogResult throttleWithReverse(const LeverReading& lever) {
  return lever.server.store.ThrottleLevers(Engine) = throttleWithReverse(lever);
}

/// The second engine's is rounded before the fifth is taken off, not after.
AnalogResult secondThrottleWithReverse(const LeverReading& lever) {
  const double percent = std::nearbyint(lever.travel() * 125) - 25;
  return lever.server.store.ThrottleLevers(2) = toInt16(std::fabs(percent));
}

constexpr LeverRow Rows[] = {
    {0, whole<360>},
    {1, whole<9>},
    {2, whole<9>},
    {3, whole<9>},
    {4, whole<9>},
    {5, whole<100, 950>},
    {6, altitude<65>},
    {7, altitude<40>},
    {8, real<360>},
    {9, real<2>},
    {10, whole<500>},
    {11, verticalSpeed<140>},
    {12, verticalSpeed<70>},
    {13, backward},
    {14, backward},
    {15, forward},
    {16, backward},
    {17, brake},
    {18, brake},
    {19, brake},
    {20, whole<18, 118>},
    {21, comFraction},
    {22, flapLever},
    {23, whole<7>},
    {24, whole<2>},
    {25, whole<2>},
    {26, whole<2>},
    {27, whole<2>},
    {28, whole<2>},
    {29, magneto},
    {30, magneto},
    {31, magneto},
    {32, magneto},
    {33, magneto},
    {34, allMixtures},
    {35, mixture<1>},
    {36, mixture<2>},
    {37, mixture<3>},
    {38, mixture<4>},
    {39, whole<9, 108>},
    {40, navFraction},
    {41, whole<9, 108>},
    {42, navFraction},
    {43, whole<100>},
    {44, whole<100>},
    {45, whole<100>},
    {46, whole<100>},
    {47, whole<100>},
    {48, [](const LeverReading& lever) -> AnalogResult { return toInt16(lever.value / 2.0); }},
    {49, allThrottles},
    {50, throttle<1>},
    {51, throttle<2>},
    {52, throttle<3>},
    {53, throttle<4>},
    {54, allThrottlesWithReverse},
    {55, throttleWithReverse<1>},
    {56, secondThrottleWithReverse},
    {57, throttleWithReverse<3>},
    {58, throttleWithReverse<4>},
    {59, obs},
    {60, obs},
    {61, whole<0>},
    {62, whole<4, 1>},
    {63, whole<4, 1>},
    {64, whole<18, 118>},
    {65, comFraction},
    {66, whole<18, 118>},
    {67, comFraction},
    {68, whole<18, 118>},
    {69, comFraction},
    {70, whole<9, 108>},
    {71, navFraction},
    {72, whole<9, 108>},
    {73, navFraction},
    {86, aroundMiddle<500>},
    {87, aroundMiddle<20>},
    {88, aroundMiddle<20>},
    {107, aroundMiddle<80>},
};

}  // namespace

std::span<const LeverRow> leverRows() { return Rows; }

}  // namespace vorlent
