#include "support/sticks.h"

#include <stdexcept>

namespace vorlent {

void furnishSticks(const Cockpit& cockpit, const std::string& stickFile, int period_ms) {
  for (const std::string name : {"anasort.txt", "togsort.txt", "butsort.txt", "encoder.txt"})
    cockpit.folder.write(name, "Nothing,0\r\n");
  for (int stick = 0; stick < MostSticks; ++stick)
    cockpit.folder.write("Cockpits/737-700/stick/stick" + std::to_string(stick) + ".cfg",
                         stickFile);
  cockpit.configure("Joysticks", std::to_string(MostSticks));
  cockpit.configure("Polling", std::to_string(period_ms));
}

void startSticks(const Cockpit& cockpit, int count) {
  cockpit.server->type("press frmMainClient.chkStick");
  if (!cockpit.server->waitForLine("InitJoystick " + std::to_string(count - 1)))
    throw std::runtime_error("the sticks do not start: " + cockpit.server->output());
}

}  // namespace vorlent
