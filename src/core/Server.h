#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/FailureDomain.h"
#include "core/Log.h"
#include "core/modPublic.h"

namespace vorlent {

class Controllers;
class EventLoop;
class Keyboard;
class Network;
class NetworkFiles;
class Operator;
class OwnShare;
class ProgramInstance;
class Regional;
class SimulatorBus;

class Flaps;
class FrmTip;
class FuelAccount;
class Commands;
class clsAfds;
class clsAutoP;
class clsEng;
class clsFSUIPC;
class clsFsOpt;
class clsIniRw;
class clsJoyst;
class clsRadio;
class clsSound;
class clsSrv;
class clsXAutoP;
class clsXAutoT;
class frmCMore;
class frmCStick;
class frmConnect;
class frmMainClient;
class modMain;
class Poll;
class SoundEvents;
struct SoundSettings;

/// What the server stands on; all of it outlives the server.
struct Ports {
  EventLoop& eventLoop;
  Operator& op;
  Network& network;
  SimulatorBus& simulatorBus;
  NetworkFiles& networkFiles;
  OwnShare& ownShare;
  Regional& regional;
  ProgramInstance& programInstance;
  Controllers& controllers;
  Keyboard& keyboard;
};

/// Where the program stands.
struct Installation {
  std::string programFolder;             ///< with no separator at its end
  std::vector<std::string> systemFiles;  ///< full paths of what must be there; empty on Linux
};

/// The whole server: the store, the classes that there are one of, and the forms' models, in the
/// order in which they are made; they go in the reverse order. A process may hold several.
struct Server {
  Server(const Ports& ports, Installation installation);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  Ports ports;
  Installation installation;
  FailureDomain failureDomain;
  Log log;
  modPublic store;

  std::unique_ptr<clsIniRw> iniRw;
  std::unique_ptr<clsFSUIPC> fsuipc;
  std::unique_ptr<clsRadio> radio;
  std::unique_ptr<clsAutoP> autoP;
  std::unique_ptr<clsXAutoP> xAutoP;
  std::unique_ptr<clsXAutoT> xAutoT;
  std::unique_ptr<clsAfds> afds;
  std::unique_ptr<clsSound> sound;
  std::unique_ptr<clsEng> eng;
  std::unique_ptr<clsFsOpt> fsOpt;
  std::unique_ptr<clsSrv> srv;
  std::unique_ptr<clsJoyst> joyst;
  std::unique_ptr<Commands> commands;
  std::unique_ptr<SoundSettings> soundSettings;
  std::unique_ptr<SoundEvents> soundEvents;
  std::unique_ptr<Flaps> flaps;
  std::unique_ptr<FuelAccount> fuelAccount;
  std::unique_ptr<Poll> poll;
  std::unique_ptr<modMain> main;
  std::unique_ptr<FrmTip> tip;
  std::unique_ptr<frmMainClient> mainClient;
  /// The sessions, 0 .. ClientCount - 1.
  std::vector<std::unique_ptr<frmConnect>> connect;
  /// The sticks and their extra buttons, made by InitJoystick and released by KillAllSticks.
  std::array<std::unique_ptr<frmCMore>, 9> CMore;
  std::array<std::unique_ptr<frmCStick>, 9> CStick;
};

}  // namespace vorlent
