#include "core/Configuration.h"

#include <algorithm>
#include <vector>

#include "base/FirstFault.h"
#include "base/ProcessEnd.h"
#include "base/files.h"
#include "base/numbers.h"
#include "base/text.h"
#include "clientlink/frmConnect.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/singletons.h"
#include "core/telling.h"
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

/// `fault` with its place in the file, and what to do.
RuntimeError notUsable(const char* key, const IniValue& value, const RuntimeError& fault) {
  return {fault.number(), "Vorlent.ini, section Vorlent, key " + std::string(key) + " is \"" +
                              value.asText() + "\" (" + fault.description() +
                              "): put it right and start again"};
}

/// What the key's value is as a number or a flag.
template <class Value>
Value used(const char* key, const IniValue& value, Value (IniValue::*as)() const) {
  try {
    return (value.*as)();
  } catch (const RuntimeError& error) {
    throw notUsable(key, value, error);
  }
}

/// Sets a flag for as long as it lives.
class Running {
 public:
  explicit Running(bool& flag) : flag_(flag) { flag_ = true; }
  ~Running() { flag_ = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& flag_;
};

std::string cockpitsFolder(const Server& server) {
  return joinedPath(server.installation.programFolder, "Cockpits");
}

}  // namespace

void Configuration::Init() {
  const Running running(initialising_);
  try {
    server_.store.Sep = " ";
    *server_.soundSettings = SoundSettings();
    FillDirlist();
    expectSettings();
    readSettings();
    checkShare();
    findCockpit();
    readSounds();
    // The working frequencies of the stick commands: COM 1, COM 2, NAV 1, NAV 2, ADF.
    int element = 1;
    for (const float frequency : {118.F, 119.F, 108.F, 109.F, 200.F})
      server_.store.StandbyValues(element++) = frequency;
  } catch (const RuntimeError& error) {
    form_.SetStatusText(1, error.description());
    server_.ports.op.messageBox("Initialization error", BoxIcon::Critical, "Vorlent");
    throw ProcessEnd{1};
  }
}

/// A file that cannot be read has no key, and would be told as its first one.
void Configuration::expectSettings() const {
  const std::string path = iniPath(server_);
  try {
    readFile(path);
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), path + " cannot be used: " + error.description());
  }
}

/// In the order of the file's keys; the sessions are made as soon as their number is known.
void Configuration::readSettings() {
  modPublic& v = server_.store;
  const auto key = [this](const char* name) {
    return server_.iniRw->ReadKey(Section, name, iniPath(server_));
  };
  const auto number = [&key](const char* name) {
    return used(name, key(name), &IniValue::asInt16);
  };
  const auto flag = [&key](const char* name) {
    return used(name, key(name), &IniValue::asBoolean);
  };
  v.CockpitName = key("Cockpit").asText();
  frmMainClient::SelectComboText(form_.cboDir, v.CockpitName);
  v.CockpitPath = joinedPath(cockpitsFolder(server_), v.CockpitName) + "\\";
  v.BasePort = number("Port");
  form_.txtPort.Text(std::to_string(v.BasePort));
  form_.txtIP.Text(key("Ip").asText());
  const std::int16_t clients = number("Clients");
  if (clients < 0)
    throw notUsable("Clients", key("Clients"), RuntimeError(RuntimeError::SubscriptOutOfRange));
  form_.txtClients.Text(std::to_string(clients == 0 ? 1 : clients));
  v.ClientCount = clients == 0 ? std::int16_t{1} : clients;
  makeSessions();
  form_.startFuelTimer();
  form_.txtSticks.Text(std::to_string(number("Joysticks")));
  v.JoysticksOnValue = number("JoysticksOn");
  // Shown already now, so that an exit before the sticks are started saves it as it is.
  form_.chkStick.Value.setQuietly(v.JoysticksOnValue);
  form_.txtPoll.Text(std::to_string(number("Polling")));
  form_.Settings(Setting::AircraftSound).Checked(flag("SoundOn"));
  form_.cmdSound.Enabled(form_.Settings(Setting::AircraftSound).Checked());
  v.ShowTipValue = number("ShowTip");
  const std::int16_t device = number("IDSoundDevice");
  v.SoundDeviceId = device == 0 ? std::int16_t{1} : device;
  form_.Settings(Setting::AutomaticTq).Checked(flag("AutoTQ"));
  form_.Settings(Setting::FsOnTop).Checked(flag("FSOnTop"));
  form_.Settings(Setting::FsMaximized).Checked(flag("FSMax"));
  form_.Settings(Setting::WriteMcpOffsets).Checked(flag("WriteMcpOffsets"));
}

void Configuration::readSounds() {
  const std::string path = server_.store.CockpitPath + "sound.cfg";
  try {
    server_.soundSettings->read(path, form_.Settings(Setting::AircraftSound).Checked());
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), path + " cannot be used: " + error.description());
  }
}

