#pragma once

namespace vorlent {

struct Autoflight;
struct modPublic;

/// How many engine blocks the record has: all up to the one whose number is the engine count; a
/// count that is no number of an engine gives all four.
int engineBlocks(int engineCount);

/// Rebuilds the store's DataRecord from the variables and the autoflight. `blocks` is 0..4.
void buildDataRecord(modPublic& variables, const Autoflight& autoflight, int blocks);

}  // namespace vorlent
