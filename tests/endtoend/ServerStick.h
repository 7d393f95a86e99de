#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "support/Sticks.h"
#include "support/eventually.h"

namespace vorlent {

/// The whole server with a virtual stick, which stands behind the machine's own boards if it has
/// any.
class ServerStick : public testing::Test {
 protected:
  static constexpr int Polling_ms = 20;

  /// Brings everything up; each stick of the server has this file.
  void startWith(const std::string& stickFile, const std::vector<std::string>& steps) {
    cockpit.addProgram("vorlent-stick");
    for (int i = 0; i < 8; ++i) cockpit.folder.write(stickFileOf(i), stickFile);
    cockpit.configure("Joysticks", "8");
    cockpit.configure("Polling", std::to_string(Polling_ms));
    cockpit.startSimulator();
    cockpit.bringServerUp();
    plugIn(steps);
    cockpit.server->type("press frmMainClient.chkStick");
    require(*cockpit.server, "=");
    number = answerTo("get frmMainClient.txtSticks").substr(2);
  }
  void plugIn(std::vector<std::string> steps) {
    steps.insert(steps.begin(), {"--name", "yoke"});
    stick = cockpit.program("vorlent-stick", steps);
    require(*stick, "ready");
  }
  std::string answerTo(const std::string& command) const {
    cockpit.server->type(command);
    return cockpit.server->waitForLine("= ").value_or("no answer");
  }
  /// The value of the first axis comes to be this.
  bool shows(const std::string& value) const {
    const std::string form = "frmCStick(" + std::to_string(std::stoi(number) - 1) + ")";
    return eventually([&] { return answerTo("get " + form + ".txtValue(0)") == "= " + value; });
  }

  Cockpit cockpit;
  std::unique_ptr<Process> stick;
  std::string number;  ///< of the virtual stick, from 1

 private:
  static void require(Process& program, const std::string& line) {
    if (!program.waitForLine(line))
      throw std::runtime_error("not as expected: " + program.output());
  }
};

}  // namespace vorlent
