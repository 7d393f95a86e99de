#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "core/Server.h"
#include "platform/Drives.h"
#include "platform/Operator.h"
#include "platform/ProgramFolder.h"
#include "platform/qt/QtEventLoop.h"
#include "recording/Event.h"

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

/// The server on this system's adapters, whoever the operator is, and with the optional settings of
/// the section [Platform].
class SystemServer {
 public:
  SystemServer(const std::string& programFolder, Operator& op, FileChooser& chooser);
  ~SystemServer();
  SystemServer(const SystemServer&) = delete;
  SystemServer& operator=(const SystemServer&) = delete;

  Server& server();
  /// Tells a recording, if there is one, what the operator is about to do.
  void hand(const recorded::HandMoved& hand);
  QtEventLoop& eventLoop();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vorlent
