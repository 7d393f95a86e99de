#pragma once

#include <string>

#include "display/RecordReader.h"

namespace vorlent {

/// The flight in one line, for an output that is no terminal.
std::string reportLine(const Record& record);

/// Every token in a line of its own: name, value with a point as decimal mark, unit.
std::string fieldList(const Record& record);

}  // namespace vorlent
