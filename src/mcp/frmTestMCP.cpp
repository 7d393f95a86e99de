#include "mcp/frmTestMCP.h"

#include <cstdint>
#include <optional>

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "base/text.h"
#include "commands/commands.h"
#include "platform/StatusLine.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// A button: what it says, the button code it sends, and what its lamp shows.
struct PanelButton {
  const char* caption;
  std::int16_t code;
  const char* purpose;
  bool (*lit)(const Autoflight& a);
};

template <auto Get>
bool autopilot(const Autoflight& a) {
  return ((*a.xAutoP).*Get)() == 1;
}
template <auto Get>
bool autothrottle(const Autoflight& a) {
  return ((*a.xAutoT).*Get)() == 1;
}
using Mode = std::int16_t (clsXAutoP::*)() const;
using ThrottleMode = std::int16_t (clsXAutoT::*)() const;
template <Mode Get>
constexpr auto P = autopilot<Get>;
template <ThrottleMode Get>
constexpr auto T = autothrottle<Get>;
constexpr bool (*NoLamp)(const Autoflight&) = nullptr;

constexpr PanelButton Panel[frmTestMCP::Buttons] = {
    {"A/T ARM", 163, "Autothrottle", T<&clsXAutoT::apAutoThrottle>},
    {"N1", 164, "N1 hold", T<&clsXAutoT::apRpmHold>},
    {"SPEED", 165, "Speed by throttle", T<&clsXAutoT::apAirspeedHoldByRpm>},
    {"C/O", 166, "Knots or Mach number", NoLamp},
    {"LVL CHG", 167, "Level change", P<&clsXAutoP::apLevelChange>},
    {"VNAV", 168, "Vertical navigation", [](const Autoflight& a) { return a.afds->VNAV() == 1; }},
    {"LNAV", 169, "Lateral navigation", [](const Autoflight& a) { return a.afds->LNAV() == 1; }},
    {"VOR LOC", 170, "VOR or localizer", P<&clsXAutoP::apNav1Hold>},
    {"APP", 171, "Approach", P<&clsXAutoP::apApproachHold>},
    {"HDG SEL", 172, "Heading select", P<&clsXAutoP::apHeadingHold>},
    {"ALT HLD", 174, "Altitude hold", P<&clsXAutoP::apAltitudeHold>},
    {"V/S", 175, "Vertical speed", P<&clsXAutoP::apVSpeedHold>},
    {"CMD A", 183, "Command A", P<&clsXAutoP::apCmdLeft>},
    {"CMD B", 185, "Command B", P<&clsXAutoP::apCmdRight>},
    {"CWS A", 186, "Control-wheel steering A", P<&clsXAutoP::apCwsLeft>},
    {"CWS B", 187, "Control-wheel steering B", P<&clsXAutoP::apCwsRight>},
    {"A/P", 162, "Autopilot master", P<&clsXAutoP::apMaster>},
    {"F/D", 188, "Flight director", [](const Autoflight& a) { return a.store.FdActive > 0; }},
};
constexpr int Changeover = 3;

constexpr const char* Titles[frmTestMCP::ReadOuts] = {"COURSE",   "IAS/MACH",  "HEADING",
                                                      "ALTITUDE", "VERTSPEED", "BANK ANGLE"};

