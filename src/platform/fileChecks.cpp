#include "platform/fileChecks.h"

#include "base/ProcessEnd.h"
#include "base/files.h"

namespace vorlent {

void CheckFileExists(Operator& op, const std::string& path, BoxIcon icon) {
  if (fileExists(path)) return;
  op.messageBox(path + " not found", icon, "File error");
  throw ProcessEnd{1};
}

}  // namespace vorlent
