#pragma once

namespace vorlent {

struct Server;

/// Typed writers of the controls, in the simulator's units. Only the trims are there yet.
class clsSrv {
 public:
  explicit clsSrv(Server& server) : server_(server) {}

  /// Radians. Written only while the autopilot is engaged.
  void AileronTrim(float radians);
  /// Radians. Written whether or not the autopilot is engaged: the exit relies on that.
  void RudderTrim(float radians);

 private:
  Server& server_;
};

}  // namespace vorlent
