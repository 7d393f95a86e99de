#include "simulator/dynamics/Aerodynamics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/units.h"

namespace vorlent {
namespace {

constexpr double Slowest_m_s = 0.1;
constexpr double HighestMach = 0.95;

/// Datcom's formula for the lift slope of a swept wing, but for the factor that cancels out.
double slopeFormula(const AeroData& data, double mach) {
  constexpr double SectionEfficiencySquared = 0.9025;
  const double betaSquared = 1 - mach * mach;
  const double tangent = std::tan((data.quarterChordSweep_deg - 3) * RadiansPerDegree);
  return 1 / (2 + std::sqrt(4 + data.aspectRatio * data.aspectRatio / SectionEfficiencySquared *
                                    (betaSquared + tangent * tangent)));
}

/// Share of the induced drag that the ground leaves (McCormick, Aerodynamics, Aeronautics and
/// Flight Mechanics).
double inducedShare(const AeroData& data, double height_m) {
  const double ratio = 16 * (std::max(0.0, height_m) + data.wingHeight_m) / data.span_m;
  return ratio * ratio / (1 + ratio * ratio);
}

/// Lift as the angle gives it, rounded towards the maximum and falling behind it; the shares are
/// estimates.
double stalled(double linear, double maximum) {
  constexpr double RoundingFrom = 0.9;
  constexpr double LossPerExcess = 0.5;
  const double from = RoundingFrom * maximum;
  if (linear <= from) return std::max(linear, -0.8 * maximum);
  const double excess = (linear - from) / (maximum - from);
  if (excess <= 2) return from + (maximum - from) * (excess - excess * excess / 4);
  return std::max(0.5 * maximum, maximum - LossPerExcess * (excess - 2) * (maximum - from));
}

/// Korn's equation with the sweep of the wing, and Lock's fourth power behind it.
double waveDrag(const AeroData& data, double mach, double lift) {
  const double cosine = std::cos(data.quarterChordSweep_deg * RadiansPerDegree);
  const double divergence = data.airfoilTechnology / cosine -
                            data.thicknessRatio / (cosine * cosine) -
                            std::fabs(lift) / (10 * cosine * cosine * cosine);
  const double critical = divergence - std::cbrt(0.1 / 80);
  const double excess = std::max(0.0, mach - critical);
  return 20 * excess * excess * excess * excess;
}

double pitchCoefficient(const AeroData& data, const FlowState& flow, const Surfaces& s,
                        double height_m) {
  const double slope = data.liftSlope * compressibility(data, flow.mach);
  const double nearGround = 1 - inducedShare(data, height_m);
  // Some 30 degrees, far behind the stall: air from behind must not turn the aircraft over.
  constexpr double Most_rad = 0.5;
  const double attack_rad = std::clamp(flow.attack_rad, -Most_rad, Most_rad);
  return data.pitchAtZeroAngle - data.staticMargin * slope * attack_rad +
         atFlaps(data.flapPitch, s.flaps_deg) + data.gearPitch * s.gear +
         data.spoilerPitch * s.spoilers + data.groundEffectPitch * nearGround +
         data.pitchPerStabiliser * s.stabiliser_deg * RadiansPerDegree -
         data.pitchPerElevator * s.elevator_deg * RadiansPerDegree;
}

Vector3 forces(const AeroData& data, const FlowState& flow, const LiftAndDrag& c,
               const Surfaces& s) {
  const double area_N = flow.dynamicPressure_Pa * data.wingArea_m2;
  const double beta = flow.sideslip_rad;
  const double drag_N = area_N * (c.drag + data.sideslipDrag * beta * beta);
  const double lift_N = area_N * c.lift;
  const double sine = std::sin(flow.attack_rad);
  const double cosine = std::cos(flow.attack_rad);
  return {lift_N * sine - drag_N * cosine,
          area_N * (data.sideForcePerSideslip * beta +
                    data.sideForcePerRudder * s.rudder_deg * RadiansPerDegree),
          -lift_N * cosine - drag_N * sine};
}

/// Of angles and surfaces; grows with the dynamic pressure.
Vector3 steadyMoment(const AeroData& data, const FlowState& flow, const LiftAndDrag& c,
                     const Surfaces& s, double height_m) {
  const double area_N = flow.dynamicPressure_Pa * data.wingArea_m2;
  const double beta = flow.sideslip_rad;
  const double rudder = s.rudder_deg * RadiansPerDegree;
  const double rollPerSideslip = data.rollPerSideslip + data.rollPerSideslipAndLift * c.lift;
  return {area_N * data.span_m *
              (rollPerSideslip * beta + data.rollOfFullAileron * s.aileron +
               data.rollPerRudder * rudder),
          area_N * data.chord_m * pitchCoefficient(data, flow, s, height_m),
          area_N * data.span_m *
              (data.yawPerSideslip * beta + data.yawOfFullAileron * s.aileron +
               data.yawPerRudder * rudder)};
}

/// Of the rates; grows with the speed, not with its square: the factor is the dynamic pressure over
/// twice the speed.
Vector3 dampingMoment(const AeroData& data, const FlowState& flow, double lift,
                      const AirMotion& motion) {
  const Vector3& w = motion.rates_rad_s;
  const double factor = 0.25 * motion.air.density_kg_m3 * flow.speed_m_s * data.wingArea_m2;
  const double alongSpan = factor * data.span_m * data.span_m;
  const double rollPerYaw = data.rollPerYawRate + data.rollPerYawRateAndLift * lift;
  const double yawPerYaw = data.yawDamping + data.yawDampingPerLiftSquared * lift * lift;
  return {
      alongSpan * (data.rollDamping * compressibility(data, flow.mach) * w.x + rollPerYaw * w.z),
      factor * data.chord_m * data.chord_m * data.pitchDamping * w.y,
      alongSpan * (data.yawPerRollRateAndLift * lift * w.x + yawPerYaw * w.z)};
}

}  // namespace

double compressibility(const AeroData& data, double mach) {
  return slopeFormula(data, std::min(mach, HighestMach)) / slopeFormula(data, 0);
}

double aileronLeft(const ControlData& data, double dynamicPressure_Pa) {
  return 1 / (1 + dynamicPressure_Pa / data.aileronHalvedAt_Pa);
}

FlowState flowOf(const AirMotion& motion) {
  FlowState flow{};
  flow.speed_m_s = length(motion.velocity_m_s);
  flow.mach = flow.speed_m_s / motion.air.soundSpeed_m_s;
  flow.dynamicPressure_Pa = 0.5 * motion.air.density_kg_m3 * flow.speed_m_s * flow.speed_m_s;
  if (flow.speed_m_s < Slowest_m_s) return flow;
  flow.attack_rad = std::atan2(motion.velocity_m_s.z, motion.velocity_m_s.x);
  flow.sideslip_rad = std::asin(std::clamp(motion.velocity_m_s.y / flow.speed_m_s, -1.0, 1.0));
  return flow;
}

LiftAndDrag liftAndDrag(const AeroData& data, const FlowState& flow, const Surfaces& s,
                        double height_m) {
  constexpr double GroundLift = 0.10;  // of the lift slope, at the ground: estimate
  const double slope = data.liftSlope * compressibility(data, flow.mach);
  const double share = inducedShare(data, height_m);
  const double angle_rad = flow.attack_rad - data.zeroLiftAngle_deg * RadiansPerDegree;
  const double wing = stalled(
      slope * angle_rad * (1 + GroundLift * (1 - share)) + atFlaps(data.flapLift, s.flaps_deg),
      atFlaps(data.maximumLift, s.flaps_deg));
  const double lift = wing + data.spoilerLift * s.spoilers +
                      data.liftPerStabiliser * s.stabiliser_deg * RadiansPerDegree -
                      data.liftPerElevator * s.elevator_deg * RadiansPerDegree;
  const double induced =
      lift * lift / (std::numbers::pi * data.aspectRatio * data.spanEfficiency) * share;
  return {lift, data.parasiteDrag + induced + waveDrag(data, flow.mach, lift) +
                    atFlaps(data.flapDrag, s.flaps_deg) + data.gearDrag * s.gear +
                    data.spoilerDrag * s.spoilers};
}

Load airLoad(const AeroData& data, const AirMotion& motion, const Surfaces& surfaces) {
  const FlowState flow = flowOf(motion);
  const LiftAndDrag c = liftAndDrag(data, flow, surfaces, motion.height_m);
  return {forces(data, flow, c, surfaces), steadyMoment(data, flow, c, surfaces, motion.height_m) +
                                               dampingMoment(data, flow, c.lift, motion)};
}

}  // namespace vorlent
