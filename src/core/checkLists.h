#pragma once

#include <string>

namespace vorlent {

/// What the operator is asked to check at the start.
std::string startCheckList();
/// What he is asked to check from the menu Help.
std::string helpCheckList();

}  // namespace vorlent
