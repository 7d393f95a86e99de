#pragma once

#include <cstdint>

namespace vorlent::autoflight {

/// 1 alone is on. Where any number above 0 will do, the place says so itself.
inline bool isOn(std::int16_t flag) { return flag == 1; }

/// A mode of `Owner`: the property that tells whether it is on, 1 or 0, and that sets it as a press
/// would, with all that follows from it.
template <class Owner>
struct Mode {
  std::int16_t (Owner::*read)() const;
  void (Owner::*write)(std::int16_t);
};

template <class Owner>
std::int16_t valueOf(const Owner& owner, const Mode<Owner>& mode) {
  return (owner.*mode.read)();
}

template <class Owner>
bool isOn(const Owner& owner, const Mode<Owner>& mode) {
  return isOn(valueOf(owner, mode));
}

template <class Owner>
void set(Owner& owner, const Mode<Owner>& mode, std::int16_t value) {
  (owner.*mode.write)(value);
}

/// Leaves a mode that is not on as it is, its annunciation and lamp with it.
template <class Owner>
void clear(Owner& owner, const Mode<Owner>& mode) {
  if (isOn(owner, mode)) set(owner, mode, 0);
}

/// A press on the mode's button: on when it is off, off when it is on.
template <class Owner>
void flip(Owner& owner, const Mode<Owner>& mode) {
  set(owner, mode, valueOf(owner, mode) == 0 ? 1 : 0);
}

}  // namespace vorlent::autoflight
