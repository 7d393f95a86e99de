#include "replay/series.h"

#include <array>
#include <cstdio>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "recording/sqlite/RecordingReader.h"
#include "replay/Replica.h"
#include "replay/storeVariables.h"

namespace vorlent {
namespace {

using Variables = std::vector<const StoreVariable*>;

/// A text that would break the row stands in quotes, its own ones doubled (RFC 4180).
std::string cell(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return '"' + replaced(text, "\"", "\"\"") + '"';
}

std::string timeText(std::int64_t time_us) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.3f", static_cast<double>(time_us) / 1e6);
  return text.data();
}

void printRows(RecordingReader& reader, const Variables& variables, const Print& print) {
  Replica(reader).run([&](std::int64_t time_us, const modPublic& store) {
    std::string row = timeText(time_us);
    for (const StoreVariable* variable : variables) row += "," + cell(variable->value(store));
    print(row + "\n");
  });
  if (!reader.fault().empty()) throw RuntimeError(RuntimeError::InputPastEnd, reader.fault());
}

}  // namespace

void printCsv(RecordingReader& reader, const Variables& variables, const Print& print) {
  std::string names = "time_s";
  for (const StoreVariable* variable : variables) names += "," + variable->name();
  print(names + "\n");
  printRows(reader, variables, print);
}

void printPlot(RecordingReader& reader, const Variables& variables, const Print& print) {
  print("$flight << EOD\n");
  printRows(reader, variables, print);
  print("EOD\nset datafile separator \",\"\nset grid\nset xlabel \"seconds\"\n");
  print("set multiplot layout " + std::to_string(variables.size()) + ",1\n");
  int column = 2;
  for (const StoreVariable* variable : variables)
    print("plot $flight using 1:" + std::to_string(column++) + " with lines title \"" +
          variable->name() + "\" noenhanced\n");
  print("unset multiplot\n");
}

}  // namespace vorlent
