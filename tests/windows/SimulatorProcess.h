#pragma once

#include <string>
#include <vector>

#include "support/places.h"
#include "windows/support/Program.h"

namespace vorlent {

/// The program SimulatorSide, running, ready when the constructor returns. It ends with this
/// object, and with this process.
class SimulatorProcess {
 public:
  /// `arguments` as the program takes them.
  explicit SimulatorProcess(const std::vector<std::string>& arguments = {"UIPCMAIN"},
                            const std::string& program = "SimulatorSide")
      : program_(programsFolder() + "/" + program, arguments),
        greeting_(program_.waitForLine("").value_or("")) {}

  /// What it said first: "ready", unless something was wrong.
  const std::string& greeting() const { return greeting_; }
  /// Lets SimulatorSide go on with a request that hangs.
  void goOn() const { program_.type(""); }
  /// Ends it and waits until it is gone.
  void end() {
    program_.kill();
    program_.waitForEnd();
  }

 private:
  Program program_;
  std::string greeting_;
};

}  // namespace vorlent
