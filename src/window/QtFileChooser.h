#pragma once

#include <utility>

#include "platform/FileChooser.h"

namespace vorlent {

/// The desktop's own windows in which files are chosen.
class QtFileChooser : public FileChooser {
 public:
  /// `drives` are the system's.
  explicit QtFileChooser(std::vector<std::string> drives) : drives_(std::move(drives)) {}
  std::vector<std::string> drives() override { return drives_; }
  std::optional<std::string> folder(const std::string& start) override;
  std::optional<std::string> zipToRead(const std::string& start) override;
  /// Does not ask about a file that is there: the form does.
  std::optional<std::string> zipToMake(const std::string& suggested) override;

 private:
  std::vector<std::string> drives_;
};

}  // namespace vorlent
