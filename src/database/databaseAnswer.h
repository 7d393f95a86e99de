#pragma once

#include <cstddef>

#include "platform/NetworkFiles.h"
#include "platform/helper/Message.h"

namespace vorlent {

constexpr std::size_t MostOfADatabaseQuestion_bytes = NetworkFiles::MostOfAPlan_bytes + 64;
constexpr unsigned LongestDatabaseCall_s = 5;

/// The answer to one question (platform/helper/databaseMessages.h). May hang, or crash, on a
/// damaged file.
Message databaseAnswer(const Message& question);

}  // namespace vorlent
