#pragma once

#include <memory>
#include <string>
#include <vector>

#include "endtoend/Process.h"
#include "support/TempFolder.h"

namespace vorlent {

/// What `cmake --install` makes of the build, in a folder of its own, and an empty home.
class InstalledPrograms {
 public:
  /// Throws when it cannot be installed.
  InstalledPrograms();

  std::string installed(const std::string& name) const { return folder / ("usr/" + name); }
  /// A file of the user whose home it is.
  std::string own(const std::string& name) const { return ownFolder() + "/" + name; }
  std::string ownFolder() const { return folder / (home + "/.local/share/vorlent"); }
  /// Starts one of its programs.
  std::unique_ptr<Process> program(const std::string& name,
                                   const std::vector<std::string>& arguments = {}) const;
  /// Starts any program as its user.
  std::unique_ptr<Process> start(const std::string& path,
                                 const std::vector<std::string>& arguments) const;

  TempFolder folder;
  std::string home = "home";  ///< of the user, in the folder
};

}  // namespace vorlent
