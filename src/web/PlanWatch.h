#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/EventLoop.h"

namespace vorlent {

/// Looks once a second for the flight plan in a display's share, and tells it when it is another.
class PlanWatch {
 public:
  /// `share` is the folder that holds `FMS`; `onPlan` is given what planMessage() makes of it.
  PlanWatch(EventLoop& loop, const std::string& share,
            std::function<void(const std::string& message)> onPlan);

  void start();

 private:
  void look();

  std::string folder_;
  std::function<void(const std::string&)> onPlan_;
  std::string last_;
  std::unique_ptr<Timer> timer_;
};

}  // namespace vorlent
