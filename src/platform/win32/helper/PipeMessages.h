#pragma once

#include <cstddef>
#include <optional>

#include "platform/helper/Message.h"

namespace vorlent {

/// Writes a message to a pipe and waits until its reader took it. False when he is gone.
bool writeMessage(void* pipe, const Message& message);
/// The next message of a pipe, which is waited for. Nothing when its writer is gone, or for one
/// that is longer than `most_bytes`, or in pieces that do not fit.
std::optional<Message> readMessage(void* pipe, std::size_t most_bytes);

}  // namespace vorlent
