#pragma once

#include <string>

namespace vorlent {

class FailureDomain;
class FileChooser;
class Operator;
class StatusLine;
class ZipFiles;

/// What the forms for the cockpits' folders stand on.
struct CockpitContext {
  FailureDomain& failureDomain;
  Operator& op;
  StatusLine& status;
  FileChooser& chooser;
  ZipFiles& zipFiles;
  std::string programFolder;

  std::string cockpits() const;
  std::string templates() const;
  /// A message box without an icon.
  void tell(const std::string& text) const;
};

}  // namespace vorlent
