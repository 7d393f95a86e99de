#pragma once

#include <string>
#include <vector>

namespace vorlent {

/// What vorlent-replay is asked to do.
struct ReplayOptions {
  enum class Task { Play, Check, Csv, Plot };

  Task task = Task::Play;
  std::string file;
  std::vector<std::string> variables;  ///< for Csv and Plot, one at least
  double speed = 1;
  bool loop = false;
};

/// The arguments without the program's name. Raises CommandLineEnd.
ReplayOptions readReplayOptions(const std::vector<std::string>& arguments);

}  // namespace vorlent
