#include "core/Server.h"

#include <utility>

#include "base/files.h"
#include "clientlink/ClientAdmission.h"
#include "clientlink/frmConnect.h"
#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "commands/commands.h"
#include "core/FrmTip.h"
#include "core/PollTick.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "core/singletons.h"
#include "mcp/frmTestMCP.h"

namespace vorlent {

/// clsAutoP and the autoflight's classes are made with the link, by StartSimLink.
Server::Server(const Ports& thePorts, Installation theInstallation)
    : ports(thePorts),
      installation(std::move(theInstallation)),
      failureDomain(ports.eventLoop, ports.op),
      log(joinedPath(installation.programFolder, "log.txt")),
      iniRw(std::make_unique<clsIniRw>()),
      mainClient(std::make_unique<frmMainClient>(*this)),
      main(std::make_unique<modMain>(*this)),
      fsuipc(std::make_unique<clsFSUIPC>(
          SimLinkContext{ports.simulatorBus, ports.eventLoop, ports.op, *mainClient})),
      accessors{nullptr, std::make_unique<clsEng>(*fsuipc, store),
                std::make_unique<clsFsOpt>(*fsuipc), std::make_unique<clsRadio>(*fsuipc),
                std::make_unique<clsSrv>(*fsuipc, store)},
      autoflight(store, accessors, ports.networkFiles, ports.performanceDb, *mainClient, *main),
      commands(std::make_unique<Commands>(commandContext())),
      sticks({ports.controllers, ports.eventLoop, failureDomain, ports.op, store, *mainClient,
              commands, installation.programFolder, mainClient->txtSticks, mainClient->txtPoll}),
      soundSettings(std::make_unique<SoundSettings>()),
      soundEvents(std::make_unique<SoundEvents>(soundContext())),
      soundForm(std::make_unique<frmSound>(soundContext())),
      flaps(std::make_unique<Flaps>(store, *fsuipc, ports.op, mainClient->txtFlaps)),
      fuelAccount(std::make_unique<FuelAccount>(store)),
      poll(std::make_unique<Poll>(*fsuipc, store, ports.eventLoop)),
      pollTick(std::make_unique<PollTick>(*this)),
      tip(std::make_unique<FrmTip>(*this)),
      admission(std::make_unique<ClientAdmission>(ports.eventLoop, ports.network, *mainClient,
                                                  installation.platform.ClientNetworks,
                                                  installation.platform.NetworkKeys)),
      status(std::make_unique<frmStatus>(*this)),
      testMcp(std::make_unique<frmTestMCP>(
          TestMcpContext{store, accessors, autoflight, commands, *mainClient})),
      newCockpit(std::make_unique<frmNew>(cockpitContext())),
      saveTemplate(std::make_unique<frmSave>(cockpitContext(), [this] { return main->cockpit(); })),
      importOld(std::make_unique<frmDir>(cockpitContext())),
      zip(std::make_unique<frmZip>(cockpitContext())) {
  store.SouthernLatitudes = installation.platform.SouthernLatitudes;
  autoflight.Glideslope = installation.platform.Glideslope;
}

CommandContext Server::commandContext() {
  return {store,
          *fsuipc,
          accessors,
          autoflight,
          ports.keyboard,
          *mainClient,
          {mainClient->chkFuel, mainClient->txtFuelL, mainClient->txtFuelR},
          [this] { testMcp->UpdateMcpDisplay(); }};
}

SessionContext Server::sessionContext() {
  return {ports.eventLoop, failureDomain, ports.network, store,      *mainClient,
          *fsuipc,         autoflight,    commands,      *admission, *main};
}

SoundContext Server::soundContext() {
  return {ports.soundDevice, ports.op,  *mainClient, failureDomain, store,
          *soundSettings,    accessors, *main,       sound};
}

CockpitContext Server::cockpitContext() {
  return {failureDomain,     ports.op,       *mainClient,
          ports.fileChooser, ports.zipFiles, installation.programFolder};
}

std::vector<Form*> Server::lastingForms() const {
  return {mainClient.get(), tip.get(),          status.get(),    soundForm.get(), testMcp.get(),
          newCockpit.get(), saveTemplate.get(), importOld.get(), zip.get()};
}

Server::~Server() = default;

}  // namespace vorlent
