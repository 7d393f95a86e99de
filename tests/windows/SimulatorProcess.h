#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace vorlent {

/// The program SimulatorSide, running, ready when the constructor returns. It ends with this
/// object, and with this process.
class SimulatorProcess {
 public:
  /// `arguments` as the program takes them.
  explicit SimulatorProcess(const std::string& arguments = "UIPCMAIN",
                            const std::string& program = "SimulatorSide");
  ~SimulatorProcess();
  SimulatorProcess(const SimulatorProcess&) = delete;
  SimulatorProcess& operator=(const SimulatorProcess&) = delete;

  /// What it said first: "ready", unless something was wrong.
  const std::string& greeting() const { return greeting_; }
  /// Lets SimulatorSide go on with a request that hangs.
  void goOn();
  /// Ends it and waits until it is gone.
  void end();

 private:
  struct Close {
    void operator()(void* handle) const;
  };
  using Handle = std::unique_ptr<void, Close>;
  struct Pipe {
    Handle read;
    Handle write;
  };

  static Pipe inheritablePipe();
  void start(const std::string& commandLine);
  std::string firstLine() const;

  Handle job_;
  Handle process_;
  Pipe input_;
  Pipe output_;
  std::string greeting_;
};

}  // namespace vorlent
