#pragma once

#include <string>

#include "platform/win32/PipedHelper.h"
#include "support/TempFolder.h"
#include "support/places.h"

namespace vorlent {

inline std::string databaseHelper() { return programsFolder() + "/vorlent-mdb.exe"; }

/// A program that never answers a database whose bytes are "hang".
inline std::string hangingHelper(const TempFolder&) { return programsFolder() + "/HelperSide.exe"; }

}  // namespace vorlent
