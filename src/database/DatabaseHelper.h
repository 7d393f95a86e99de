#pragma once

namespace vorlent {

/// Answers one question about a database (platform/helper/databaseMessages.h), over the connection
/// that standard input, on Windows with standard output, is. Where that takes more than 5 s it ends
/// the process: whoever asked does not wait that long.
void answerDatabaseQuestion();

}  // namespace vorlent
