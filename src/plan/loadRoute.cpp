#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "base/text.h"
#include "plan/Route.h"

namespace vorlent {
namespace {

struct Format {
  std::string_view ending;
  Route (*read)(std::string_view text);
};

constexpr Format Formats[] = {
    {".FMS", readXPlaneRoute},
    {".FPL", readGarminRoute},
    {".LNMPLN", readLittleNavmapRoute},
};

Route readAs(const Format& format, const std::string& path) {
  const auto text = readFileUpTo(path, Route::LargestFile_bytes);
  if (text) return format.read(*text);
  throw RuntimeError(RuntimeError::InvalidCall, "a route file has at most 4 MB");
}

}  // namespace

Route loadRoute(const std::string& path) {
  const std::string name = upperCase(path);
  try {
    for (const Format& format : Formats)
      if (name.ends_with(format.ending)) return readAs(format, path);
    throw RuntimeError(RuntimeError::InvalidCall,
                       "the end of its name is none of .fms, .fpl and .lnmpln");
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), path + ": " + error.description());
  }
}

}  // namespace vorlent
