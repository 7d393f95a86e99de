#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/TempFolder.h"
#include "windows/support/Program.h"

namespace vorlent {

/// An installation of its own with its own ports: the real programs and the program folder as
/// shipped, in a folder with blanks in its name.
class WindowsCockpit {
 public:
  /// With `clients` sessions from basePort upwards.
  explicit WindowsCockpit(int clients = 3);

  /// Starts the simulator and waits until it serves; throws when it does not.
  void startSimulator(const std::vector<std::string>& options = {});
  /// Starts the server and leaves it to itself.
  void startServer(const std::string& program = "vorlentd");
  /// Starts the server without a window and waits until it is up; throws when it does not come.
  void bringServerUp();
  std::unique_ptr<Program> program(const std::string& name,
                                   const std::vector<std::string>& arguments = {}) const;
  void configure(const std::string& key, const std::string& value) const;
  std::string path(const std::string& name) const { return folder / (Name + "/" + name); }
  std::string read(const std::string& name) const { return folder.read(Name + "/" + name); }

  TempFolder folder;
  std::uint16_t basePort;
  std::unique_ptr<Program> simulator;
  std::unique_ptr<Program> server;

 private:
  static inline const std::string Name = "Flight deck 7";
};

/// A display's socket on loopback.
class DisplayLink {
 public:
  DisplayLink();
  ~DisplayLink();
  DisplayLink(const DisplayLink&) = delete;
  DisplayLink& operator=(const DisplayLink&) = delete;

  void send(std::uint16_t port, const std::string& text) const;
  /// The next datagram that starts so; others are passed over.
  std::optional<std::string> receive(const std::string& start,
                                     std::chrono::milliseconds limit = 20s) const;

 private:
  std::uintptr_t socket_;
};

}  // namespace vorlent
