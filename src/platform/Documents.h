#pragma once

#include <functional>
#include <string>

namespace vorlent {

/// The programs of this machine that show documents.
class Documents {
 public:
  /// Above this the document is being shown.
  static constexpr int HighestFault = 32;
  /// Nothing is there that shows documents of this kind.
  static constexpr int NoAssociation = 32;

  /// Gets the result: a fault of the program that should show it, NoAssociation, or more.
  using Done = std::function<void(int result)>;

  virtual ~Documents() = default;
  /// Shows the file at `path` in the program that is made for it. `done` runs at once, or later
  /// from the event loop.
  virtual void open(const std::string& path, Done done) = 0;
};

}  // namespace vorlent
