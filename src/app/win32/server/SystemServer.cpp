#include <windows.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "app/ServerRecorder.h"
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
#include "platform/win32/RecorderProcess.h"
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

/// "2026-11-22 13:16:00", in the zone that the computer is set to.
std::string localTimeText() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", now.wYear, now.wMonth,
                now.wDay, now.wHour, now.wMinute, now.wSecond);
  return text.data();
}

}  // namespace

struct SystemServer::Parts {
  Parts(const std::string& programFolder, Operator& op, FileChooser& chooser)
      : settings(readPlatformSettings(joinedPath(programFolder, "Vorlent.ini"))),
        network(settings.LocalIp),
        networkFiles(openNetworkFiles(settings, eventLoop)),
        performanceDb(*networkFiles, askOnce(helperProgram("vorlent-mdb"))),
        ports{eventLoop,     op,          network,   bus,      *networkFiles,
              performanceDb, ownShare,    regional,  instance, controllers,
              keyboard,      soundDevice, documents, chooser,  zipFiles},
        recorder(settings.Recorder.empty() ? nullptr
                                           : std::make_unique<ServerRecorder<RecorderProcess>>(
                                                 helperProgram("vorlent-recorder"), localTimeText(),
                                                 settings, programFolder, ports)),
        server(recorder ? recorder->recorder().ports() : ports,
               {programFolder, systemFiles(), settings}) {
    if (recorder) recorder->recorder().follow(server);
  }

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
  Ports ports;
  std::unique_ptr<ServerRecorder<RecorderProcess>> recorder;
  Server server;
};

SystemServer::SystemServer(const std::string& programFolder, Operator& op, FileChooser& chooser)
    : parts_(std::make_unique<Parts>(programFolder, op, chooser)) {}

SystemServer::~SystemServer() = default;

Server& SystemServer::server() { return parts_->server; }
void SystemServer::hand(const recorded::HandMoved& hand) {
  if (parts_->recorder) parts_->recorder->recorder().hand(hand);
}
QtEventLoop& SystemServer::eventLoop() { return parts_->eventLoop; }

}  // namespace vorlent
