#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace vorlent {

struct PageFile {
  QByteArray type;  ///< for "Content-Type"
  QByteArray content;
};

/// A file of the page, which is part of the program; "/" is its beginning.
std::optional<PageFile> pageFile(const QString& path);

}  // namespace vorlent
