#include "base/print.h"

#include "base/BackgroundWrite.h"

namespace vorlent {
namespace {

// Of POSIX; Windows' C library has the same numbers.
constexpr int StandardOutput = 1;
constexpr int StandardError = 2;

}  // namespace

void print(std::string_view text) { writeAll(StandardOutput, text); }
void printError(std::string_view text) { writeAll(StandardError, text); }

}  // namespace vorlent
