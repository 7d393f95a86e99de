#pragma once

#include "platform/Documents.h"

namespace vorlent {

/// Documents by the file associations of Windows.
class ShellDocuments : public Documents {
 public:
  void open(const std::string& path, Done done) override;
};

}  // namespace vorlent
