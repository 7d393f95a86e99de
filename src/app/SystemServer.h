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
  QtEventLoop& eventLoop();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace vorlent
