#pragma once

namespace vorlent {

/// Typed writers of the engine levers. None is there yet.
class clsEng {};

}  // namespace vorlent
