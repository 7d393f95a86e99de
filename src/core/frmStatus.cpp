#include "core/frmStatus.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "autoflight/Annunciators.h"
#include "base/text.h"
#include "clientlink/frmConnect.h"
#include "core/PollTick.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "simlink/clsFSUIPC.h"
#include "sticks/frmCStick.h"

namespace vorlent {
namespace {

constexpr int RefreshPeriod_ms = 250;
/// A poll that is older is missed.
constexpr std::uint32_t PollMissed_ms = 1000;
constexpr std::uint32_t InSeconds_s = 120;

/// Whole seconds, or whole minutes where seconds say nothing any more.
std::string durationText(std::uint32_t duration_ms) {
  const std::uint32_t duration_s = duration_ms / 1000;
  if (duration_s < InSeconds_s) return std::to_string(duration_s) + " s";
  return std::to_string(duration_s / 60) + " min";
}

void show(Label& label, const std::string& text, bool alarm = false) {
  label.Caption(text);
  label.Alarm(alarm);
}

std::string rateText(frmConnect& session) {
  const std::string rate = std::to_string(session.TimerConn().Interval()) + " ms";
  return session.TimerConn().Enabled() ? rate : rate + ", stopped";
}

Table::Row sessionRow(std::size_t slot, frmConnect& session) {
  const std::string port = session.Port() == 0 ? "none" : std::to_string(session.Port());
  if (!session.Started()) return {std::to_string(slot), port, "waiting", "", "", ""};
  const std::string name = session.FmcName().empty() ? "no name" : session.FmcName();
  return {std::to_string(slot),
          port,
          session.IsUp() ? name : name + ", ending",
          session.remoteHost(),
          rateText(session),
          durationText(session.silence_ms()) + " ago"};
}

}  // namespace

frmStatus::frmStatus(Server& server)
    : Form("frmStatus"),
      server_(server),
      tmrRefresh_(server.ports.eventLoop, RefreshPeriod_ms,
                  server.failureDomain.guarded([this] { refresh(); })) {
  Caption("Status");
  for (Control* control : std::initializer_list<Control*>{
           &lblSimulator, &lblPoll, &lblSticks, &lblATEngaged, &lblRollEngaged, &lblPitchEngaged,
           &lblRollArmed, &lblPitchArmed, &lblCwsRoll, &lblCwsPitch, &lblAutopilot, &lstSessions})
    add(*control);
}

void frmStatus::start() {
  refresh();
  tmrRefresh_.Enabled(true);
}

void frmStatus::refresh() {
  showLink();
  showSticks();
  showAnnunciators();
  showSessions();
}

/// The first client's greeting starts the polls.
void frmStatus::showLink() {
  const bool linked = server_.fsuipc->IPC_Available();
  show(lblSimulator, linked ? server_.fsuipc->FSVersion() : "none", !linked);
  const auto age_ms = server_.pollTick->age_ms();
  if (!server_.mainClient->polling())
    show(lblPoll, "waits for a client");
  else if (!age_ms)
    show(lblPoll, "not polled yet", true);
  else if (*age_ms < PollMissed_ms)
    show(lblPoll, "polled " + std::to_string(*age_ms) + " ms ago");
  else
    show(lblPoll, "no poll for " + durationText(*age_ms), true);
}

void frmStatus::showSticks() {
  if (server_.mainClient->chkStick.Value() == 0) return show(lblSticks, "off");
  const auto inUse = numeric(server_.mainClient->txtSticks.Text()).value_or(0);
  int on = 0;
  std::string unplugged;
  for (const auto& stick : server_.sticks.CStick) {
    if (!stick || stick->MyID() >= inUse) continue;
    ++on;
    if (stick->Unplugged()) unplugged += " " + std::to_string(stick->MyID() + 1);
  }
  const std::string text = std::to_string(on) + " on";
  show(lblSticks, unplugged.empty() ? text : text + ", unplugged:" + unplugged, !unplugged.empty());
}

void frmStatus::showAnnunciators() {
  const Annunciators& shown = server_.autoflight.annunciators;
  const auto annunciate = [](Label& label, const std::string& mode) {
    label.Caption(mode == Annunciators::Blank ? "" : mode);
  };
  annunciate(lblATEngaged, shown.ATEngagedMode);
  annunciate(lblRollEngaged, shown.RollEngagedMode);
  annunciate(lblPitchEngaged, shown.PitchEngagedMode);
  annunciate(lblRollArmed, shown.RollArmedMode);
  annunciate(lblPitchArmed, shown.PitchArmedMode);
  annunciate(lblCwsRoll, shown.CwsRollEngagedMode);
  annunciate(lblCwsPitch, shown.CwsPitchEngagedMode);
  annunciate(lblAutopilot, shown.AutopilotMode);
}

void frmStatus::showSessions() {
  std::vector<Table::Row> rows;
  for (const auto& session : server_.connect) rows.push_back(sessionRow(rows.size(), *session));
  lstSessions.Rows(std::move(rows));
}

}  // namespace vorlent
