#include "web/PlanWatch.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "flightplan/PlanFile.h"
#include "web/json.h"

namespace vorlent {
namespace {

constexpr int Look_ms = 1000;
/// A route of a thousand waypoints: a plan that is longer is not drawn.
constexpr std::size_t LargestFile_bytes = std::size_t{256} * 1024;

/// Empty when it cannot be read, as while it is being written.
std::string textOf(const std::string& path) {
  try {
    return readFileUpTo(path, LargestFile_bytes).value_or("");
  } catch (const RuntimeError&) {
    return "";
  }
}

}  // namespace

PlanWatch::PlanWatch(EventLoop& loop, const std::string& share,
                     std::function<void(const std::string&)> onPlan)
    : folder_(joinedPath(share, "FMS")),
      onPlan_(std::move(onPlan)),
      timer_(loop.createTimer([this] { look(); })) {}

void PlanWatch::start() {
  look();
  timer_->start(Look_ms);
}

void PlanWatch::look() {
  std::string message = planMessage(readPlanFile(textOf(joinedPath(folder_, "EXEC"))),
                                    readPlanFile(textOf(joinedPath(folder_, "PROF"))));
  if (message == last_) return;
  last_ = std::move(message);
  onPlan_(last_);
}

}  // namespace vorlent
