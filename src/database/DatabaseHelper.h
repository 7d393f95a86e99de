#pragma once

#include "platform/linux/helper/MessageSocket.h"

namespace vorlent {

/// Answers one question about a database (platform/linux/helper/databaseMessages.h). Where that
/// takes more than 5 s it ends the process: whoever asked does not wait that long.
void answerDatabaseQuestion(const MessageSocket& socket);

}  // namespace vorlent
