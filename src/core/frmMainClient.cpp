#include "core/frmMainClient.h"

#include <array>
#include <initializer_list>

#include "base/FirstFault.h"
#include "base/ProcessEnd.h"
#include "base/numbers.h"
#include "base/text.h"
#include "clientlink/frmConnect.h"
#include "core/Server.h"
#include "core/boxRules.h"
#include "core/modMain.h"
#include "core/singletons.h"
#include "core/telling.h"
#include "mcp/frmTestMCP.h"
#include "platform/Operator.h"

namespace vorlent {
namespace {

constexpr int MeasurePeriod_ms = 400;
constexpr int PausePulse_ms = 1000;
constexpr int FuelPeriod_ms = 30000;
constexpr int PollPeriod_ms = 60;
constexpr int MeasurementsNeeded = 3;

constexpr std::array SettingsCaptions = {"&Automatic TQ", "&Enable acft sound", "FS on &top",
                                         "FS &maximized", "&Write MCP offsets"};

/// The other menus, as they are seen from top to bottom.
struct MenuRow {
  const char* name;
  const char* caption;
};
constexpr MenuRow Menu[] = {
    {"mnuFile(0)", "&Import 6.x panels"},
    {"mnuFile(1)", "&Save as Template"},
    {"mnuFile(3)", "Export &cockpit..."},
    {"mnuFile(4)", "Im&port cockpit..."},
    {"mnuFile(2)", "&Exit"},
    {"mnuNetwork(0)", "&Rescan"},
    {"mnuNetwork(1)", "&Find FSUIPC"},
    {"mnuAirac(0)", "&Status"},
    {"mnuHelp(0)", "&Manual"},
    {"mnuHelp(1)", "-"},
    {"mnuHelp(2)", "&Show checklist"},
};

/// Between these, both excluded, each beat turns the speed's unit over.
constexpr double ChangeoverFrom_Mach = 0.59;
constexpr double ChangeoverTo_Mach = 0.60;

}  // namespace

frmMainClient::frmMainClient(Server& server)
    : Form("frmMainClient"),
      server_(server),
      configuration_(server, *this),
      clientPorts_(server, *this),
      stickSwitch_(server, *this),
      cockpitMenu_(server, *this),
      helpMenu_(server),
      tmrTicks_(server.ports.eventLoop, MeasurePeriod_ms,
                server.failureDomain.guarded([this] { tmrTicksTick(); })),
      tmrPause_(server.ports.eventLoop, PausePulse_ms,
                server.failureDomain.guarded([this] { tmrPauseTick(); })),
      FuelTimer_(server.ports.eventLoop, FuelPeriod_ms,
                 server.failureDomain.guarded([this] { FuelTimerTick(); })),
      pollTimer_(server.ports.eventLoop.createTimer(
          server.failureDomain.guarded([&server] { server.main->PollDispatch(); }))),
      cycleTimer_(server.ports.eventLoop.createTimer(
          server.failureDomain.guarded([&server] { server.main->CycleCallback(); }))) {
  for (std::size_t i = 0; i < settings_.size(); ++i)
    settings_[i] =
        std::make_unique<MenuItem>("Settings(" + std::to_string(i) + ")", SettingsCaptions[i]);
  Caption("Vorlent");
  addControls();
  addMenus();
  setToolTips();
  wireControls();
  wireBoxes();
  wireMenus();
  setBoxRules(*this, server.store);
}

void frmMainClient::addControls() {
  for (Control* control : std::initializer_list<Control*>{
           &chkStick, &txtSticks,  &txtPoll,     &cmdStick,     &cboStick,   &cboDir,
           &Command1, &chkFuel,    &txtLeftMain, &txtRightMain, &txtLeftAux, &txtRightAux,
           &chkBrake, &txtFlaps,   &chkSound,    &cmdStop,      &cmdExit4,   &txtIP,
           &txtPort,  &txtClients, &txtFuelL,    &txtFuelR,     &cmdSound,   &cmdStopCts,
           &chkLog,   &Command2,   &Image1,      &chkFsTop,     &chkFsMax,   &sbStatusBar})
    add(*control);
  for (Control* hidden : std::initializer_list<Control*>{&txtFlaps, &chkFsTop, &chkFsMax})
    hidden->Visible(false);
  for (TextBox* display : {&txtFuelL, &txtFuelR}) display->Locked(true);
  cmdStick.Enabled(false);
}

void frmMainClient::addMenus() {
  for (const MenuRow& row : Menu)
    menu_.push_back(std::make_unique<MenuItem>(row.name, row.caption));
  for (const auto& item : menu_) add(*item);
  for (const auto& item : settings_) add(*item);
}

MenuItem& frmMainClient::entry(const std::string& menu, int index) {
  auto* item = dynamic_cast<MenuItem*>(control(menu + "(" + std::to_string(index) + ")"));
  if (item == nullptr) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  return *item;
}

void frmMainClient::setToolTips() {
  txtIP.ToolTipText("Empty box and restart wil read IP address");
  txtPort.ToolTipText("Lowest port value (for 1st client)");
  txtClients.ToolTipText("How many clients you connect");
  txtPoll.ToolTipText("Get stick data interval");
  txtSticks.ToolTipText("How many to use");
  cboStick.ToolTipText("Which one to set");
  cmdStick.ToolTipText("Assign FS functions to axes, buttons");
  chkStick.ToolTipText("Local sticks on");
  cboDir.ToolTipText("Aiircraft must match FS aircraft");
  Command1.ToolTipText("Create new a/c from template");
  txtFlaps.ToolTipText("Enter flap positions comma separated for joystick input (max 16)");
  chkFuel.ToolTipText("Supports a fuel selector for each engine (2-engines only)");
  txtFuelL.ToolTipText("Selector 1");
  txtFuelR.ToolTipText("Selector 2");
  Command2.ToolTipText("Work the autopilot without hardware");
  Image1.ToolTipText("Opens the manual");
}

void frmMainClient::wireControls() {
  chkStick.Value.onChange([this] { stickSwitch_.switchSticks(); });
  cmdStick.onClick([this] { stickSwitch_.showStick(); });
  txtSticks.Text.onChange([this] { stickSwitch_.limitCount(); });
  chkLog.Value.onChange([this] { server_.store.LogVerbose = chkLog.Value() == 1; });
  cmdSound.onClick([this] { server_.soundForm->showModal(); });
  cmdStop.onClick([this] { cmdStopClick(); });
  cmdStopCts.onClick([this] { cmdStopCtsClick(); });
  cmdExit4.onClick([this] { cmdExit4Click(); });
  cboDir.ListIndex.onChange([this] {
    if (!configuration_.initialising()) cockpitMenu_.change();
  });
  Command1.onClick([this] { cockpitMenu_.showNew(); });
  Command2.onClick([this] { Command2Click(); });
  Image1.onClick([this] { helpMenu_.showManual(); });
}

/// A box that is emptied, or filled with what is no number, is empty. That of the interval shows 0.
void frmMainClient::wireBoxes() {
  const auto filtered = [](const TextBox& box) {
    return FilterNumber(box.Text(), DotMode::NoDot, false);
  };
  txtPoll.Text.onChange([this, filtered] { txtPoll.Text.setQuietly(filtered(txtPoll)); });
  txtPort.Text.onChange([this, filtered] {
    if (!txtPort.Text().empty()) txtPort.Text.setQuietly(filtered(txtPort));
  });
  txtClients.Text.onChange([this] { txtClientsChange(); });
  txtPort.onLostFocus([this] { clientPorts_.takeBasePort(); });
  txtIP.onLostFocus([this] { clientPorts_.takeAddress(); });
}

void frmMainClient::wireMenus() {
  for (int i = 0; i < static_cast<int>(settings_.size()); ++i)
    Settings(i).onClick([this, i] { toggleSetting(i); });
  mnuFile(0).onClick([this] { cockpitMenu_.showImportOld(); });
  mnuFile(1).onClick([this] { cockpitMenu_.showSave(); });
  mnuFile(2).onClick([this] { cmdExit4.press(); });
  mnuFile(3).onClick([this] { cockpitMenu_.showExport(); });
  mnuFile(4).onClick([this] { cockpitMenu_.showImport(); });
  mnuNetwork(0).onClick([this] {
    server_.ports.op.pointer(Pointer::Hourglass);
    SetSocks();
    server_.ports.op.pointer(Pointer::Normal);
  });
  mnuNetwork(1).onClick([this] { findFsuipc(); });
  mnuAirac(0).onClick([this] { helpMenu_.showAiracStatus(); });
  mnuHelp(0).onClick([this] { helpMenu_.showManual(); });
  mnuHelp(2).onClick([this] { helpMenu_.showCheckList(); });
}

void frmMainClient::SetStatusText(int panel, const std::string& text) {
  if (trimmed(text).empty()) return;
  sbStatusBar.panelText(panel, text);
  if (panel == 1) server_.log.WriteLog(text);
}

void frmMainClient::WriteLog(std::string_view text) { server_.log.WriteLog(text); }

std::string frmMainClient::FmcName() const { return server_.store.FmcName; }
void frmMainClient::FmcName(const std::string& name) { server_.store.FmcName = name; }

void frmMainClient::SelectComboText(ComboBox& box, const std::string& text) {
  const int found = box.indexOf(text);
  box.ListIndex(found >= 0 ? found : static_cast<int>(box.Items().size()) - 1);
}

void frmMainClient::startPollTimer() {
  pollTimer_->start(PollPeriod_ms);
  polling_ = true;
}

void frmMainClient::killCycleTimer() { cycleTimer_->stop(); }

void frmMainClient::toggleSetting(int index) {
  MenuItem& entry = Settings(index);
  entry.Checked(!entry.Checked());
  if (index == Setting::AircraftSound) cmdSound.Enabled(entry.Checked());
  if (index == Setting::WriteMcpOffsets && server_.accessors.autoP)
    server_.accessors.autoP->Do_Write_Offsets = entry.Checked() ? 1 : 0;
}

void frmMainClient::cmdStopClick() {
  const bool start = !server_.store.CycleRunning;
  for (const auto& session : server_.connect)
    if (session->Started()) session->TimerConn().Enabled(start);
  cmdStop.Caption(start ? "Stop" : "Start");
  cmdSound.Enabled(!start);
  server_.store.CycleRunning = start;
  if (start && server_.store.IsMaster) server_.store.OperatorStart = 1;
}

void frmMainClient::cmdStopCtsClick() {
  for (const auto& session : server_.connect) session->IsUp(false);
  server_.soundEvents->stopSounds();
  cmdSound.Enabled(true);
  txtClients.Enabled(true);
}

void frmMainClient::findFsuipc() {
  server_.ports.op.pointer(Pointer::Hourglass);
  server_.fsuipc->InitLink();
  server_.main->StartSimLink();
  server_.ports.op.pointer(Pointer::Normal);
}

/// An empty box keeps the former number of sessions.
void frmMainClient::txtClientsChange() {
  const std::string typed = txtClients.Text();
  if (typed.empty()) return;
  const auto count = numeric(FilterNumber(typed, DotMode::NoDot, false));
  if (!count || *count > INT16_MAX) {
    txtClients.Text.setQuietly("");
    return;
  }
  server_.store.ClientCount = toInt16(*count);
  if (server_.store.ClientCount < 1) return;
  const auto size = static_cast<std::size_t>(server_.store.ClientCount);
  if (server_.connect.size() > size) server_.connect.resize(size);
  while (server_.connect.size() < size)
    server_.connect.push_back(std::make_unique<frmConnect>(
        server_.sessionContext(), static_cast<int>(server_.connect.size())));
}

/// The measurement that runs again starts the cycle anew.
void frmMainClient::Command2Click() {
  frmTestMCP& panel = *server_.testMcp;
  if (!panel.Visible()) panel.Form_Load();
  panel.showCycle(false, server_.store.CycleRunning ? "The autopilot starts"
                                                    : "The autopilot waits for the first display");
  panel.Visible(true);
  server_.ports.op.showForm(panel, Modality::NonModal);
  tmrTicks_.Enabled(true);
}

void frmMainClient::FuelTimerTick() {
  if (!server_.main->AnyClientUp()) return;
  server_.fuelAccount->takeBeat();
  changeSpeedUnit();
}

/// On the beat of the fuel account: an aircraft that stays in the window changes at each.
void frmMainClient::changeSpeedUnit() {
  const double mach = server_.store.Mach;
  if (mach <= ChangeoverFrom_Mach || mach >= ChangeoverTo_Mach || !server_.autoflight.xAutoT)
    return;
  clsXAutoT& autothrottle = *server_.autoflight.xAutoT;
  autothrottle.apChangeover(autothrottle.apChangeover() != 0 ? 0 : 1);
  server_.testMcp->UpdateMcpDisplay();
}

void frmMainClient::tmrTicksTick() {
  modPublic& v = server_.store;
  if (!measurementFinished_ && v.Ticks < MeasurementsNeeded) {
    EventLoop& loop = server_.ports.eventLoop;
    const std::uint32_t elapsed_ms = loop.tickCount_ms() - LastTick_;
    const double polling_ms = numeric(txtPoll.Text()).value_or(0);
    v.EffectivePoll = toSingle(polling_ms * elapsed_ms / tmrTicks_.Interval());
    LastTick_ = loop.tickCount_ms();
    ++v.Ticks;
  }
  if (v.Ticks < MeasurementsNeeded) return;
  measurementFinished_ = true;
  if (!v.CycleRunning) return;
  tmrTicks_.Enabled(false);
  if (server_.main->CheckMasterConflict()) {
    server_.testMcp->showCycle(false, "Master conflict: the autopilot stands still");
    return;
  }
  server_.autoflight.afds->Init();
  cycleTimer_->start(server_.installation.platform.CycleTime);
  server_.testMcp->showCycle(true, "The autopilot is ready");
}

/// One pause pulse, for simulators that must be woken by it.
void frmMainClient::tmrPauseTick() {
  if (server_.store.Paused == 1) {
    tmrPause_.Enabled(false);
    server_.accessors.fsOpt->FSPaused(0);
  } else {
    server_.accessors.fsOpt->FSPaused(1);
  }
}

void frmMainClient::zeroTrims() {
  if (!server_.fsuipc->IPC_Available()) return;
  server_.accessors.srv->AileronTrim(0);
  server_.accessors.srv->RudderTrim(0);
}

/// What cannot be done keeps nothing else from being saved: the first fault ends the process, once
/// all has been tried.
void frmMainClient::saveAll() {
  FirstFault fault;
  fault.of([this] { zeroTrims(); });
  fault.of([this] {
    telling(*this, "Flaps.cfg was not saved",
            [this] { server_.flaps->writeFile(server_.store.CockpitPath); });
  });
  fault.of([this] { SaveCFG(); });
  fault.raise();
}

void frmMainClient::cmdExit4Click() {
  pollTimer_->stop();
  cycleTimer_->stop();
  saveAll();
  FuelTimer_.Enabled(false);
  server_.fsuipc->CloseLink();
  server_.connect.clear();
  server_.fsuipc.reset();
  server_.accessors.radio.reset();
  server_.accessors.autoP.reset();
  server_.autoflight.xAutoP.reset();
  server_.sound.reset();
  server_.accessors.eng.reset();
  server_.accessors.fsOpt.reset();
  server_.accessors.srv.reset();
  SetStatusText(1, "Vorlent close");
  Visible(false);
  server_.ports.op.hideForm(*this);
  server_.log.WriteLog("Quit");
  throw ProcessEnd{0};
}

}  // namespace vorlent
