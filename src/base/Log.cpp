#include "base/Log.h"

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/printable.h"
#include "base/text.h"

namespace vorlent {

void Log::WriteLog(std::string_view text) const {
  const std::string oneLine = replaced(replaced(text, "\r", " "), "\n", " ");
  std::string line = printable(oneLine) + "\r\n";
  try {
    const auto size = fileSize(path_);
    if (size >= Limit_bytes) return;
    if (size + line.size() >= Limit_bytes) line += "The log ends here: it has 100 MB\r\n";
    appendToFile(path_, line);
  } catch (const RuntimeError&) {
  }
}

void Log::remove() const {
  try {
    deleteFile(path_);
  } catch (const RuntimeError&) {
  }
}

}  // namespace vorlent
