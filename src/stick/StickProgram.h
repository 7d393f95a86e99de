#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/StickDevice.h"
#include "stick/StickOptions.h"

namespace vorlent {

/// Takes a stick's state through its steps.
class StickProgram {
 public:
  static constexpr int TapDuration_ms = 100;
  static constexpr int SweepInterval_ms = 10;

  StickProgram(StickDevice& device, std::function<void(const std::string&)> complain)
      : device_(device), complain_(std::move(complain)) {}

  /// The steps, then the lines of the input or the time to hold. A line that is wrong is complained
  /// about and changes nothing.
  void run(const StickOptions& options);

 private:
  /// Each gives false when the end has come.
  bool carryOut(const std::vector<Step>& steps);
  bool carryOut(const SetAxis& step);
  bool carryOut(const SetButton& step);
  bool carryOut(const Tap& step);
  bool carryOut(const Sweep& step);
  bool carryOut(const Wait& step);
  bool carryOut(const Await& step);
  void readLines();

  StickDevice& device_;
  std::function<void(const std::string&)> complain_;
  ControllerState state_;
};

}  // namespace vorlent
