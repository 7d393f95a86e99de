#pragma once

namespace vorlent {

/// Typed writers of the radios. None is there yet.
class clsRadio {};

}  // namespace vorlent
