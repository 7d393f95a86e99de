#include <memory>
#include <string>

#include "app/SystemServer.h"
#include "base/files.h"
#include "platform/DeadlineNetworkFiles.h"
#include "platform/FolderNetworkFiles.h"
#include "platform/MdbPerformanceDb.h"
#include "platform/PlatformSettings.h"
#include "platform/SystemSoundOutput.h"
#include "platform/ThreadedSoundDevice.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/ZipHelper.h"
#include "platform/win32/DirectInputControllers.h"
#include "platform/win32/NamedMutexLock.h"
#include "platform/win32/NetShare.h"
#include "platform/win32/PipedHelper.h"
#include "platform/win32/ProfileRegional.h"
#include "platform/win32/SendInputKeyboard.h"
#include "platform/win32/ShellDocuments.h"
#include "platform/win32/SystemFiles.h"
#include "platform/win32/UncNetworkFiles.h"
#include "platform/win32/WindowsSimulatorBus.h"

namespace vorlent {
namespace {

/// The folder that stands for the network, or the network itself.
std::unique_ptr<NetworkFiles> openNetworkFiles(const PlatformSettings& settings, EventLoop& loop) {
  if (!settings.ShareRoot.empty()) return std::make_unique<FolderNetworkFiles>(settings.ShareRoot);
  return std::make_unique<DeadlineNetworkFiles>(std::make_shared<UncNetworkFiles>(), loop);
}

}  // namespace

struct SystemServer::Parts {
  Parts(const std::string& programFolder, Operator& op, FileChooser& chooser)
      : settings(readPlatformSettings(joinedPath(programFolder, "Vorlent.ini"))),
        network(settings.LocalIp),
        networkFiles(openNetworkFiles(settings, eventLoop)),
        performanceDb(*networkFiles, askOnce(helperProgram("vorlent-mdb"))),
        server({eventLoop, op, network, bus, *networkFiles, performanceDb, ownShare, regional,
                instance, controllers, keyboard, soundDevice, documents, chooser, zipFiles},
               {programFolder, systemFiles(), settings}) {}

  PlatformSettings settings;
  QtEventLoop eventLoop;
  QtNetwork network;
  WindowsSimulatorBus bus;
  std::unique_ptr<NetworkFiles> networkFiles;
  MdbPerformanceDb performanceDb;
  NetShare ownShare;
  ProfileRegional regional;
  NamedMutexLock instance;
  DirectInputControllers controllers;
  SendInputKeyboard keyboard;
  ThreadedSoundDevice soundDevice{std::make_unique<SystemSoundOutput>(),
                                  ThreadedSoundDevice::Silence::NotOffered};
  ShellDocuments documents;
  ZipHelper zipFiles{helperProgram("vorlent-zip")};
  Server server;
};

SystemServer::SystemServer(const std::string& programFolder, Operator& op, FileChooser& chooser)
    : parts_(std::make_unique<Parts>(programFolder, op, chooser)) {}

SystemServer::~SystemServer() = default;

Server& SystemServer::server() { return parts_->server; }
/// There is no recorder for Windows.
void SystemServer::hand(const recorded::HandMoved& /*hand*/) {}
QtEventLoop& SystemServer::eventLoop() { return parts_->eventLoop; }

}  // namespace vorlent
