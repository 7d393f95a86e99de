#include "RouteFlight.h"

#include <cmath>
#include <utility>

namespace vorlent {
namespace {

/// How often the display looks at ACTIVE.
constexpr double look_s = 0.2;

}  // namespace

RouteFlight::RouteFlight(const Condition& condition, FlownRoute route, const std::string& tuning,
                         const PerfDataRow& performance)
    : flight_(condition, tuning, performance), route_(std::move(route)) {
  hand();
  // The next cycle reads it.
  fly(1);
}

void RouteFlight::hand() {
  const std::string text = planFileText(route_, active_ - 1);
  flight_.share("EXEC", text);
  flight_.share("PROF", text);
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
