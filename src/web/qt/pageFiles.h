#pragma once

#include <optional>
#include <string>

#include "web/pageAnswers.h"

namespace vorlent {

/// A file of the page, which is part of the program; "/" is its beginning.
std::optional<PageFile> pageFile(const std::string& path);

}  // namespace vorlent
