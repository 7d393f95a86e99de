#pragma once

#include "base/controls.h"
#include "platform/FormTimer.h"

namespace vorlent {

class frmConnect;
struct Server;

/// What an operator needs at a glance, as texts that keep in step with the server: the link, the
/// sticks, the sessions, the flight mode annunciator. It reads and changes nothing.
class frmStatus : public Form {
 public:
  explicit frmStatus(Server& server);

  /// From now on the texts are made anew four times a second.
  void start();

  Label lblSimulator{"lblSimulator"};
  Label lblPoll{"lblPoll"};
  Label lblSticks{"lblSticks"};

  // The annunciators in the system's words; a blank one is an empty text.
  Label lblATEngaged{"lblATEngaged"};
  Label lblRollEngaged{"lblRollEngaged"};
  Label lblPitchEngaged{"lblPitchEngaged"};
  Label lblRollArmed{"lblRollArmed"};
  Label lblPitchArmed{"lblPitchArmed"};
  Label lblCwsRoll{"lblCwsRoll"};
  Label lblCwsPitch{"lblCwsPitch"};
  Label lblAutopilot{"lblAutopilot"};

  /// A row for each session, in the order of their slots.
  Table lstSessions{"lstSessions", {"Slot", "Port", "Client", "Address", "Every", "Last word"}};

 private:
  void refresh();
  void showLink();
  void showSticks();
  void showAnnunciators();
  void showSessions();

  Server& server_;
  FormTimer tmrRefresh_;
};

}  // namespace vorlent
