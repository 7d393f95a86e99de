#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/ChildProcess.h"
#include "platform/linux/Descriptor.h"
#include "support/TempFolder.h"

namespace vorlent {

/// A real smbd of its own on loopback, run as the user of the test. Its shares: Tarnwick for
/// everybody, ReadOnly likewise, Private for that user with the password "password", and Vorlent,
/// which a server looks for on its own machine.
class Samba {
 public:
  Samba();
  ~Samba() { stop(); }
  Samba(const Samba&) = delete;
  Samba& operator=(const Samba&) = delete;

  /// Throws when it does not serve in time.
  void start();
  /// All of its processes at once.
  void stop();
  void suspend() const;
  void resume() const;

  std::uint16_t port() const { return port_; }
  const std::string& user() const { return user_; }

  /// The shares' files, each in a folder of the share's name.
  TempFolder folder;

 private:
  void configure() const;

  std::uint16_t port_;
  std::string user_;
  std::optional<ChildProcess> server_;
  Descriptor alive_;  ///< smbd ends by itself when this is closed, as it is when a test is killed
};

}  // namespace vorlent
