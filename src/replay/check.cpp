#include "replay/check.h"

#include <array>
#include <cstdio>

#include "base/RuntimeError.h"
#include "recording/sqlite/RecordingReader.h"
#include "replay/Replica.h"

namespace vorlent {
namespace {

std::string seconds(std::int64_t time_us) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f s", static_cast<double>(time_us) / 1e6);
  return text.data();
}

std::string differencesOf(const WriteComparison& writes) {
  std::string lines;
  for (const WriteDifference& difference : writes.first()) lines += textOf(difference) + "\n";
  const std::uint64_t more = writes.differences() - writes.first().size();
  if (more > 0) lines += "and " + std::to_string(more) + " more\n";
  return lines;
}

/// Where it could not be followed to its end.
std::string limitsOf(const Replica& replica, const RecordingSummary& summary) {
  if (replica.gap_us())
    return "events are missing at " + seconds(*replica.gap_us()) +
           ", what follows was not checked\n";
  return summary.ended ? "" : "the recording was cut off at " + seconds(summary.length_us) + "\n";
}

}  // namespace

CheckResult checkRecording(RecordingReader& reader) {
  Replica replica(reader);
  replica.run();
  if (!reader.fault().empty()) throw RuntimeError(RuntimeError::InputPastEnd, reader.fault());
  const WriteComparison& writes = replica.writes();
  if (writes.recordedWrites() == 0 && writes.differences() == 0)
    throw RuntimeError(
        RuntimeError::InputPastEnd,
        "Nothing is written to a simulator in the recording, so there is nothing to check");
  const std::string end = replica.differenceOfEnd();
  const std::string count =
      std::to_string(writes.recordedWrites()) + " writes in " + seconds(replica.reached_us());
  const bool same = writes.differences() == 0 && end.empty();
  const std::string verdict =
      same ? ", all as then\n" : ", " + std::to_string(writes.differences()) + " differences\n";
  return {same, differencesOf(writes) + (end.empty() ? "" : end + "\n") +
                    limitsOf(replica, reader.summary()) + count + verdict};
}

}  // namespace vorlent
