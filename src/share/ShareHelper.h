#pragma once

#include "platform/linux/helper/MessageSocket.h"

namespace vorlent {

/// Answers the questions about files of other machines (platform/linux/helper/shareMessages.h)
/// until the connection is closed. A call that takes more than 5 s ends the process: whoever asked
/// does not wait that long.
void answerShareQuestions(const MessageSocket& socket);

}  // namespace vorlent
