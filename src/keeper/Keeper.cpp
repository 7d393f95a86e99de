#include "keeper/Keeper.h"

#include <algorithm>
#include <utility>

namespace vorlent {

Keeper::Keeper(ProgramStarter& starter, std::string program, SimulatorBus& bus, Events events)
    : starter_(starter), program_(std::move(program)), bus_(bus), events_(std::move(events)) {}

std::optional<int> Keeper::step(std::int64_t now_ms) {
  now_ms_ = now_ms;
  return server_ ? watch() : wait();
}

void Keeper::endInOrder() {
  ending_ = true;
  if (server_) server_->end();
}

/// By the names that the server looks for. Another simulator has another handle.
WindowHandle Keeper::simulator() {
  const WindowHandle window = bus_.findWindow("UIPCMAIN");
  return window != 0 ? window : bus_.findWindow("FS98MAIN");
}

std::optional<int> Keeper::wait() {
  if (ending_) return 0;
  const WindowHandle window = simulator();
  if (window != simulatorOfServer_) {
    pause_ms_ = std::min(pause_ms_, FirstPause_ms);
    nextPause_ms_ = FirstPause_ms;
  }
  if (window == 0 && !std::exchange(waitingTold_, true))
    events_.onNotice("waiting for the simulator");
  if (window == 0 || now_ms_ - endedAt_ms_ < pause_ms_) return std::nullopt;
  waitingTold_ = false;
  words_.forget();
  server_ = starter_.start(program_);
  startedAt_ms_ = now_ms_;
  simulatorOfServer_ = window;
  if (server_) return std::nullopt;
  events_.onNotice("cannot start " + program_);
  return 1;
}

std::optional<int> Keeper::watch() {
  // Asked first: what it said before its end is there then.
  const auto status = server_->ended();
  const std::string text = server_->output();
  words_.hear(text);
  if (!text.empty()) events_.onOutput(text);
  if (!status) return std::nullopt;
  server_.reset();
  endedAt_ms_ = now_ms_;
  return serverEnded(*status);
}

std::optional<int> Keeper::serverEnded(int status) {
  if (ending_) return status;
  const bool simulatorStayed = simulator() == simulatorOfServer_;
  const bool foundNone =
      status == 0 && !simulatorStayed && now_ms_ - startedAt_ms_ < LongestStart_ms;
  if (status == 0 && !foundNone) return 0;
  failed(foundNone ? "found no simulator" : "ended by itself with status " + std::to_string(status),
         simulatorStayed);
  return std::nullopt;
}

void Keeper::failed(const std::string& how, bool simulatorStayed) {
  events_.onFailure(how, words_.text());
  if (!simulatorStayed || now_ms_ - startedAt_ms_ >= GoodRun_ms) nextPause_ms_ = FirstPause_ms;
  pause_ms_ = nextPause_ms_;
  nextPause_ms_ = std::min(2 * nextPause_ms_, LongestPause_ms);
  events_.onNotice("the server " + how + "; it is started again in " +
                   std::to_string(pause_ms_ / 1000) + " s, when the simulator is there");
}

}  // namespace vorlent
