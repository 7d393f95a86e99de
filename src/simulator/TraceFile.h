#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vorlent {

/// A file that grows by lines, each in it as soon as it is written. An old one is replaced.
class TraceFile {
 public:
  using Note = std::function<void(const std::string& text)>;

  /// Raises RuntimeError, with the file and the reason, when it cannot be made.
  TraceFile(const std::string& path, Note note);

  /// The first time that this fails, for example because the disk is full, `note` is told; what
  /// comes after that is dropped.
  void write(std::string_view line);

  /// Whether all that was written stands in the file.
  bool complete() const { return complete_; }

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  std::string path_;
  Note note_;
  std::unique_ptr<std::FILE, Close> file_;
  bool complete_ = true;
};

}  // namespace vorlent
