#pragma once

namespace vorlent {

struct Autoflight;
struct modPublic;

/// Rebuilds the store's DataRecord from the variables and the autoflight.
void buildDataRecord(modPublic& variables, const Autoflight& autoflight);

}  // namespace vorlent
