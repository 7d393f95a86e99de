#include "web/qt/pageFiles.h"

#include <QFile>
#include <array>
#include <utility>

namespace vorlent {
namespace {

constexpr std::array<std::pair<const char*, const char*>, 5> Types = {{
    {".html", "text/html; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".svg", "image/svg+xml"},
    {".webmanifest", "application/manifest+json"},
}};

}  // namespace

std::optional<PageFile> pageFile(const std::string& path) {
  const QString name = path == "/" ? QString("/index.html") : QString::fromStdString(path);
  if (name.contains("..")) return std::nullopt;
  for (const auto& [suffix, type] : Types) {
    QFile file(":/page" + name);
    if (name.endsWith(QLatin1String(suffix)) && file.open(QIODevice::ReadOnly))
      return PageFile{type, file.readAll().toStdString()};
  }
  return std::nullopt;
}

}  // namespace vorlent
