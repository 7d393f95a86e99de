#pragma once

#include <string>
#include <vector>

#include "support/IndependentAutoflight.h"

namespace vorlent {

struct ExecutedPlan;

/// What differs in the plans that the server and the independent autoflight have read, as "where:
/// theirs, ours"; empty when nothing does.
std::string differenceOfPlans(const ExecutedPlan& product, const independent::Plan& independent);

/// What of these lines of log.txt is not as it should be. Lines that tell of files are passed over.
std::string differenceOfLogs(const std::vector<std::string>& product,
                             const std::vector<IndependentAutoflight::LogLine>& independent);

/// The lines that a file has got since they were last taken.
class LinesOfFile {
 public:
  explicit LinesOfFile(std::string path) : path_(std::move(path)) {}
  std::vector<std::string> take();

 private:
  std::string path_;
  std::uintmax_t taken_ = 0;
};

}  // namespace vorlent
