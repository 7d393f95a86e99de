#include <algorithm>
#include <vector>

#include "base/ProcessEnd.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "clientlink/frmConnect.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/singletons.h"
#include "platform/NetworkFiles.h"
#include "platform/Operator.h"
#include "platform/OwnShare.h"

namespace vorlent {
namespace {

const std::string Section = "Vorlent";
const std::string ShareName = "Vorlent";
constexpr int ShareSettling_ms = 5000;

std::string iniPath(const Server& server) {
  return joinedPath(server.installation.programFolder, "Vorlent.ini");
}

std::string cockpitsFolder(const Server& server) {
  return joinedPath(server.installation.programFolder, "Cockpits");
}

}  // namespace

void frmMainClient::Init() {
  try {
    server_.store.Sep = " ";
    *server_.soundSettings = SoundSettings();
    FillDirlist();
    readSettings();
    checkShare();
    findCockpit();
    server_.soundSettings->read(server_.store.CockpitPath + "sound.cfg", Settings(1).Checked());
    // The working frequencies of the stick commands: COM 1, COM 2, NAV 1, NAV 2, ADF.
    int element = 1;
    for (const float frequency : {118.F, 119.F, 108.F, 109.F, 200.F})
      server_.store.StandbyValues(element++) = frequency;
  } catch (const RuntimeError&) {
    server_.ports.op.messageBox("Initialization error", BoxIcon::Critical, "Vorlent");
    throw ProcessEnd{1};
  }
}

/// In the order of the file's keys; the sessions are made as soon as their number is known.
void frmMainClient::readSettings() {
  modPublic& v = server_.store;
  const auto key = [this](const char* name) {
    return server_.iniRw->ReadKey(Section, name, iniPath(server_));
  };
  v.CockpitName = key("Cockpit").asText();
  SelectComboText(cboDir, v.CockpitName);
  v.CockpitPath = joinedPath(cockpitsFolder(server_), v.CockpitName) + "\\";
  v.BasePort = key("Port").asInt16();
  txtPort.Text(std::to_string(v.BasePort));
  txtIP.Text(key("Ip").asText());
  const std::int16_t clients = key("Clients").asInt16();
  if (clients < 0) throw RuntimeError(RuntimeError::SubscriptOutOfRange);
  txtClients.Text(std::to_string(clients == 0 ? 1 : clients));
  v.ClientCount = clients == 0 ? std::int16_t{1} : clients;
  makeSessions();
  FuelTimer_.Enabled(true);
  txtSticks.Text(std::to_string(key("Joysticks").asInt16()));
  v.JoysticksOnValue = key("JoysticksOn").asInt16();
  // Shown already now, so that an exit before the sticks are started saves it as it is.
  chkStick.Value.setQuietly(v.JoysticksOnValue);
  txtPoll.Text(std::to_string(key("Polling").asInt16()));
  Settings(1).Checked(key("SoundOn").asBoolean());
  cmdSound.Enabled(Settings(1).Checked());
  v.ShowTipValue = key("ShowTip").asInt16();
  const std::int16_t device = key("IDSoundDevice").asInt16();
  v.SoundDeviceId = device == 0 ? std::int16_t{1} : device;
  Settings(0).Checked(key("AutoTQ").asBoolean());
  Settings(2).Checked(key("FSOnTop").asBoolean());
  Settings(3).Checked(key("FSMax").asBoolean());
  Settings(4).Checked(key("WriteMcpOffsets").asBoolean());
}

void frmMainClient::makeSessions() {
  server_.connect.clear();
  for (int i = 0; i < server_.store.ClientCount; ++i)
    server_.connect.push_back(std::make_unique<frmConnect>(server_.sessionContext(), i));
}

void frmMainClient::fillStickList(int count) {
  std::vector<ComboBox::Item> sticks;
  for (int stick = 1; stick <= count; ++stick) sticks.push_back({std::to_string(stick)});
  cboStick.clear();
  cboStick.Items(std::move(sticks));
  if (count > 0) cboStick.ListIndex(0);
}

/// The clients read this machine's data through a share on the program folder.
void frmMainClient::checkShare() {
  const Ports& ports = server_.ports;
  const std::string ownAddress =
      trimmed(txtIP.Text()).empty() ? ports.network.localIp() : txtIP.Text();
  const std::string share = "\\\\" + ownAddress + "\\" + ShareName;
  if (ports.networkFiles.exists(share)) return;
  const bool commandRun = ports.ownShare.publish(ShareName, server_.installation.programFolder);
  server_.log.WriteLog("User path: " + txtIP.Text());
  if (commandRun) ports.eventLoop.sleep(ShareSettling_ms);
  if (ports.networkFiles.exists(share))
    ports.op.messageBox("Share Vorlent created", BoxIcon::Plain, "Vorlent");
}

/// A cockpit that is gone gives way to the first one there is. One that is written in other cases
/// of letters than its folder is known by the folder's name from then on.
void frmMainClient::findCockpit() {
  modPublic& v = server_.store;
  const auto cockpits = subFolders(cockpitsFolder(server_));
  if (cockpits.empty()) throw RuntimeError(RuntimeError::PathNotFound);
  if (std::find(cockpits.begin(), cockpits.end(), v.CockpitName) == cockpits.end()) {
    const auto sameName = std::find_if(
        cockpits.begin(), cockpits.end(),
        [&v](const std::string& name) { return equalIgnoringCase(name, v.CockpitName); });
    v.CockpitName = sameName == cockpits.end() ? cockpits.front() : *sameName;
    SelectComboText(cboDir, v.CockpitName);
  }
  v.CockpitPath = joinedPath(cockpitsFolder(server_), v.CockpitName) + "\\";
}

void frmMainClient::FillDirlist() {
  cboDir.clear();
  for (const std::string& name : subFolders(cockpitsFolder(server_))) cboDir.addItem(name);
  if (!cboDir.Items().empty()) cboDir.ListIndex.setQuietly(0);
}

void frmMainClient::SelectComboText(ComboBox& box, const std::string& text) {
  const int found = box.indexOf(text);
  box.ListIndex.setQuietly(found >= 0 ? found : static_cast<int>(box.Items().size()) - 1);
}

void frmMainClient::SaveCFG() {
  SetStatusText(1, "Save configuration");
  modPublic& v = server_.store;
  v.CockpitName = cboDir.Text();
  const auto number = [](int value) { return std::to_string(value); };
  const auto flag = [this](int index) {
    return std::string(booleanText(Settings(index).Checked()));
  };
  const std::vector<clsIniRw::KeyValue> entries = {{"Cockpit", v.CockpitName},
                                                   {"Port", number(v.BasePort)},
                                                   {"Ip", txtIP.Text()},
                                                   {"Clients", number(int16Of(txtClients.Text()))},
                                                   {"Joysticks", number(int16Of(txtSticks.Text()))},
                                                   {"JoysticksOn", number(chkStick.Value())},
                                                   {"Polling", number(int16Of(txtPoll.Text()))},
                                                   {"SoundOn", flag(1)},
                                                   {"ShowTip", number(v.ShowTipValue)},
                                                   {"IDSoundDevice", number(v.SoundDeviceId)},
                                                   {"AutoTQ", flag(0)},
                                                   {"FSOnTop", flag(2)},
                                                   {"FSMax", flag(3)},
                                                   {"WriteMcpOffsets", flag(4)}};
  server_.iniRw->WriteKeys(Section, entries, iniPath(server_));
}

}  // namespace vorlent
