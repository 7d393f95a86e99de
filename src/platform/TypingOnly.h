#pragma once

#include <utility>

#include "platform/FileChooser.h"

namespace vorlent {

/// An operator who cannot point at files: he types their paths.
class TypingOnly : public FileChooser {
 public:
  /// `drives` are the system's.
  explicit TypingOnly(std::vector<std::string> drives) : drives_(std::move(drives)) {}
  std::vector<std::string> drives() override { return drives_; }
  std::optional<std::string> folder(const std::string&) override { return std::nullopt; }
  std::optional<std::string> zipToRead(const std::string&) override { return std::nullopt; }
  std::optional<std::string> zipToMake(const std::string&) override { return std::nullopt; }

 private:
  std::vector<std::string> drives_;
};

}  // namespace vorlent
