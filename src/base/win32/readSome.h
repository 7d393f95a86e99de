#pragma once

#include <string>

namespace vorlent {

/// The next bytes of a descriptor, UTF-8 where it is a console; waits for them. Empty at the end.
std::string readSome(int descriptor);

}  // namespace vorlent
