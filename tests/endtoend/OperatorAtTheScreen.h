#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "endtoend/Cockpit.h"
#include "endtoend/Desktop.h"

namespace vorlent {

/// Before the windows of a server, with nothing but mouse and keys.
class OperatorAtTheScreen : public testing::Test {
 protected:
  static inline const std::string Main = "^Vorlent", Panel = "^Test MCP",
                                  NewAircraft = "^New aircraft";

  void startWindows();
  /// Puts the autopilot on by the panel and has it turn east; the panel stays open.
  void turnByThePanel();
  /// 737-900, after which the other one is still chosen.
  void makeAnAircraft();

  Cockpit cockpit;
  Desktop desktop;
  std::unique_ptr<Process> server;
};

}  // namespace vorlent
