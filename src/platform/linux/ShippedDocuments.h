#pragma once

#include <string>

namespace vorlent {

/// Documents are not like settings: a user wants those of the programs that he has. Replaces each
/// file in `folder`/Docs that the user did not change by that of `shipped`, where that is another
/// one. What was copied is kept in `folder`/Docs/.shipped; a file that is not in there is kept
/// beside the new one as `<name>.bak`. Raises filesystem_error.
void renewDocuments(const std::string& shipped, const std::string& folder);

}  // namespace vorlent
