#pragma once

#include <filesystem>
#include <string>

#include "platform/linux/HelperProcess.h"
#include "support/TempFolder.h"
#include "support/places.h"

namespace vorlent {

inline std::string databaseHelper() { return programsFolder() + "/vorlent-mdb"; }

/// A program that never answers a database whose bytes are "hang".
inline std::string hangingHelper(const TempFolder& folder) {
  folder.write("hanging", "#!/bin/sh\nexec sleep 60\n");
  std::filesystem::permissions(folder / "hanging", std::filesystem::perms::owner_all);
  return folder / "hanging";
}

}  // namespace vorlent
