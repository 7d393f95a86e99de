#pragma once

#include <memory>
#include <string>
#include <vector>

#include "autoflight/Autoflight.h"
#include "base/Log.h"
#include "clientlink/SessionContext.h"
#include "commands/CommandTable.h"
#include "extras/SoundContext.h"
#include "platform/FailureDomain.h"
#include "platform/PlatformSettings.h"
#include "simlink/Accessors.h"
#include "sticks/Sticks.h"
#include "store/modPublic.h"

namespace vorlent {

class Controllers;
class Documents;
class EventLoop;
class FileChooser;
class Form;
class Keyboard;
class Network;
class NetworkFiles;
class Operator;
class OwnShare;
class PerformanceDb;
class ProgramInstance;
class Regional;
class SimulatorBus;
class SoundDevice;
class ZipFiles;

class Flaps;
class FrmTip;
class FuelAccount;
class ClientAdmission;
class Commands;
class clsFSUIPC;
class clsIniRw;
class clsSound;
class frmConnect;
class frmDir;
class frmMainClient;
class frmNew;
class frmSave;
class frmSound;
class frmStatus;
class frmTestMCP;
class frmZip;
class modMain;
class Poll;
class PollTick;
class SoundEvents;
struct CockpitContext;
struct SoundSettings;

/// What the server stands on; all of it outlives the server.
struct Ports {
  EventLoop& eventLoop;
  Operator& op;
  Network& network;
  SimulatorBus& simulatorBus;
  NetworkFiles& networkFiles;
  PerformanceDb& performanceDb;
  OwnShare& ownShare;
  Regional& regional;
  ProgramInstance& programInstance;
  Controllers& controllers;
  Keyboard& keyboard;
  SoundDevice& soundDevice;
  Documents& documents;
  FileChooser& fileChooser;
  ZipFiles& zipFiles;
};

/// Where the program stands.
struct Installation {
  std::string programFolder;               ///< with no separator at its end
  std::vector<std::string> systemFiles{};  ///< full paths of what must be there; empty on Linux
  PlatformSettings platform{};
};

/// The whole server: the store, the classes that there are one of, and the forms' models, in the
/// order in which they are made; they go in the reverse order. A process may hold several.
struct Server {
  Server(const Ports& ports, Installation installation);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// What the command routines stand on.
  CommandContext commandContext();
  /// What a new session stands on.
  SessionContext sessionContext();
  /// What the forms for the cockpits' folders stand on.
  CockpitContext cockpitContext();
  /// What the sounds stand on.
  SoundContext soundContext();
  /// Those that live as long as the server; those of the sticks come and go.
  std::vector<Form*> lastingForms() const;

  Ports ports;
  Installation installation;
  FailureDomain failureDomain;
  Log log;
  modPublic store;

  std::unique_ptr<clsIniRw> iniRw;
  std::unique_ptr<frmMainClient> mainClient;
  std::unique_ptr<modMain> main;
  std::unique_ptr<clsFSUIPC> fsuipc;
  Accessors accessors;
  Autoflight autoflight;
  std::unique_ptr<clsSound> sound;  ///< made at its first use
  std::unique_ptr<Commands> commands;
  Sticks sticks;
  std::unique_ptr<SoundSettings> soundSettings;
  std::unique_ptr<SoundEvents> soundEvents;
  std::unique_ptr<frmSound> soundForm;
  std::unique_ptr<Flaps> flaps;
  std::unique_ptr<FuelAccount> fuelAccount;
  std::unique_ptr<Poll> poll;
  std::unique_ptr<PollTick> pollTick;
  std::unique_ptr<FrmTip> tip;
  std::unique_ptr<ClientAdmission> admission;
  std::unique_ptr<frmStatus> status;
  std::unique_ptr<frmTestMCP> testMcp;
  std::unique_ptr<frmNew> newCockpit;
  std::unique_ptr<frmSave> saveTemplate;
  std::unique_ptr<frmDir> importOld;
  std::unique_ptr<frmZip> zip;
  /// The sessions, 0 .. ClientCount - 1.
  std::vector<std::unique_ptr<frmConnect>> connect;
};

}  // namespace vorlent
