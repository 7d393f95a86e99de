#pragma once

#include "platform/Documents.h"

namespace vorlent {

/// Documents on a desktop of Linux: xdg-open finds the program for them. It is run beside this
/// process, since it may stay as long as the document is shown.
class XdgDocuments : public Documents {
 public:
  explicit XdgDocuments(std::string program = "xdg-open") : program_(std::move(program)) {}
  void open(const std::string& path, Done done) override;

  /// Of a status of xdg-open: 2 is a file that is not there, 4 an action that failed.
  static int resultOf(int status);

 private:
  std::string program_;
};

}  // namespace vorlent
