#pragma once

#include <csignal>
#include <string>

#include "base/files.h"
#include "core/Server.h"
#include "platform/PlatformSettings.h"
#include "platform/linux/BlockNames.h"
#include "platform/linux/FolderLock.h"
#include "platform/linux/FolderNetworkFiles.h"
#include "platform/linux/LinuxControllers.h"
#include "platform/linux/LocaleRegional.h"
#include "platform/linux/UnixSimulatorBus.h"
#include "platform/linux/UserShare.h"
#include "platform/linux/XTestKeyboard.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtNetwork.h"

namespace vorlent {

/// What stands behind the server's ports in the programs on Linux, whoever the operator is, and the
/// optional settings of the section [Platform].
class LinuxServer {
 public:
  LinuxServer(const std::string& programFolder, Operator& op)
      : settings_(readPlatformSettings(joinedPath(programFolder, "Vorlent.ini"))),
        network_(settings_.LocalIp),
        networkFiles_(settings_.ShareRoot),
        server_({eventLoop_, op, network_, bus_, networkFiles_, ownShare_, regional_, instance_,
                 controllers_, keyboard_},
                {programFolder, {}, settings_}) {
    unlinkBlocksAtAbruptEnd();
    // Somebody who stops reading what the program says must not end it.
    std::signal(SIGPIPE, SIG_IGN);
  }

  Server& server() { return server_; }
  QtEventLoop& eventLoop() { return eventLoop_; }

 private:
  PlatformSettings settings_;
  QtEventLoop eventLoop_;
  QtNetwork network_;
  UnixSimulatorBus bus_;
  FolderNetworkFiles networkFiles_;
  UserShare ownShare_;
  LocaleRegional regional_;
  FolderLock instance_;
  LinuxControllers controllers_;
  XTestKeyboard keyboard_;
  Server server_;
};

}  // namespace vorlent
