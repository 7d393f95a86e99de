#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorlent {

class RecordingReader;
class StoreVariable;

/// Gets a piece of the text, whole lines.
using Print = std::function<void(std::string_view text)>;

/// The variables at each poll as CSV: a line of names, `time_s` before them, then a line a poll.
/// Raises what the Replica raises.
void printCsv(RecordingReader& reader, const std::vector<const StoreVariable*>& variables,
              const Print& print);

/// A script for gnuplot, with the numbers in it: a plot each, one below the other.
void printPlot(RecordingReader& reader, const std::vector<const StoreVariable*>& variables,
               const Print& print);

}  // namespace vorlent
