#include "base/Log.h"

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"

namespace vorlent {

void Log::WriteLog(std::string_view text) const {
  const std::string oneLine = replaced(replaced(text, "\r", " "), "\n", " ");
  try {
    appendToFile(path_, oneLine + "\r\n");
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
