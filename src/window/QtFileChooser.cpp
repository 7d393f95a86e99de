#include "window/QtFileChooser.h"

#include <QApplication>
#include <QFileDialog>

namespace vorlent {
namespace {

const QString ZipFilter = "Zip files (*.zip)";

/// No choice is an empty text.
std::optional<std::string> chosen(const QString& path) {
  if (path.isEmpty()) return std::nullopt;
  return path.toStdString();
}

QString text(const std::string& path) { return QString::fromStdString(path); }

}  // namespace

std::optional<std::string> QtFileChooser::folder(const std::string& start) {
  return chosen(QFileDialog::getExistingDirectory(QApplication::activeWindow(),
                                                  "The folder of the old Vorlent", text(start)));
}

std::optional<std::string> QtFileChooser::zipToRead(const std::string& start) {
  return chosen(QFileDialog::getOpenFileName(QApplication::activeWindow(), "Import cockpit",
                                             text(start), ZipFilter));
}

std::optional<std::string> QtFileChooser::zipToMake(const std::string& suggested) {
  return chosen(QFileDialog::getSaveFileName(QApplication::activeWindow(), "Export cockpit",
                                             text(suggested), ZipFilter, nullptr,
                                             QFileDialog::DontConfirmOverwrite));
}

}  // namespace vorlent
