#pragma once

#include <functional>
#include <memory>
#include <string>

namespace vorlent {

/// Lines that somebody types at the terminal of standard input: edited with the keys of a shell,
/// the earlier ones under the arrow keys. The cursor of the terminal has to stand where it was left
/// whenever a key comes, and at the beginning of an empty line when one is begun; anything else on
/// the page is free to change. There is at most one object at a time; when it goes, the terminal is
/// as it was.
class LineEditor {
 public:
  using LineHandler = std::function<void(const std::string& line)>;

  /// Begins the first line.
  LineEditor(const std::string& prompt, LineHandler onLine);
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  /// Takes the keys that wait. A line that is complete goes to the handler, and the next one is
  /// begun. False when no more can come.
  bool readKeys();

 private:
  struct Library;

  LineHandler onLine_;
  std::unique_ptr<Library> library_;
};

}  // namespace vorlent
