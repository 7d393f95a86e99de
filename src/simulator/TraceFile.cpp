#include "simulator/TraceFile.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

std::string failure(const std::string& path, int systemError) {
  return "cannot write the trace " + path + ": " + std::generic_category().message(systemError);
}

}  // namespace

TraceFile::TraceFile(const std::string& path, Note note)
    : path_(path), note_(std::move(note)), file_(std::fopen(path.c_str(), "wb")) {
  if (!file_) throw RuntimeError(RuntimeError::PathAccess, failure(path_, errno));
}

void TraceFile::write(std::string_view line) {
  if (!complete_) return;
  complete_ = std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size() &&
              std::fflush(file_.get()) == 0;
  if (!complete_) note_(failure(path_, errno));
}

}  // namespace vorlent
