#include "base/CommandLine.h"

#include "base/RuntimeError.h"

namespace vorlent {

void refuseArgument(const std::string& why) { throw RuntimeError(RuntimeError::InvalidCall, why); }

std::string_view CommandLine::next() {
  const auto argument = rest_.front();
  rest_ = rest_.subspan(1);
  return argument;
}

std::string_view CommandLine::valueOf(std::string_view option) {
  if (rest_.empty()) refuseArgument("a value is missing behind " + std::string(option));
  return next();
}

}  // namespace vorlent
