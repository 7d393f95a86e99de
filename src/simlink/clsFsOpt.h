#pragma once

namespace vorlent {

struct Server;

/// Typed writers of the simulator's switches. Only the pause is there yet.
class clsFsOpt {
 public:
  explicit clsFsOpt(Server& server) : server_(server) {}

  /// 1 pauses, 0 lets go; cut to a whole number of a byte. Raises Overflow outside a byte.
  void FSPaused(float value);

 private:
  Server& server_;
};

}  // namespace vorlent
