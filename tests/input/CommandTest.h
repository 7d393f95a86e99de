#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "autoflight/clsAfds.h"
#include "autoflight/clsXAutoP.h"
#include "autoflight/clsXAutoT.h"
#include "input/commands.h"
#include "simlink/AccessorTest.h"

namespace vorlent {

/// A link that is open, twin engines, and lamps mirrored to offsets that tell their number: lamp n
/// at 0x6600 + n. Bytes are told low byte first.
class CommandTest : public AccessorTest {
 protected:
  using Writes = std::vector<Write>;

  void SetUp() override {
    AccessorTest::SetUp();
    clsAutoP& lamps = *t.server.autoP;
    lamps.Do_Write_Offsets = 1;
    std::int32_t clsAutoP::*const offsets[] = {
        &clsAutoP::Offset_LVLCH,   &clsAutoP::Offset_LNAV,    &clsAutoP::Offset_VNAV,
        &clsAutoP::Offset_CMDL,    &clsAutoP::Offset_CMDR,    &clsAutoP::Offset_CWSL,
        &clsAutoP::Offset_CWSR,    &clsAutoP::Offset_CO,      &clsAutoP::Offset_AT,
        &clsAutoP::Offset_TOGA,    &clsAutoP::Offset_AP,      &clsAutoP::Offset_INTV,
        &clsAutoP::Offset_EXEC,    &clsAutoP::Offset_HOLDIAS, &clsAutoP::Offset_HOLDMACH,
        &clsAutoP::Offset_HOLDALT, &clsAutoP::Offset_HOLDHDG, &clsAutoP::Offset_HOLDNAV1,
        &clsAutoP::Offset_HOLDLOC, &clsAutoP::Offset_HOLDGS,  &clsAutoP::Offset_HOLDVS,
        &clsAutoP::Offset_HOLDN1,
    };
    std::int32_t offset = 0x6600;
    for (const auto member : offsets) lamps.*member = ++offset;
    v.FsVersionCode = 8;
    v.sDecimal = ".";
  }

  static Write lamp(int number, int value) {
    return {static_cast<std::uint32_t>(0x6600 + number), {static_cast<std::uint8_t>(value)}};
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
