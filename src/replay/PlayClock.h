#pragma once

namespace vorlent {

/// Where a recording stands while it is played. It plays from the beginning, at the pace of life.
class PlayClock {
 public:
  static constexpr double Slowest = 0.1;
  static constexpr double Fastest = 20;

  /// `length_s` is 0 or more.
  explicit PlayClock(double length_s) : length_s_(length_s) {}

  /// Lets real time pass, in seconds, 0 or more. At the end it stands there, or begins anew.
  void advance(double elapsed_s);
  void play();
  void pause() { playing_ = false; }
  /// Seconds from the beginning. Raises InvalidCall outside the recording, and it stays.
  void seek(double position_s);
  /// Seconds of the recording in a second. Raises InvalidCall outside Slowest .. Fastest.
  void speed(double factor);
  void loop(bool on) { loop_ = on; }

  double position_s() const { return position_s_; }
  double length_s() const { return length_s_; }
  bool playing() const { return playing_; }
  bool atEnd() const { return position_s_ >= length_s_; }

 private:
  double length_s_;
  double position_s_ = 0;
  double speed_ = 1;
  bool playing_ = true;
  bool loop_ = false;
};

}  // namespace vorlent
