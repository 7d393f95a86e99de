#pragma once

namespace vorlent {

/// Plays the wave files on the chosen sound device. Nothing of it is there yet.
class clsSound {};

}  // namespace vorlent
