#pragma once

#include <deque>
#include <string>

namespace vorlent {

/// The file that tells how the server ended the last times, the newest first.
class FailureReport {
 public:
  static constexpr std::size_t MostEntries = 10;

  explicit FailureReport(std::string path) : path_(std::move(path)) {}

  /// `when` is for people. Raises RuntimeError when the file cannot be written.
  void add(const std::string& when, const std::string& how, const std::string& lastWords);

 private:
  std::string path_;
  std::deque<std::string> entries_;
};

}  // namespace vorlent
