#pragma once

#include <memory>
#include <optional>
#include <string>

namespace vorlent {

/// A program that this one has started. It is ended, and waited for, when the object goes.
class StartedProgram {
 public:
  virtual ~StartedProgram() = default;
  /// What it has written to standard output and standard error since the last call; never waits.
  virtual std::string output() = 0;
  /// Its exit status once it has ended; 128 and more when it was not by itself.
  virtual std::optional<int> ended() = 0;
  /// Asks it to end in order.
  virtual void end() = 0;
};

class ProgramStarter {
 public:
  virtual ~ProgramStarter() = default;
  /// The file `path`, with this process's standard input; nothing when it cannot be started.
  virtual std::unique_ptr<StartedProgram> start(const std::string& path) = 0;
  /// How an executable file of this name is called on this system.
  virtual std::string fileName(const std::string& program) const = 0;
};

/// As this system starts programs.
std::unique_ptr<ProgramStarter> openProgramStarter();

}  // namespace vorlent
