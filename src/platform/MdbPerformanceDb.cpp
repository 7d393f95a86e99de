#include "platform/MdbPerformanceDb.h"

#include <utility>

#include "platform/NetworkFiles.h"
#include "platform/helper/databaseMessages.h"

namespace vorlent {
namespace {

using namespace databaseMessages;

/// A row has at most 255 fields.
constexpr std::size_t MostOfARow_bytes = 1 << 20;

PerformanceReading faultOf(std::string reason) { return {std::nullopt, std::move(reason)}; }

PerformanceReading readingOf(Message answer) {
  if (answer == Message{Empty}) return {};
  if (answer.size() == 2 && answer[0] == Fault) return faultOf(std::move(answer[1]));
  if (answer.size() % 2 == 0 || answer[0] != Row) return faultOf("The file is damaged");
  PerfDataRow row;
  for (std::size_t i = 1; i < answer.size(); i += 2)
    row.emplace(std::move(answer[i]), std::move(answer[i + 1]));
  return {std::move(row), ""};
}

}  // namespace

bool MdbPerformanceDb::open(const std::string& path) {
  const bool there = files_.exists(path);
  path_ = there ? path : "";
  return there;
}

PerformanceReading MdbPerformanceDb::read() {
  if (path_.empty()) return {};
  NetworkContent content = files_.read(path_, NetworkFiles::MostOfAPlan_bytes);
  if (content.tooLarge) return faultOf("The file is larger than 16 MB");
  if (!content) return faultOf("The file is gone, or cannot be read");
  return readBytes(*std::move(content));
}

/// A crash of the helper is the file's doing.
PerformanceReading MdbPerformanceDb::readBytes(std::string bytes) const {
  HelperAnswer answer = helper_({std::move(bytes)}, Deadline, MostOfARow_bytes);
  if (answer.missing) return faultOf("The program vorlent-mdb is missing");
  if (answer.late) return faultOf("The file is damaged, or takes more than a second to read");
  if (!answer.message) return faultOf("The file is damaged");
  return readingOf(*std::move(answer.message));
}

}  // namespace vorlent
