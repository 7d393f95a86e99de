#include <algorithm>
#include <cstdint>
#include <vector>

#include "commands/buttonFamilies.h"
#include "commands/heldValues.h"
#include "commands/radioDials.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// A radio's frequency: the item of RadioSet, the simulator's variable and what writes it.
struct Dial {
  int item;
  float modPublic::*simulator_MHz;
  Tune write;
};

constexpr Dial Com1{Radio::Com1, &modPublic::Com1Freq, &clsRadio::Comm1Freq};
constexpr Dial Com2{Radio::Com2, &modPublic::Com2Freq, &clsRadio::Comm2Freq};
constexpr Dial Nav1{Radio::Nav1, &modPublic::Nav1Freq, &clsRadio::Nav1Freq};
constexpr Dial Nav2{Radio::Nav2, &modPublic::Nav2Freq, &clsRadio::Nav2Freq};
constexpr Dial Nav1Standby{Radio::Nav1Standby, &modPublic::Nav1Standby, &clsRadio::Nav1SBFreq};
constexpr Dial Nav2Standby{Radio::Nav2Standby, &modPublic::Nav2Standby, &clsRadio::Nav2SBFreq};

void tune(CommandContext& context, const Dial& dial, double frequency_MHz) {
  tuneTo(context, dial.item, dial.write, frequency_MHz);
}

/// From the simulator's frequency, without a limit.
template <const Dial& dial, int step_10kHz>
void turnFraction(CommandContext& context, float) {
  tune(context, dial, context.store.*dial.simulator_MHz + step_10kHz / 100.0);
}

template <const Dial& dial, int step_10kHz>
void turnRasterFraction(CommandContext& context, float) {
  tune(context, dial, ComRaster(context.store.*dial.simulator_MHz + step_10kHz / 100.0));
}

/// The dial wraps at either end of the band; upwards it leaves out the last channel.
double wrappedCom(double stepped_MHz) {
  if (stepped_MHz < 118) return 136.97;
  return stepped_MHz > 136.95 ? 118 : stepped_MHz;
}

template <const Dial& dial, int step_MHz>
void turnCom(CommandContext& context, float) {
  tune(context, dial, wrappedCom(toSingle(RadioSet(context, dial.item) + double{step_MHz})));
}

template <const Dial& dial, int step_MHz>
void turnNav(CommandContext& context, float) {
  tune(context, dial, NavWrapWhole(RadioSet(context, dial.item), step_MHz));
}

template <int step_100Hz>
void turnAdf(CommandContext& context, float) {
  const double stepped_kHz = RadioSet(context, Radio::Adf1) + step_100Hz / 10.0;
  tuneTo(context, Radio::Adf1, &clsRadio::AdfFreq, AdfLimit(stepped_kHz));
}

void selectAdf(CommandContext& context, float) {
  const float held_kHz = RadioSet(context, Radio::Adf1);
  if (held_kHz > 0) context.accessors.radio->AdfFreq(held_kHz);
}

/// Above 359 the rose goes to `afterTop_deg`; below 0 there is no limit.
template <int step_deg, int afterTop_deg>
void turnRose(CommandContext& context, float) {
  float& held = RadioSet(context, Radio::Rose);
  step(held, step_deg);
  if (step_deg > 0 && held > 359) held = afterTop_deg;
}

template <int item, int step_deg>
void turnObs(CommandContext& context, float) {
  constexpr auto Write = item == Radio::Obs1 ? &clsRadio::Vor_1_obs : &clsRadio::Vor_2_obs;
  step(RadioSet(context, item), step_deg);
  (*context.accessors.radio.*Write)(toInt16(RadioSet(context, item)));
}

void flipTransponder(CommandContext& context, float) {
  flip(RadioSet(context, Radio::Transponder),
       [&](float code) { context.accessors.radio->XpndrCode(code); });
}

void flipDme(CommandContext& context, float) {
  flip(RadioSet(context, Radio::Dme),
       [&](float receiver) { context.accessors.radio->Vor_Dme(receiver); });
}

void flipDmeUnsent(CommandContext& context, float) {
  flip(RadioSet(context, Radio::Dme), [](float) {});
}

using Memory = std::vector<float> FrequencyMemory::*;

/// Stores the frequency once, then exchanges active and stand-by; `swapBit` is the radio's at the
/// simulator. The oldest simulators have no stand-by: there the held value tells 0 from 1.
template <const Dial& dial, Memory memory, int swapBit>
void store(CommandContext& context, float) {
  constexpr std::int16_t LastWithoutStandby = 2;
  const modPublic& v = context.store;
  std::vector<float>& stored = context.memory.*memory;
  const float current_MHz = v.*dial.simulator_MHz;
  if (std::find(stored.begin(), stored.end(), current_MHz) == stored.end())
    stored.push_back(current_MHz);
  if (v.FsVersionCode > LastWithoutStandby)
    context.accessors.radio->SwapFSRadio(swapBit);
  else
    flip(RadioSet(context, dial.item), [](float) {});
}

/// The entry behind the current one, the first behind the last; nothing while the list is empty.
template <int current, Memory memory>
void recall(CommandContext& context, float) {
  const std::vector<float>& stored = context.memory.*memory;
  if (stored.empty()) return;
  float& held = context.store.ButtonStates(current);
  auto next = std::find(stored.begin(), stored.end(), held);
  if (next != stored.end()) ++next;
  held = next == stored.end() ? stored.front() : *next;
}

