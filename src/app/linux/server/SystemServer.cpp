#include <csignal>
#include <ctime>
#include <memory>
#include <string>

#include "app/ServerRecorder.h"
#include "app/SystemServer.h"
#include "base/files.h"
#include "platform/FolderNetworkFiles.h"
#include "platform/MdbPerformanceDb.h"
#include "platform/PlatformSettings.h"
#include "platform/SystemSoundOutput.h"
#include "platform/ThreadedSoundDevice.h"
#include "platform/linux/BlockNames.h"
#include "platform/linux/FolderLock.h"
#include "platform/linux/HelperProcess.h"
#include "platform/linux/LinuxControllers.h"
#include "platform/linux/LocaleRegional.h"
#include "platform/linux/RecorderProcess.h"
#include "platform/linux/ShareCredentials.h"
#include "platform/linux/SmbNetworkFiles.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "platform/linux/UserShare.h"
#include "platform/linux/XTestKeyboard.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/XdgDocuments.h"
#include "platform/qt/ZipHelper.h"

namespace vorlent {
namespace {

/// The folder that stands for the network, or the network itself. Credentials that are refused are
/// told to the operator, and then everything is asked for as nobody in particular.
std::unique_ptr<NetworkFiles> openNetworkFiles(const PlatformSettings& settings, Operator& op,
                                               EventLoop& loop) {
  if (!settings.ShareRoot.empty()) return std::make_unique<FolderNetworkFiles>(settings.ShareRoot);
  ShareCredentials credentials;
  try {
    credentials = readShareCredentials(settings.ShareCredentials);
  } catch (const RuntimeError& error) {
    op.messageBox(error.description(), BoxIcon::Exclamation, "Vorlent");
  }
  return std::make_unique<SmbNetworkFiles>(
      SmbNetworkFiles::Settings{helperProgram("vorlent-share"), credentials, settings.SharePort,
                                SmbNetworkFiles::Deadline},
      loop);
}

/// "2026-11-22 13:16:00", in the zone that the computer is set to.
std::string localTimeText() {
  constexpr std::size_t Room = 32;
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  std::string text(Room, '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts));
  return text;
}

}  // namespace

struct SystemServer::Parts {
  Parts(const std::string& programFolder, Operator& op, FileChooser& chooser)
      : settings(readPlatformSettings(joinedPath(programFolder, "Vorlent.ini"))),
        network(settings.LocalIp),
        networkFiles(openNetworkFiles(settings, op, eventLoop)),
        performanceDb(*networkFiles, askOnce(helperProgram("vorlent-mdb"))),
        ports{eventLoop,     op,          network,   bus,      *networkFiles,
              performanceDb, ownShare,    regional,  instance, controllers,
              keyboard,      soundDevice, documents, chooser,  zipFiles},
        recorder(settings.Recorder.empty() ? nullptr
                                           : std::make_unique<ServerRecorder<RecorderProcess>>(
                                                 helperProgram("vorlent-recorder"), localTimeText(),
                                                 settings, programFolder, ports)),
        server(recorder ? recorder->recorder().ports() : ports, {programFolder, {}, settings}) {
    if (recorder) recorder->recorder().follow(server);
  }

  PlatformSettings settings;
  QtEventLoop eventLoop;
  QtNetwork network;
  UnixSimulatorBus bus;
  std::unique_ptr<NetworkFiles> networkFiles;
  MdbPerformanceDb performanceDb;
  UserShare ownShare;
  LocaleRegional regional;
  FolderLock instance;
  LinuxControllers controllers;
  XTestKeyboard keyboard;
  ThreadedSoundDevice soundDevice{std::make_unique<SystemSoundOutput>(),
                                  ThreadedSoundDevice::Silence::Offered};
  XdgDocuments documents;
  ZipHelper zipFiles{helperProgram("vorlent-zip")};
  Ports ports;
  std::unique_ptr<ServerRecorder<RecorderProcess>> recorder;
  Server server;
};

SystemServer::SystemServer(const std::string& programFolder, Operator& op, FileChooser& chooser)
    : parts_(std::make_unique<Parts>(programFolder, op, chooser)) {
  unlinkBlocksAtAbruptEnd();
  // Somebody who stops reading what the program says must not end it.
  std::signal(SIGPIPE, SIG_IGN);
  // Nor must a limit on the size of files: what is beyond it is told like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
}

SystemServer::~SystemServer() = default;

Server& SystemServer::server() { return parts_->server; }
void SystemServer::hand(const recorded::HandMoved& hand) {
  if (parts_->recorder) parts_->recorder->recorder().hand(hand);
}
QtEventLoop& SystemServer::eventLoop() { return parts_->eventLoop; }

}  // namespace vorlent
