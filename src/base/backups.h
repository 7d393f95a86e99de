#pragma once

#include <string_view>

/// Saving with a way back: before a file gets other content, what it held is kept beside it as
/// `<name>.bak1`, the one before as `.bak2`, the oldest as `.bak3`. A save that changes nothing
/// keeps nothing. A backup that cannot be made never stops the save, and whatever cuts a save off
/// leaves the file with its old content or its new one.
namespace vorlent {

/// replaceFile() with a backup; raises what that raises.
void replaceKeepingBackups(std::string_view path, std::string_view content);
/// Leaves what overwriteStart() leaves, with a backup: a longer old content keeps its tail. Raises
/// what replaceFile() raises.
void overwriteStartKeepingBackups(std::string_view path, std::string_view content);

}  // namespace vorlent
