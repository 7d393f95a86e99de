#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// What vorlent-keeper is asked to do on its command line.
struct KeeperOptions {
  std::string program = "vorlentd";  ///< beside the keeper
};

/// The arguments without the program's name. Raises CommandLineEnd.
KeeperOptions readKeeperOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
