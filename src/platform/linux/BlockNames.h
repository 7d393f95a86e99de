#pragma once

#include <string>

/// The names of the shared blocks that this process has made, so that they go away even when no
/// destructor runs. There is one list in the process because a signal handler has to reach it.
namespace vorlent {

/// `name` as shm_open() takes it. False when there is no room for it.
bool rememberBlockName(const std::string& name);
void forgetBlockName(const std::string& name);
bool isOwnBlockName(const std::string& name);

/// From now on the names that are still there are unlinked by exit(), by std::terminate() and
/// abort(), and by the signals that end a process, but SIGINT and SIGTERM, which have an orderly
/// end, and SIGKILL, which nothing can catch. What the signal did before, a core dump say, it does
/// afterwards. A signal that is ignored stays so, and a view that is mended (SharedViews.h) ends
/// nothing.
void unlinkBlocksAtAbruptEnd();

}  // namespace vorlent
