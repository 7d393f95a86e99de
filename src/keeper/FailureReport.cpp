#include "keeper/FailureReport.h"

#include "base/files.h"

namespace vorlent {

void FailureReport::add(const std::string& when, const std::string& how,
                        const std::string& lastWords) {
  entries_.push_front(when + ": the server " + how + ". It said last:\n" + lastWords + "\n");
  if (entries_.size() > MostEntries) entries_.pop_back();
  std::string all;
  for (const std::string& entry : entries_) all += entry;
  replaceFile(path_, all, Link::Replaced);
}

}  // namespace vorlent
