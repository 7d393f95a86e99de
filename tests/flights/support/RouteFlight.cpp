#include "RouteFlight.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorlent {
namespace {

/// How often the display looks at ACTIVE.
constexpr double look_s = 1;

}  // namespace

RouteFlight::RouteFlight(const Condition& condition, Route route, const std::string& tuning,
                         const PerfDataRow& performance)
    : flight_(condition, tuning, performance),
      profile_(std::move(route)),
      route_(waypointsOf(profile_)) {
  hand();
  fly(look_s);
}

void RouteFlight::hand() {
  const auto behind = std::ranges::find(profile_, from().name, &RoutePoint::name);
  flight_.share("EXEC", planFileText(route_, active_ - 1));
  flight_.share("PROF",
                planFileText(profile_, static_cast<std::size_t>(behind - profile_.begin())));
  flight_.press(Press::ExecutePlan);
}

void RouteFlight::answer() {
  const std::string announced = flight_.takeActive();
  if (announced.empty() || active_ + 1 >= route_.size()) return;
  if (announced != route_[active_ + 1].name) return;
  ++active_;
  hand();
}

void RouteFlight::fly(double duration_s) {
  for (long n = std::lround(duration_s / look_s); n > 0; --n) {
    flight_.fly(look_s);
    answer();
  }
}

bool RouteFlight::flyUntil(const std::function<bool()>& condition, double limit_s) {
  for (long n = std::lround(limit_s / look_s); n > 0 && !condition(); --n) fly(look_s);
  return condition();
}

double RouteFlight::crossTrack_nm(const Sample& sample) const {
  return vorlent::crossTrack_nm(from().place, to().place,
                                {sample.latitude_deg, sample.longitude_deg});
}

}  // namespace vorlent
