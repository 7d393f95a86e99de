#pragma once

#include <memory>
#include <string>
#include <vector>

#include "endtoend/Process.h"
#include "platform/XServer.h"
#include "support/TempFolder.h"

namespace vorlent {

/// A screen with a window manager, on which a test works with mouse and keys. Where a widget is and
/// what it shows comes from the program itself, as a screen reader is told.
///
/// `window` is part of a title, `widget` an accessible name; both are regular expressions. All that
/// waits does so 20 seconds at most, unless it is told.
class Desktop {
 public:
  Desktop();

  /// What a program needs to come onto this screen.
  const std::vector<std::string>& environment() const { return environment_; }

  /// Presses each, such as "alt+e" or "Return", with `window` in front. They throw when it does not
  /// come to the front.
  void keys(const std::string& window, const std::vector<std::string>& names);
  void type(const std::string& window, const std::string& text);
  /// Replaces what stands in the box that has the focus.
  void retype(const std::string& window, const std::string& text);
  /// Points at the middle of a widget and clicks. Throws without such a widget.
  void click(const std::string& window, const std::string& widget);
  /// Holds the left button from one place on the screen to the other.
  void drag(int fromX, int fromY, int toX, int toY);

  struct Place {
    int x, y, width, height;
  };
  /// On the screen. Throws without such a widget.
  Place place(const std::string& window, const std::string& widget);

  // Whether it comes to be so.
  bool comesToFront(const std::string& window);
  bool shows(const std::string& window, const std::string& widget,
             std::chrono::milliseconds limit = 60s);
  bool checked(const std::string& window, const std::string& widget);
  bool holds(const std::string& window, const std::string& widget, const std::string& text);
  /// All the names that are in sight, for messages.
  std::string names(const std::string& window);

 private:
  std::string answerTo(const std::string& question);
  bool answers(const std::string& question, const std::string& answer);
  void run(const std::string& program, const std::vector<std::string>& arguments) const;

  TempFolder home_;
  XServer screen_{"1280x800x24"};
  std::unique_ptr<Process> bus_;
  std::vector<std::string> environment_;
  std::unique_ptr<Process> windowManager_;
  std::unique_ptr<Process> widgets_;
};

}  // namespace vorlent
