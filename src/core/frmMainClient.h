#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/controls.h"
#include "core/ClientPorts.h"
#include "core/CockpitMenu.h"
#include "core/Configuration.h"
#include "core/HelpMenu.h"
#include "core/StickSwitch.h"
#include "platform/FormTimer.h"
#include "platform/StatusLine.h"

namespace vorlent {

struct Server;

/// The entries of the menu "Settings", by their index.
namespace Setting {
enum : int { AutomaticTq = 0, AircraftSound, FsOnTop, FsMaximized, WriteMcpOffsets, Count };
}

/// The main window: the server's life from Form_Load to the exit, its settings, and the timers that
/// drive it.
class frmMainClient : public Form, public StatusLine {
 public:
  explicit frmMainClient(Server& server);

  /// The whole start, from the tab order to the running measurement.
  void Form_Load();
  // What its parts do, under the names by which it is known.
  void Init() { configuration_.Init(); }
  void SaveCFG() { configuration_.SaveCFG(); }
  void SetSocks() { clientPorts_.SetSocks(); }
  void InitJoystick() { stickSwitch_.InitJoystick(); }
  void SetChkStickValue() { stickSwitch_.SetChkStickValue(); }

  void refillDirlist() { configuration_.refillDirlist(); }

  /// Steps through the entries until one has this text; the last one is selected when none has. The
  /// box's handler runs for the entry that is selected in the end.
  static void SelectComboText(ComboBox& box, const std::string& text);
  void SetStatusText(int panel, const std::string& text) override;
  void WriteLog(std::string_view text) override;
  /// Presses the exit button, as the close box does.
  void close() override { cmdExit4.press(); }

  /// What the first session that comes up sets going; `interval_ms` is the poll's.
  void startPollTimer();
  /// A session has started the polls.
  bool polling() const { return polling_; }
  void startFuelTimer() { FuelTimer_.Enabled(true); }
  void startPausePulse() { tmrPause_.Enabled(true); }
  void killCycleTimer();

  std::string FmcName() const;
  void FmcName(const std::string& name);

  MenuItem& Settings(int index) { return *settings_.at(static_cast<std::size_t>(index)); }
  const MenuItem& Settings(int index) const {
    return *settings_.at(static_cast<std::size_t>(index));
  }
  /// The entries of the other menus, by their arrays' indices. Raises SubscriptOutOfRange.
  MenuItem& mnuFile(int index) { return entry("mnuFile", index); }
  MenuItem& mnuNetwork(int index) { return entry("mnuNetwork", index); }
  MenuItem& mnuAirac(int index) { return entry("mnuAirac", index); }
  MenuItem& mnuHelp(int index) { return entry("mnuHelp", index); }

  // In tab order.
  CheckBox chkStick{"chkStick", "Enable joysticks"};
  TextBox txtSticks{"txtSticks"};
  TextBox txtPoll{"txtPoll"};
  Button cmdStick{"cmdStick", "Stick setup..."};
  ComboBox cboStick{"cboStick"};
  ComboBox cboDir{"cboDir"};
  Button Command1{"Command1", "Templates..."};
  CheckBox chkFuel{"chkFuel", "Enable dual fuel selectors"};
  TextBox txtLeftMain{"txtLeftMain"};
  TextBox txtRightMain{"txtRightMain"};
  TextBox txtLeftAux{"txtLeftAux"};
  TextBox txtRightAux{"txtRightAux"};
  CheckBox chkBrake{"chkBrake", "Steer with differential braking"};
  TextBox txtFlaps{"txtFlaps"};
  CheckBox chkSound{"chkSound", "Enable Aircraft sounds"};
  Button cmdStop{"cmdStop", "Stop"};
  Button cmdExit4{"cmdExit4", "Exit"};

  TextBox txtIP{"txtIP"};
  TextBox txtPort{"txtPort"};
  TextBox txtClients{"txtClients"};
  TextBox txtFuelL{"txtFuelL"};
  TextBox txtFuelR{"txtFuelR"};
  Button cmdSound{"cmdSound", "Sound..."};
  Button cmdStopCts{"cmdStopCts", "Stop Clients"};
  CheckBox chkLog{"chkLog", "Write logfile"};
  Button Command2{"Command2", "Test MCP"};
  Button Image1{"Image1", "Manual"};
  // Out of sight: what they say is set in the menu "Settings".
  CheckBox chkFsTop{"chkFsTop", "FS on top"};
  CheckBox chkFsMax{"chkFsMax", "FS Maximized"};
  StatusBar sbStatusBar{"sbStatusBar", 2};

 private:
  MenuItem& entry(const std::string& menu, int index);
  void addControls();
  void addMenus();
  void setToolTips();
  void wireControls();
  void wireBoxes();
  void wireMenus();
  void Command2Click();
  void FuelTimerTick();
  void changeSpeedUnit();
  void toggleSetting(int index);
  void cmdStopClick();
  void cmdStopCtsClick();
  void cmdExit4Click();
  void saveAll();
  void zeroTrims();
  void findFsuipc();
  void txtClientsChange();
  void tmrTicksTick();
  void tmrPauseTick();

  Server& server_;
  Configuration configuration_;
  ClientPorts clientPorts_;
  StickSwitch stickSwitch_;
  CockpitMenu cockpitMenu_;
  HelpMenu helpMenu_;
  std::uint32_t LastTick_ = 0;
  bool measurementFinished_ = false;
  bool polling_ = false;

  std::array<std::unique_ptr<MenuItem>, Setting::Count> settings_;
  std::vector<std::unique_ptr<MenuItem>> menu_;

  FormTimer tmrTicks_;
  FormTimer tmrPause_;
  FormTimer FuelTimer_;
  std::unique_ptr<Timer> pollTimer_;
  std::unique_ptr<Timer> cycleTimer_;
};

}  // namespace vorlent