/// Sessions that are live are ended in order, so that no display waits for what will not come.
void Configuration::makeSessions() {
  for (const auto& session : server_.connect) session->end();
  server_.connect.clear();
  for (int i = 0; i < server_.store.ClientCount; ++i)
    server_.connect.push_back(std::make_unique<frmConnect>(server_.sessionContext(), i));
}

/// The clients read this machine's data through a share on the program folder.
void Configuration::checkShare() {
  const Ports& ports = server_.ports;
  const std::string ownAddress =
      trimmed(form_.txtIP.Text()).empty() ? ports.network.localIp() : form_.txtIP.Text();
  const std::string share = "\\\\" + ownAddress + "\\" + ShareName;
  if (ports.networkFiles.exists(share)) return;
  const bool commandRun = ports.ownShare.publish(ShareName, server_.installation.programFolder);
  server_.log.WriteLog("User path: " + form_.txtIP.Text());
  if (commandRun) ports.eventLoop.sleep(ShareSettling_ms);
  if (ports.networkFiles.exists(share))
    ports.op.messageBox("Share Vorlent created", BoxIcon::Plain, "Vorlent");
}

/// A cockpit that is gone gives way to the first one there is. One that is written in other cases
/// of letters than its folder is known by the folder's name from then on.
void Configuration::findCockpit() {
  modPublic& v = server_.store;
  const auto cockpits = subFolders(cockpitsFolder(server_));
  if (cockpits.empty()) throw RuntimeError(RuntimeError::PathNotFound);
  if (std::find(cockpits.begin(), cockpits.end(), v.CockpitName) == cockpits.end()) {
    const auto sameName = std::find_if(
        cockpits.begin(), cockpits.end(),
        [&v](const std::string& name) { return equalIgnoringCase(name, v.CockpitName); });
    if (sameName == cockpits.end()) missingCockpit_ = v.CockpitName;
    v.CockpitName = sameName == cockpits.end() ? cockpits.front() : *sameName;
    frmMainClient::SelectComboText(form_.cboDir, v.CockpitName);
  }
  v.CockpitPath = joinedPath(cockpitsFolder(server_), v.CockpitName) + "\\";
}

void Configuration::tellMissingCockpit() {
  if (missingCockpit_)
    form_.SetStatusText(1, "There is no cockpit \"" + *missingCockpit_ + "\", so it is " +
                               server_.store.CockpitName + ": choose another one under Aircraft");
  missingCockpit_.reset();
}

void Configuration::FillDirlist() {
  form_.cboDir.clear();
  for (const std::string& name : subFolders(cockpitsFolder(server_))) form_.cboDir.addItem(name);
  if (!form_.cboDir.Items().empty()) form_.cboDir.ListIndex.setQuietly(0);
}

void Configuration::refillDirlist() {
  const Running running(initialising_);
  const std::string selected = form_.cboDir.Text();
  FillDirlist();
  frmMainClient::SelectComboText(form_.cboDir, selected);
}

/// A box that holds no number leaves its key as it is, and is raised behind the writing.
void Configuration::SaveCFG() {
  form_.SetStatusText(1, "Save configuration");
  modPublic& v = server_.store;
  v.CockpitName = form_.cboDir.Text();
  std::vector<clsIniRw::KeyValue> entries;
  FirstFault fault;
  const auto text = [&](const char* key, const std::string& value) {
    entries.push_back({key, value});
  };
  const auto number = [&](const char* key, int value) { text(key, std::to_string(value)); };
  const auto box = [&](const char* key, const TextBox& typed) {
    fault.of([&] {
      try {
        number(key, int16Of(typed.Text()));
      } catch (const RuntimeError&) {
        form_.SetStatusText(1, "The box for " + std::string(key) + " holds \"" + typed.Text() +
                                   "\", its old value stays. " + typed.Complaint());
        throw;
      }
    });
  };
  const auto flag = [&](const char* key, int setting) {
    text(key, std::string(booleanText(form_.Settings(setting).Checked())));
  };
  text("Cockpit", v.CockpitName);
  number("Port", v.BasePort);
  text("Ip", form_.txtIP.Text());
  if (form_.txtClients.Text().empty())
    number("Clients", v.ClientCount);
  else
    box("Clients", form_.txtClients);
  box("Joysticks", form_.txtSticks);
  number("JoysticksOn", form_.chkStick.Value());
  box("Polling", form_.txtPoll);
  flag("SoundOn", Setting::AircraftSound);
  number("ShowTip", v.ShowTipValue);
  number("IDSoundDevice", v.SoundDeviceId);
  flag("AutoTQ", Setting::AutomaticTq);
  flag("FSOnTop", Setting::FsOnTop);
  flag("FSMax", Setting::FsMaximized);
  flag("WriteMcpOffsets", Setting::WriteMcpOffsets);
  telling(form_, "Vorlent.ini was not saved",
          [&] { server_.iniRw->WriteKeys(Section, entries, iniPath(server_)); });
  fault.raise();
}

}  // namespace vorlent
