#pragma once

#include <optional>

namespace vorlent {

/// Keeps a damaged place out of the stream. One that is far from the last counts only when the next
/// one lies there, too: then the simulator has put its aircraft elsewhere.
class PlaceCheck {
 public:
  struct Place {
    double latitude_deg;
    double longitude_deg;
    double altitude_m;
  };

  /// Whether the place is to be believed.
  bool accepts(const Place& place);

 private:
  std::optional<Place> last_;
  std::optional<Place> suspect_;
};

}  // namespace vorlent
