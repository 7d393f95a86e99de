#pragma once

#include <string>
#include <string_view>

namespace vorlent {

class PlayClock;

/// The hand at a recording that is played: commands, a line each.
///
///     pause, play        stands still, goes on; from the end it begins anew
///     seek 120           to this second, from the beginning
///     speed 2            0.1 to 20 times the pace of life
///     loop on            begins anew at the end; loop off
///     where              where it stands, and how long it is
///     exit               ends the program
///     help               all commands
///
/// Each is answered by one line: `=`, followed by a blank and the value if there is one, or
/// `error: ` and what is wrong; a wrong command changes nothing.
class ReplayConsole {
 public:
  explicit ReplayConsole(PlayClock& clock) : clock_(clock) {}

  /// The answer, without a line feed.
  std::string execute(std::string_view commandLine);
  /// `exit` was said.
  bool ended() const { return ended_; }

 private:
  PlayClock& clock_;
  bool ended_ = false;
};

}  // namespace vorlent
