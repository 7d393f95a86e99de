#pragma once

#include <csignal>
#include <memory>
#include <optional>
#include <string>

#include "app/LinuxRecorder.h"
#include "base/RuntimeError.h"
#include "base/files.h"
#include "core/Server.h"
#include "platform/Drives.h"
#include "platform/Operator.h"
#include "platform/PlatformSettings.h"
#include "platform/ProgramFolder.h"
#include "platform/SystemSoundOutput.h"
#include "platform/ThreadedSoundDevice.h"
#include "platform/linux/BlockNames.h"
#include "platform/linux/FolderLock.h"
#include "platform/linux/FolderNetworkFiles.h"
#include "platform/linux/LinuxControllers.h"
#include "platform/linux/LocaleRegional.h"
#include "platform/linux/MdbPerformanceDb.h"
#include "platform/linux/ShareCredentials.h"
#include "platform/linux/SmbNetworkFiles.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "platform/linux/UserShare.h"
#include "platform/linux/XTestKeyboard.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"
#include "platform/qt/XdgDocuments.h"
#include "platform/qt/ZipHelper.h"

namespace vorlent {

/// The program folder; nothing when there is none, which the operator has been told then.
inline std::optional<std::string> programFolderOrBox(Operator& op) {
  try {
    return programFolder();
  } catch (const RuntimeError& error) {
    op.messageBox(error.description(), BoxIcon::Critical, "Vorlent");
    return std::nullopt;
  }
}

/// The folder that stands for the network, or the network itself. Credentials that are refused are
/// told to the operator, and then everything is asked for as nobody in particular.
inline std::unique_ptr<NetworkFiles> openNetworkFiles(const PlatformSettings& settings,
                                                      Operator& op, EventLoop& loop) {
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

/// What stands behind the server's ports in the programs on Linux, whoever the operator is, and the
/// optional settings of the section [Platform].
class LinuxServer {
 public:
  LinuxServer(const std::string& programFolder, Operator& op, FileChooser& chooser)
      : settings_(readPlatformSettings(joinedPath(programFolder, "Vorlent.ini"))),
        network_(settings_.LocalIp),
        networkFiles_(openNetworkFiles(settings_, op, eventLoop_)),
        performanceDb_(*networkFiles_, helperProgram("vorlent-mdb")),
        ports_{eventLoop_,     op,           network_,   bus_,      *networkFiles_,
               performanceDb_, ownShare_,    regional_,  instance_, controllers_,
               keyboard_,      soundDevice_, documents_, chooser,   zipFiles_},
        recorder_(settings_.Recorder.empty()
                      ? nullptr
                      : std::make_unique<LinuxRecorder>(settings_, programFolder, ports_)),
        server_(recorder_ ? recorder_->recorder().ports() : ports_,
                {programFolder, {}, settings_}) {
    if (recorder_) recorder_->recorder().follow(server_);
    unlinkBlocksAtAbruptEnd();
    // Somebody who stops reading what the program says must not end it.
    std::signal(SIGPIPE, SIG_IGN);
    // Nor must a limit on the size of files: what is beyond it is told like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
  }

  Server& server() { return server_; }
  /// Tells a recording, if there is one, what the operator is about to do.
  void hand(const recorded::HandMoved& hand) {
    if (recorder_) recorder_->recorder().hand(hand);
  }
  QtEventLoop& eventLoop() { return eventLoop_; }

 private:
  PlatformSettings settings_;
  QtEventLoop eventLoop_;
  QtNetwork network_;
  UnixSimulatorBus bus_;
  std::unique_ptr<NetworkFiles> networkFiles_;
  MdbPerformanceDb performanceDb_;
  UserShare ownShare_;
  LocaleRegional regional_;
  FolderLock instance_;
  LinuxControllers controllers_;
  XTestKeyboard keyboard_;
  ThreadedSoundDevice soundDevice_{std::make_unique<SystemSoundOutput>(),
                                   ThreadedSoundDevice::Silence::Offered};
  XdgDocuments documents_;
  ZipHelper zipFiles_{helperProgram("vorlent-zip")};
  Ports ports_;
  std::unique_ptr<LinuxRecorder> recorder_;
  Server server_;
};

}  // namespace vorlent
