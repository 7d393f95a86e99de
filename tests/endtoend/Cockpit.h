#pragma once

#include <netinet/in.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "endtoend/Process.h"
#include "support/TempFolder.h"

namespace vorlent {

/// An installation of its own with its own bus and ports: the real programs, linked into a folder,
/// and the program folder as shipped.
class Cockpit {
 public:
  /// With `clients` sessions from basePort upwards.
  explicit Cockpit(int clients = 3);

  /// Links one more of the programs into the folder.
  void addProgram(const std::string& name) const;
  /// Starts the simulator and waits until it serves; throws when it does not.
  void startSimulator(const std::vector<std::string>& options = {});
  /// Starts the server and leaves it to itself.
  void startServer();
  /// Starts the server and waits until it is up; throws when it does not come.
  void bringServerUp();
  std::unique_ptr<Process> program(const std::string& name,
                                   const std::vector<std::string>& arguments = {},
                                   std::vector<std::string> environment = {}) const;
  void configure(const std::string& key, const std::string& value) const;

  TempFolder folder;
  std::uint16_t basePort;
  std::unique_ptr<Process> simulator;
  std::unique_ptr<Process> server;
};

/// A display's socket.
class DisplaySocket {
 public:
  explicit DisplaySocket(const std::string& address = "127.0.0.1");
  ~DisplaySocket();
  DisplaySocket(const DisplaySocket&) = delete;
  DisplaySocket& operator=(const DisplaySocket&) = delete;

  void send(std::uint16_t port, const std::string& text) const;
  /// The next datagram that starts so; others are passed over.
  std::optional<std::string> receive(const std::string& start,
                                     std::chrono::milliseconds limit = 10s) const;

 private:
  int socket_;
};

/// The first free one of `count` ports in a row.
std::uint16_t freePorts(int count);

}  // namespace vorlent
