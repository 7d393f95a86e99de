#pragma once

#include <string>

#include "platform/helper/Message.h"

namespace vorlent {

/// Where a helper of ours is: beside the program that asks.
std::string helperProgram(const std::string& name);

/// A new helper for each question, which stands on its standard input and has its answer from its
/// standard output. It is ended with its question, and with this process.
AskHelper askOnce(const std::string& program);

}  // namespace vorlent
