#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "commands/commands.h"
#include "simlink/AccessorTest.h"
#include "support/lamps.h"

namespace vorlent {

/// A link that is open, twin engines, and lamp n mirrored to LampBase + n. Bytes are told low byte
/// first.
class CommandTest : public AccessorTest {
 protected:
  using Writes = std::vector<Write>;

  static constexpr std::uint32_t LampBase = 0x6600;

  void SetUp() override {
    AccessorTest::SetUp();
    mirrorLamps(*t.server.accessors.autoP, LampBase);
    v.FsVersionCode = 8;
    v.sDecimal = ".";
  }

  static Write lamp(int number, int value) {
    return {LampBase + static_cast<std::uint32_t>(number), {static_cast<std::uint8_t>(value)}};
  }

  /// What a press on the button writes, in order.
  Writes press(int code, float value = 1) {
    return writesOf([&] { commands.SetButtonValues(static_cast<std::int16_t>(code), value); });
  }
  /// What a movement of the switch writes, in order.
  Writes toggle(int code, float value) {
    return writesOf([&] { commands.SetToggleValues(static_cast<std::int16_t>(code), value); });
  }
  /// What a lever writes, in order.
  Writes analog(int code, float value) {
    return writesOf([&] { commands.SetAnalogValues(static_cast<std::int16_t>(code), value); });
  }
  /// What the detents of an encoder write, in order.
  Writes encoder(int code, float step) {
    return writesOf([&] { commands.SetEncoderValues(static_cast<std::int16_t>(code), step); });
  }
  std::string status() const { return t.form.sbStatusBar.panelText(1); }

  Commands& commands = *t.server.commands;
  modPublic& v = t.server.store;

 private:
  template <class Work>
  Writes writesOf(const Work& work) {
    bus.writes.clear();
    work();
    return bus.writes;
  }
};

}  // namespace vorlent
