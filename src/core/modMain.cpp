#include "core/modMain.h"

#include "base/ProcessEnd.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "clientlink/frmConnect.h"
#include "core/PollTick.h"
#include "core/Server.h"
#include "core/frmMainClient.h"
#include "core/singletons.h"
#include "mcp/frmTestMCP.h"
#include "platform/Operator.h"
#include "platform/ProgramInstance.h"
#include "platform/SimulatorBus.h"

namespace vorlent {
namespace {

constexpr std::int16_t FirstVersionWithoutPausePulse = 2;

}  // namespace

void modMain::Main() {
  const std::string& folder = server_.installation.programFolder;
  if (!server_.ports.programInstance.claim(folder)) {
    server_.ports.op.messageBox("You can only run 1 Vorlent at a time", BoxIcon::Critical,
                                "Vorlent");
    throw ProcessEnd{1};
  }
  server_.store.IsMaster = true;
  server_.log.WriteLog("Checking system files...");
  checkSystemFiles();
  server_.log.WriteLog("Checking file/directory access...");
  TestFileAccess(folder, Access::Write);
  server_.mainClient->Form_Load();
}

void modMain::checkSystemFiles() {
  for (const std::string& path : server_.installation.systemFiles) {
    if (fileExists(path)) continue;
    server_.ports.op.messageBox("You are missing a system file\n" + path + " not found",
                                BoxIcon::Plain, "Vorlent");
    throw ProcessEnd{1};
  }
}

void modMain::TestFileAccess(const std::string& path, Access access) {
  const std::string testFile = joinedPath(path, "test.txt");
  const std::string content = "\"test\"\r\n";
  std::string operation = access == Access::Write ? " write to " : " read from ";
  try {
    if (access == Access::Read) {
      readFile(path);
      return;
    }
    replaceFile(testFile, content, Link::Replaced);
    operation = " read from ";
    if (readFile(testFile) != content) throw RuntimeError(RuntimeError::PathAccess);
    operation = " write to ";
    deleteFile(testFile);
  } catch (const RuntimeError& error) {
    server_.mainClient->SetStatusText(
        1, (access == Access::Read ? path : testFile) + ": " + error.description());
    const std::string shown = access == Access::Read ? folderOf(path) : path;
    server_.ports.op.messageBox("Couldn't" + operation + shown + "\nCheck your file permissions",
                                BoxIcon::Plain, "Vorlent");
    throw ProcessEnd{1};
  }
}

void modMain::PollDispatch() { server_.pollTick->run(); }

void modMain::CycleCallback() {
  server_.autoflight.afds->AFDS();
  if (server_.store.IsMaster) server_.testMcp->follow();
}

bool modMain::AnyClientUp() const {
  for (const auto& session : server_.connect)
    if (session->IsUp()) return true;
  return false;
}

std::optional<std::string> modMain::firstClient() const {
  if (server_.connect.empty()) return std::nullopt;
  return server_.connect.front()->remoteHost();
}

bool modMain::acftSoundEnabled() const {
  return server_.mainClient->Settings(Setting::AircraftSound).Checked();
}

void modMain::enableAcftSound(bool enabled) {
  const MenuItem& entry = server_.mainClient->Settings(Setting::AircraftSound);
  if (entry.Checked() != enabled) entry.press();
}

void modMain::clientGreeted() {
  server_.mainClient->cmdSound.Enabled(false);
  server_.mainClient->txtClients.Enabled(false);
}

void modMain::bringUpServer() {
  frmMainClient& mainClient = *server_.mainClient;
  SimulatorBus& bus = server_.ports.simulatorBus;
  const auto window = server_.store.FsWindow;
  bus.showWindow(window, mainClient.Settings(Setting::FsMaximized).Checked());
  if (mainClient.Settings(Setting::FsOnTop).Checked()) bus.bringToFront(window);
  server_.soundEvents->startSounds();
  server_.store.CycleRunning = true;
  if (server_.store.FsVersionCode < FirstVersionWithoutPausePulse) mainClient.startPausePulse();
}

void modMain::startPollTimer() { server_.mainClient->startPollTimer(); }

std::string modMain::cockpit() const { return server_.mainClient->cboDir.Text(); }

bool modMain::CheckMasterConflict() {
  frmMainClient& mainClient = *server_.mainClient;
  const frmConnect* firstUp = nullptr;
  for (const auto& session : server_.connect) {
    if (!session->IsUp()) continue;
    if (firstUp == nullptr) firstUp = session.get();
    if (mainClient.FmcName().empty() || session->FmcName() == mainClient.FmcName()) continue;
    mainClient.killCycleTimer();
    server_.ports.op.messageBox("Master conflict: Please resolve\nNo FMS possible", BoxIcon::Plain,
                                "Vorlent");
    return true;
  }
  if (firstUp != nullptr) mainClient.FmcName(firstUp->FmcName());
  return false;
}

}  // namespace vorlent
