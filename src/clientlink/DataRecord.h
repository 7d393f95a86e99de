#pragma once

#include <string>

namespace vorlent {

struct Server;
struct modPublic;

/// Appends the 34 tokens of engine n to `engineText`.
void appendEngineBlock(const modPublic& variables, int n, std::string& engineText);

/// Rebuilds the store's DataRecord from the variables, the engines' blocks and the autoflight.
void buildDataRecord(Server& server, const std::string& engineText);

}  // namespace vorlent
