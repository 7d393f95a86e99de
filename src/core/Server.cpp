#include "core/Server.h"

#include <utility>

#include "base/files.h"
#include "clientlink/frmConnect.h"
#include "core/FrmTip.h"
#include "core/frmMainClient.h"
#include "core/modMain.h"
#include "core/singletons.h"
#include "input/commands.h"
#include "input/frmCMore.h"
#include "input/frmCStick.h"

namespace vorlent {

/// clsAutoP, clsXAutoP, clsXAutoT and clsAfds are made with the link, by StartSimLink.
Server::Server(const Ports& thePorts, Installation theInstallation)
    : ports(thePorts),
      installation(std::move(theInstallation)),
      failureDomain(ports.eventLoop, ports.op),
      log(joinedPath(installation.programFolder, "log.txt")),
      iniRw(std::make_unique<clsIniRw>()),
      fsuipc(std::make_unique<clsFSUIPC>(*this)),
      radio(std::make_unique<clsRadio>(*this)),
      sound(std::make_unique<clsSound>()),
      eng(std::make_unique<clsEng>(*this)),
      fsOpt(std::make_unique<clsFsOpt>(*this)),
      srv(std::make_unique<clsSrv>(*this)),
      joyst(std::make_unique<clsJoyst>(*this)),
      commands(std::make_unique<Commands>(*this)),
      soundSettings(std::make_unique<SoundSettings>()),
      soundEvents(std::make_unique<SoundEvents>()),
      flaps(std::make_unique<Flaps>(*this)),
      fuelAccount(std::make_unique<FuelAccount>()),
      poll(std::make_unique<Poll>(*this)),
      main(std::make_unique<modMain>(*this)),
      tip(std::make_unique<FrmTip>(*this)),
      mainClient(std::make_unique<frmMainClient>(*this)) {}

Server::~Server() = default;

}  // namespace vorlent
