#include <string>

#include "base/files.h"
#include "clientlink/ClientAdmission.h"
#include "clientlink/frmConnect.h"
#include "core/FrmTip.h"
#include "core/Server.h"
#include "core/checkLists.h"
#include "core/frmMainClient.h"
#include "core/frmStatus.h"
#include "core/modMain.h"
#include "core/singletons.h"
#include "core/telling.h"
#include "platform/Operator.h"
#include "platform/PlatformSettings.h"
#include "platform/Regional.h"

namespace vorlent {
namespace {

const std::string NetworkAdvice =
    "This program will find its IP address automatically, if you empty the IP box and start it "
    "again.\n"
    "\n"
    "This will go wrong if you start both Vorlent and Tarnwick on the same machine. The program "
    "that is started secondly will be unable to use that same IP address. In that case you need to "
    "add an extra IP address.\n"
    "\n"
    "You can type one manually if you want. If it is not an IP address, or not on this network, "
    "the error will be displayed.";

}  // namespace

void frmMainClient::Form_Load() {
  Operator& op = server_.ports.op;
  modPublic& v = server_.store;
  txtClients.Text("0");
  v.ClientCount = 1;
  v.sDecimal = server_.ports.regional.decimalSeparator();
  server_.log.remove();
  Init();
  server_.status->start();
  Visible(true);
  op.showForm(*this, Modality::NonModal);
  if (v.ShowTipValue == 1) server_.tip->showModal("Please check....", startCheckList(), true);
  op.pointer(Pointer::Hourglass);
  SetStatusText(2, "Waiting for clients....");
  server_.failureDomain.pump();
  SetStatusText(1, "Init IPC");
  if (!server_.fsuipc->InitLink()) {
    cmdExit4.press();
    return;
  }
  Caption("Vorlent " VORLENT_VERSION " on: " + server_.fsuipc->FSVersion() +
          ", UIPC version: " + server_.fsuipc->IPCVersion());
  SetStatusText(1, "Start ");
  server_.main->StartSimLink();
  SetStatusText(1, "Init flaps");
  telling(*this, "Flaps.cfg cannot be used", [this] { server_.flaps->InitFlaps(); });
  SetStatusText(1, "SetSocks");
  SetSocks();
  SetStatusText(1, "OK");
  configuration_.tellMissingCockpit();
  server_.admission->tellFaults();
  for (const std::string& fault :
       platformSettingFaults(joinedPath(server_.installation.programFolder, "Vorlent.ini")))
    SetStatusText(1, fault);
  op.pointer(Pointer::Normal);
  v.Ticks = 0;
  tmrTicks_.Enabled(true);
  if (v.BindError)
    server_.tip->showModal("Something went wrong with the network...", NetworkAdvice, false);
}

}  // namespace vorlent