/// With a point or the regional mark.
std::optional<double> typedNumber(const std::string& text, const std::string& mark) {
  if (const auto number = numeric(text)) return number;
  try {
    return regionalNumberOf(text, mark);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace

frmTestMCP::frmTestMCP(const TestMcpContext& context)
    : Form("frmTestMCP"),
      Command1("Command1", Buttons, ""),
      Shape1("Shape1", Buttons),
      Text1("Text1", ReadOuts),
      context_(context) {
  Caption("Test MCP");
  for (int i = 0; i < ReadOuts; ++i) {
    add(Text1(i));
    Text1(i).ToolTipText(Titles[i]);
    Text1(i).rule([this](const std::string& text) -> std::string {
      return typedNumber(text, context_.store.sDecimal) ? "" : "Needs a number";
    });
    Text1(i).Text.onChange([this, i] { edited_.at(static_cast<std::size_t>(i)) = true; });
    Text1(i).onLostFocus([this, i] { ApplyMcpText(i); });
  }
  for (int i = 0; i < Buttons; ++i) {
    add(Command1(i));
    Command1(i).Caption(Panel[i].caption);
    Command1(i).ToolTipText(Panel[i].purpose);
    Command1(i).onClick([this, i] { Command1Click(i); });
  }
  add(Command2);
  Command2.ToolTipText("Take-off or go-around");
  Command2.onClick([this] {
    if (ready()) context_.autoflight.xAutoP->apToGa(1);
    follow();
  });
  for (int i = 0; i < Buttons; ++i) add(Shape1(i));
  add(lblCycle);
}

bool frmTestMCP::ready() const {
  const Autoflight& a = context_.autoflight;
  return a.xAutoP && a.xAutoT && a.afds;
}

void frmTestMCP::Form_Load() {
  const modPublic& v = context_.store;
  edited_.fill(false);
  show(Course, std::to_string(v.NavRadios(1).Obs));
  show(Speed, std::to_string(v.ApIasSim));
  show(Heading, singleText(v.ApHeadingSim, v.sDecimal));
  show(Altitude, std::to_string(v.ApAltitudeSim));
  show(VertSpeed, std::to_string(v.ApVsSim));
  show(BankAngle, std::to_string(ready() ? context_.autoflight.xAutoP->apBankLimit() : 0));
  UpdateMcpLamps();
}

void frmTestMCP::close() {
  edited_.fill(false);
  Visible(false);
}

void frmTestMCP::Command1Click(int index) {
  if (!ready()) return;
  context_.commands->SetButtonValues(Panel[index].code, 1);
  UpdateMcpLamps();
  if (index == Changeover) showSpeed(context_.autoflight.xAutoT->ApMachNumber());
}

void frmTestMCP::follow() {
  if (!Visible()) return;
  UpdateMcpDisplay();
  UpdateMcpLamps();
}

void frmTestMCP::showCycle(bool runs, const std::string& text) {
  lblCycle.Caption(text);
  lblCycle.Alarm(!runs);
}

void frmTestMCP::UpdateMcpDisplay() {
  if (!ready()) return;
  const clsXAutoP& autopilot = *context_.autoflight.xAutoP;
  const std::string& mark = context_.store.sDecimal;
  show(Course, std::to_string(context_.store.NavRadios(1).Obs));
  showSpeed(autopilot.ApMachNumber());
  show(Heading, singleText(autopilot.apHeading(), mark));
  show(Altitude, singleText(autopilot.apMcpAltitude(), mark));
  show(VertSpeed, singleText(autopilot.apVertSpeed(), mark));
  show(BankAngle, std::to_string(autopilot.apBankLimit()));
}

void frmTestMCP::showSpeed(float mach) {
  const bool knots = context_.autoflight.xAutoT->apChangeover() < 1;
  show(Speed, singleText(knots ? context_.autoflight.xAutoP->apMcpAirSpeed() : mach,
                         context_.store.sDecimal));
}

void frmTestMCP::show(int index, const std::string& text) {
  if (!edited_.at(static_cast<std::size_t>(index))) Text1(index).Text.setQuietly(text);
}

void frmTestMCP::UpdateMcpLamps() {
  if (!ready()) return;
  for (int i = 0; i < Buttons; ++i) {
    const bool lit = Panel[i].lit != NoLamp && Panel[i].lit(context_.autoflight);
    Command1(i).BackColor(lit ? Lit : Button::ButtonFace);
    Shape1(i).FillColor(lit ? Lit : Shape::White);
  }
}

void frmTestMCP::ApplyMcpText(int index) {
  edited_.at(static_cast<std::size_t>(index)) = false;
  const auto number = typedNumber(Text1(index).Text(), context_.store.sDecimal);
  if (!number || !ready()) return;
  try {
    apply(index, *number);
  } catch (const RuntimeError& error) {
    context_.status.SetStatusText(1, "ApplyMcpText " + error.description());
  }
}

void frmTestMCP::apply(int index, double number) {
  clsXAutoP& autopilot = *context_.autoflight.xAutoP;
  switch (index) {
    case Course:
      context_.accessors.radio->Vor_1_obs(toInt16(number));
      break;
    case Speed:
      if (context_.autoflight.xAutoT->apChangeover() != 0)
        autopilot.ApMachNumber(toSingle(number));
      else
        autopilot.apMcpAirSpeed(toSingle(number));
      break;
    case Heading:
      autopilot.apHeading(toSingle(number));
      break;
    case Altitude:
      autopilot.apMcpAltitude(toSingle(number));
      break;
    case VertSpeed:
      autopilot.apVertSpeed(toSingle(number));
      break;
    default:
      autopilot.apBankLimit(toSingle(number));
  }
}

}  // namespace vorlent
