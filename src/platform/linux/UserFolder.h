#pragma once

#include <string>

namespace vorlent {

/// `$XDG_DATA_HOME/vorlent`, by default `~/.local/share/vorlent`: where the files of a user lie
/// whose programs a package installed. Raises PathNotFound when the user has no home.
std::string userFolder();

/// Copies every file below `shipped` that `folder` does not have, Vorlent.ini last, and makes the
/// folders on the way. What is there stays as it is, but for shipped documents that the user did
/// not change (ShippedDocuments.h). Each file comes whole or not at all, so a copy
/// that is cut off is completed by the next. Raises PathAccess with the file and the reason.
void addMissingFiles(const std::string& shipped, const std::string& folder);

/// The program folder of an executable in `executableFolder`: that folder itself, unless it has no
/// Vorlent.ini and `../share/vorlent` has one. Then it is the user's own, filled from there.
std::string programFolderOf(const std::string& executableFolder);

}  // namespace vorlent
