#include <bit>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>

#include "base/files.h"
#include "base/numbers.h"
#include "base/simulatorUnits.h"
#include "base/text.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "core/singletons.h"

namespace vorlent {
namespace {

constexpr int SimulatorWait_ms = 500;

struct LampOffset {
  const char* key;
  std::int32_t clsAutoP::*offset;
};

constexpr LampOffset LampOffsets[] = {
    {"LVLCHG", &clsAutoP::Offset_LVLCH},
    {"LNAV", &clsAutoP::Offset_LNAV},
    {"VNAV", &clsAutoP::Offset_VNAV},
    {"CMDL", &clsAutoP::Offset_CMDL},
    {"CMDR", &clsAutoP::Offset_CMDR},
    {"CWSL", &clsAutoP::Offset_CWSL},
    {"CWSR", &clsAutoP::Offset_CWSR},
    {"CO", &clsAutoP::Offset_CO},
    {"AT", &clsAutoP::Offset_AT},
    {"TOGA", &clsAutoP::Offset_TOGA},
    {"AP", &clsAutoP::Offset_AP},
    {"INTV", &clsAutoP::Offset_INTV},
    {"HOLDIAS", &clsAutoP::Offset_HOLDIAS},
    {"HOLDMACH", &clsAutoP::Offset_HOLDMACH},
    {"HOLDALT", &clsAutoP::Offset_HOLDALT},
    {"HOLDHDG", &clsAutoP::Offset_HOLDHDG},
    {"HOLDNAV", &clsAutoP::Offset_HOLDNAV1},
    {"HOLDLOC", &clsAutoP::Offset_HOLDLOC},
    {"HOLDGS", &clsAutoP::Offset_HOLDGS},
    {"HOLDVS", &clsAutoP::Offset_HOLDVS},
    {"HOLDN1", &clsAutoP::Offset_HOLDN1},
};

/// What is wrong, with its place in the file.
RuntimeError notUsable(const char* section, const char* key, const std::string& text) {
  return {RuntimeError::TypeMismatch, RuntimeError(RuntimeError::TypeMismatch).description() +
                                          "\nOffsets.ini, section " + section + ", key " + key +
                                          ": \"" + text + "\""};
}

/// Nothing for text that is no hexadecimal number of 32 bits.
std::optional<std::int32_t> hexadecimal(const std::string& text) {
  std::uint32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
  if (error != std::errc() || stop != end) return std::nullopt;
  return static_cast<std::int32_t>(value);
}

}  // namespace

void modMain::StartSimLink() {
  frmMainClient& mainClient = *server_.mainClient;
  mainClient.SetChkStickValue();
  server_.accessors.autoP = std::make_unique<clsAutoP>(
      *server_.fsuipc, mainClient.Settings(Setting::WriteMcpOffsets).Checked());
  server_.autoflight.make();
  setPanelWords();
  server_.fsuipc->Offset_APHeading(0x07CC);
  server_.fsuipc->Factor_APHeading(std::bit_cast<float>(0x43360B5E));  // 65536 / 360
  readOffsets();
  server_.store.SwitchPair(1) = 3;
  server_.store.SwitchPair(2) = 4;
  mainClient.txtFuelL.Text("Left Main");
  mainClient.txtFuelR.Text("Right Main");
  int result = clsFSUIPC::Okay;
  server_.fsuipc->WriteByte(0x033C, 1, 1, result);
  server_.fsuipc->ReadBytes(0x0AEC, 1, 1);
  server_.store.EngineCount = server_.fsuipc->FsBytes[1];
  if (server_.fsuipc->XPlane() != 0)
    startXPlane();
  else
    startFlightSimulator();
  CheckMasterConflict();
  mainClient.SetStatusText(2, "Waiting for clients....");
  fillTankBoxes();
  setEnginePans();
  server_.log.WriteLog("ready start");
}

void modMain::setPanelWords() {
  for (int word = 1; word <= 14; ++word) server_.store.PanelWord(word) = 0;
  server_.store.PanelWord(10) = 1;
  server_.store.PanelWord(11) = 5;
  server_.store.PanelWord(12) = 10;
}

/// Values are hexadecimal without a prefix; a key that is missing or empty leaves the default.
/// Raises TypeMismatch, with the place in the file, for one that is no number.
void modMain::readOffsets() {
  const std::string file = joinedPath(server_.installation.programFolder, "Offsets.ini");
  const auto offset = [&](const char* section, const char* key, auto&& take) {
    const std::string text = server_.iniRw->ReadKey(section, key, file).asText();
    if (text.empty()) return;
    const auto number = hexadecimal(text);
    if (!number) throw notUsable(section, key, text);
    take(*number);
  };
  offset("APHeading", "Offset", [&](auto x) { server_.fsuipc->Offset_APHeading(x); });
  const std::string factor = server_.iniRw->ReadKey("APHeading", "Factor", file).asText();
  const std::string& mark = server_.store.sDecimal;
  try {
    if (!factor.empty())
      server_.fsuipc->Factor_APHeading(
          toSingle(regionalNumberOf(replaced(factor, ".", mark), mark)));
  } catch (const RuntimeError& error) {
    if (error.number() != RuntimeError::TypeMismatch) throw;
    throw notUsable("APHeading", "Factor", factor);
  }
  for (const LampOffset& lamp : LampOffsets)
    offset("Mcpbuttons", lamp.key, [&](auto x) { (*server_.accessors.autoP).*lamp.offset = x; });
  offset("CDU", "EXEC", [&](auto x) { server_.accessors.autoP->Offset_EXEC = x; });
}

/// Without a time-out: the operator leaves it by closing the program.
void modMain::waitForSimulator() {
  bool ready = false;
  while (!ready) {
    server_.ports.eventLoop.sleep(SimulatorWait_ms);
    server_.fsuipc->ReadBytes(0x3364, 1, 1);
    ready = server_.fsuipc->FsBytes[1] == 0;
    server_.failureDomain.pump();
  }
  PollDispatch();
  server_.mainClient->SetStatusText(2, "FS Ready");
}

void modMain::startXPlane() {
  modPublic& v = server_.store;
  v.FsWindow = server_.ports.simulatorBus.findWindow("X-System");
  v.FsVersionCode = static_cast<std::int16_t>(server_.fsuipc->simulatorNumber());
  server_.mainClient->txtFlaps.Visible(true);
  server_.mainClient->SetStatusText(2, "Waiting for X-Plane...");
  waitForSimulator();
}

void modMain::startFlightSimulator() {
  modPublic& v = server_.store;
  v.FsWindow = server_.ports.simulatorBus.findWindow("FS98MAIN");
  v.FsVersionCode = static_cast<std::int16_t>(server_.fsuipc->simulatorNumber());
  if (v.FsVersionCode < 2) server_.mainClient->txtFlaps.Visible(true);
  if (v.FsVersionCode < 3) {
    server_.mainClient->SetStatusText(2, "Waiting for clients....");
    PollDispatch();
  } else {
    server_.mainClient->SetStatusText(2, "Waiting for Flight Simulator...");
    waitForSimulator();
  }
  readFlapIncrement();
}

void modMain::readFlapIncrement() {
  modPublic& v = server_.store;
  server_.fsuipc->ReadBytes(0x3BFA, 2, 1);
  const auto& bytes = server_.fsuipc->FsBytes;
  v.FlapIncrement = toInt16(bytes[1] + 256 * bytes[2]);
  // A simulator that tells none has nine detents.
  if (v.FlapIncrement == 0) v.FlapIncrement = NineDetentsIncrement;
  v.FlapPositions = static_cast<std::int16_t>(FullScale / v.FlapIncrement + 1);
}

void modMain::fillTankBoxes() {
  const modPublic& v = server_.store;
  frmMainClient& form = *server_.mainClient;
  const auto fill = [&v](TextBox& box, const FuelTank& tank) {
    box.Text(singleText(toSingle(double{tank.Level} * tank.Capacity / 100), v.sDecimal));
    box.ToolTipText("Max: " + std::to_string(tank.Capacity));
  };
  fill(form.txtLeftAux, v.FuelTanks(Tank::LeftAux));
  fill(form.txtLeftMain, v.FuelTanks(Tank::LeftMain));
  fill(form.txtRightAux, v.FuelTanks(Tank::RightAux));
  fill(form.txtRightMain, v.FuelTanks(Tank::RightMain));
}

void modMain::setEnginePans() {
  auto& pan = server_.store.EnginePan;
  if (server_.store.EngineCount < 2) {
    pan(1) = 50;
  } else if (server_.store.EngineCount == 2) {
    pan(1) = 20;
    pan(2) = 80;
  } else {
    pan(1) = 20;
    pan(2) = 30;
    pan(3) = 70;
    pan(4) = 80;
  }
}

}  // namespace vorlent
