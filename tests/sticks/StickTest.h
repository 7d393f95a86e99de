#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "commands/commands.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "support/Sticks.h"

namespace vorlent {

/// Tells each call as a triple, "A 1 45", and hands a lever's reading on as it is.
class TellingCommands : public Commands {
 public:
  using Commands::Commands;
  AnalogResult AnalogValue(std::int16_t code, float value, std::int16_t channel) override {
    if (analogValue) return analogValue(code, value, channel);
    return static_cast<std::int16_t>(value);
  }
  void SetAnalogValues(std::int16_t code, float value) override { tell("A ", code, value); }
  void SetButtonValues(std::int16_t code, float value) override { tell("P ", code, value); }
  void SetToggleValues(std::int16_t code, float value) override { tell("T ", code, value); }
  void SetEncoderValues(std::int16_t code, float value) override { tell("E ", code, value); }

  std::function<AnalogResult(std::int16_t, float, std::int16_t)> analogValue;
  std::vector<std::string> take() { return std::exchange(calls_, {}); }

 private:
  void tell(const char* kind, std::int16_t code, float value) {
    calls_.push_back(kind + std::to_string(code) + " " + ::testing::PrintToString(value));
  }
  std::vector<std::string> calls_;
};

/// A started server whose stick boxes are off; the poll period is 50 ms.
class StickTest : public ::testing::Test {
 protected:
  using Lines = std::vector<std::string>;

  void SetUp() override {
    addSticks(t, 1);
    t.start();
    ASSERT_EQ(t.exitStatus(), std::nullopt);
    auto telling = std::make_unique<TellingCommands>(t.server.commandContext());
    commands = telling.get();
    t.server.commands = std::move(telling);
    t.form.sbStatusBar.addView([this](int panel) {
      if (panel == 1) statusLines.push_back(t.form.sbStatusBar.panelText(1));
    });
  }

  void click(int value) {
    t.server.failureDomain.run([this, value] { t.form.chkStick.Value(value); });
  }
  frmCStick& stick(std::size_t index = 0) { return *t.server.sticks.CStick.at(index); }
  frmCMore& more(std::size_t index = 0) { return *t.server.sticks.CMore.at(index); }
  ControllerState& board(std::size_t index = 0) { return t.controllers.all.at(index).state; }

  /// Lets the sticks poll once, and tells which commands that gave.
  Lines tick() {
    t.loop.advance(50);
    return commands->take();
  }
  Lines ticks(int count) {
    t.loop.advance(50 * count);
    return commands->take();
  }

  TestServer t;
  TellingCommands* commands = nullptr;
  Lines statusLines;
};

}  // namespace vorlent
