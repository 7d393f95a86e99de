#pragma once

#include <string>

namespace vorlent {

/// The folder in which the windows of the simulator interface stand as sockets, without a slash at
/// its end: `$VORLENT_BUS`, else `$XDG_RUNTIME_DIR/vorlent`, else `/tmp/vorlent-<uid>`. It is made
/// with mode 0700 where it does not exist. Raises RuntimeError (PathAccess), with the folder in its
/// description, when it cannot be made, belongs to another user, or others may write to it.
std::string busFolder();

}  // namespace vorlent