constexpr CommandRow Rows[] = {
    {0, "Rose - 10", turnRose<-10, 0>},
    {1, "Rose + 10", turnRose<10, 10>},
    {2, "Rose - 1", turnRose<-1, 0>},
    {3, "Rose + 1", turnRose<1, 0>},
    {4, "ADF - 100 kHz", turnAdf<-1000>},
    {5, "ADF + 100 kHz", turnAdf<1000>},
    {6, "ADF - 10 kHz", turnAdf<-100>},
    {7, "ADF + 10 kHz", turnAdf<100>},
    {8, "ADF - 1 kHz", turnAdf<-10>},
    {9, "ADF + 1 kHz", turnAdf<10>},
    {10, "ADF - 0.1 kHz", turnAdf<-1>},
    {11, "ADF + 0.1 kHz", turnAdf<1>},
    {12, "ADF select", selectAdf},
    {46, "COM1 store and swap", store<Com1, &FrequencyMemory::com, 8>},
    {47, "COM1 - 0.02 MHz", turnRasterFraction<Com1, -2>},
    {48, "COM1 + 0.02 MHz", turnRasterFraction<Com1, 2>},
    {49, "COM1 - 1 MHz", turnCom<Com1, -1>},
    {50, "COM1 + 1 MHz", turnCom<Com1, 1>},
    {51, "DME select (not sent)", flipDmeUnsent},
    {68, "DME select", flipDme},
    {95, "NAV1 store and swap", store<Nav1, &FrequencyMemory::nav1, 2>},
    {96, "NAV1 - 0.05 MHz", turnFraction<Nav1, -5>},
    {97, "NAV1 + 0.05 MHz", turnFraction<Nav1, 5>},
    {98, "NAV1 - 1 MHz", turnNav<Nav1, -1>},
    {99, "NAV1 + 1 MHz", turnNav<Nav1, 1>},
    {100, "NAV2 store and swap", store<Nav2, &FrequencyMemory::nav2, 1>},
    {101, "NAV2 - 0.05 MHz", turnFraction<Nav2, -5>},
    {102, "NAV2 + 0.05 MHz", turnFraction<Nav2, 5>},
    {103, "NAV2 - 1 MHz", turnNav<Nav2, -1>},
    {104, "NAV2 + 1 MHz", turnNav<Nav2, 1>},
    {112, "OBS1 - 10", turnObs<Radio::Obs1, -10>},
    {113, "OBS1 + 10", turnObs<Radio::Obs1, 10>},
    {114, "OBS1 - 1", turnObs<Radio::Obs1, -1>},
    {115, "OBS1 + 1", turnObs<Radio::Obs1, 1>},
    {116, "OBS2 - 10", turnObs<Radio::Obs2, -10>},
    {117, "OBS2 + 10", turnObs<Radio::Obs2, 10>},
    {118, "OBS2 - 1", turnObs<Radio::Obs2, -1>},
    {119, "OBS2 + 1", turnObs<Radio::Obs2, 1>},
    {120, "Transponder 0000 or 0001", flipTransponder},
    {121, "Transponder fourth digit up", turnXpndrDigit<4>},
    {122, "Transponder third digit up", turnXpndrDigit<3>},
    {123, "Transponder second digit up", turnXpndrDigit<2>},
    {124, "Transponder first digit up", turnXpndrDigit<1>},
    {132, "COM1 next stored frequency", recall<1, &FrequencyMemory::com>},
    {133, "NAV1 next stored frequency", recall<3, &FrequencyMemory::nav1>},
    {134, "NAV2 next stored frequency", recall<4, &FrequencyMemory::nav2>},
    {135, "ADF next stored frequency", recall<5, &FrequencyMemory::adf>},
    {138, "COM2 next stored frequency", recall<2, &FrequencyMemory::com>},
    {139, "COM2 store and swap", store<Com2, &FrequencyMemory::com, 4>},
    {140, "COM2 - 0.01 MHz", turnFraction<Com2, -1>},
    {141, "COM2 + 0.01 MHz", turnFraction<Com2, 1>},
    {142, "COM2 - 1 MHz", turnCom<Com2, -1>},
    {143, "COM2 + 1 MHz", turnCom<Com2, 1>},
    {152, "NAV1 standby - 0.05 MHz", turnFraction<Nav1Standby, -5>},
    {153, "NAV1 standby + 0.05 MHz", turnFraction<Nav1Standby, 5>},
    {154, "NAV1 standby - 1 MHz", turnNav<Nav1Standby, -1>},
    {155, "NAV1 standby + 1 MHz", turnNav<Nav1Standby, 1>},
    {156, "NAV2 standby - 0.05 MHz", turnFraction<Nav2Standby, -5>},
    {157, "NAV2 standby + 0.05 MHz", turnFraction<Nav2Standby, 5>},
    {158, "NAV2 standby - 1 MHz", turnNav<Nav2Standby, -1>},
    {159, "NAV2 standby + 1 MHz", turnNav<Nav2Standby, 1>},
};

}  // namespace

std::span<const CommandRow> radioButtonRows() { return Rows; }

}  // namespace vorlent
