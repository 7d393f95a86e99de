#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "check/OffsetLink.h"
#include "check/offsetRows.h"

namespace vorlent {

/// Plays the server's side of the simulator interface against whatever answers, for those who write
/// a bridge to a simulator.
class BridgeCheck {
 public:
  struct Settings {
    bool writes = true;  ///< else what it finds is left alone
    int watch_s = 3;     ///< how long it looks for what moves
  };
  using Print = std::function<void(std::string_view)>;

  BridgeCheck(OffsetLink& link, const Settings& settings, OffsetLink::Sleep sleep, Print print)
      : link_(link), settings_(settings), sleep_(std::move(sleep)), print_(std::move(print)) {}

  /// Asks for all that the server's poll reads at once, and for each offset of the smallest set.
  /// Prints a line for every offset and one with the sum. Whether all is as it has to be. What it
  /// writes is put back. Raises RuntimeError when the other side stops answering.
  bool run();

 private:
  struct Finding;

  bool isReady();
  bool takesPoll();
  std::optional<double> read(const OffsetRow& row);
  bool write(const OffsetRow& row, double number);
  bool becomes(const OffsetRow& row, double number);
  std::string faultOf(const Finding& finding, bool paused);
  std::string faultOfWriting(const OffsetRow& row);
  void tell(const Finding& finding, const std::string& fault);

  OffsetLink& link_;
  Settings settings_;
  OffsetLink::Sleep sleep_;
  Print print_;
};

}  // namespace vorlent
