#pragma once

#include <algorithm>
#include <cmath>

#include "base/IndexedArray.h"
#include "base/analogScale.h"
#include "base/numbers.h"
#include "commands/CommandTable.h"
#include "commands/frequencies.h"
#include "store/modPublic.h"

/// What a lever's reading becomes in the unit in which its command takes it.
namespace vorlent::levers {

inline std::int16_t wholePercent(const LeverReading& lever) {
  return toInt16(lever.travel() * 100);
}

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

inline AnalogResult forward(const LeverReading& lever) { return toSingle(lever.fromMiddle()); }
inline AnalogResult backward(const LeverReading& lever) { return toSingle(0 - lever.fromMiddle()); }

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
inline AnalogResult brake(const LeverReading& lever) {
  constexpr float Slack = 2000;
  return toInt16(lever.value > Slack ? lever.value : 0);
}

inline AnalogResult comFraction(const LeverReading& lever) {
  return ComFraction(toSingle(lever.travel() * 0.975));
}
inline AnalogResult navFraction(const LeverReading& lever) {
  return NavFraction(toSingle(lever.travel() * 0.999));
}

inline AnalogResult magneto(const LeverReading& lever) { return toInt16(lever.travel() * 4 - 0.5); }

/// Courses step by 2 degrees.
inline AnalogResult obs(const LeverReading& lever) {
  std::int16_t degrees = toInt16(lever.travel() * 370);
  if (degrees % 2 != 0) ++degrees;
  if (degrees > 360) degrees = toInt16(degrees - 360);
  return degrees;
}

using Levers = IndexedArray<std::int16_t, 1, 4>;

/// A simulator may tell more engines than there are levers for.
inline std::int16_t copiedToAll(Levers& levers, const LeverReading& lever, std::int16_t percent) {
  const int engines = std::min<int>(lever.store.EngineCount, Levers::Last);
  for (int engine = 1; engine <= engines; ++engine) levers(engine) = percent;
  return percent;
}

inline AnalogResult allMixtures(const LeverReading& lever) {
  return copiedToAll(lever.store.MixtureLevers, lever, wholePercent(lever));
}

template <int Engine>
AnalogResult mixture(const LeverReading& lever) {
  return lever.store.MixtureLevers(Engine) = wholePercent(lever);
}

inline AnalogResult allThrottles(const LeverReading& lever) {
  return copiedToAll(lever.store.ThrottleLevers, lever, wholePercent(lever));
}

template <int Engine>
AnalogResult throttle(const LeverReading& lever) {
  return lever.store.ThrottleLevers(Engine) = wholePercent(lever);
}

/// Percent; the lower fifth of the travel is reverse, which goes out without its sign.
inline std::int16_t throttleWithReverse(const LeverReading& lever) {
  return toInt16(std::fabs(std::nearbyint(lever.travel() * 125 - 25)));
}

inline AnalogResult allThrottlesWithReverse(const LeverReading& lever) {
  return copiedToAll(lever.store.ThrottleLevers, lever, throttleWithReverse(lever));
}

template <int Engine>
AnalogResult throttleWithReverse(const LeverReading& lever) {
  return lever.store.ThrottleLevers(Engine) = throttleWithReverse(lever);
}

/// The second engine's is rounded before the fifth is taken off, not after.
inline AnalogResult secondThrottleWithReverse(const LeverReading& lever) {
  const double percent = std::nearbyint(lever.travel() * 125) - 25;
  return lever.store.ThrottleLevers(2) = toInt16(std::fabs(percent));
}

/// In the simulator's units of travel.
inline AnalogResult halfTravel(const LeverReading& lever) { return toInt16(lever.value / 2.0); }

/// The flap lever: the detent in which it stands as a position of the simulator's flap lever,
/// 0..16383.
AnalogResult flaps(const LeverReading& lever);

}  // namespace vorlent::levers
