#include "commands/encoderFamilies.h"
#include "commands/radioDials.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

using namespace Radio;

template <int tenths_kHz>
void turnAdf(CommandContext& context, float detents) {
  const float held_kHz = RadioSet(context, Adf1);
  tuneTo(context, Adf1, &clsRadio::AdfFreq, AdfTurned(held_kHz, detents * (tenths_kHz / 10.0)));
}

constexpr double ComDetent_MHz = 0.02;
constexpr double NavDetent_MHz = 0.05;

template <int dial, Tune tune>
void turnComFine(CommandContext& context, float detents) {
  tuneTo(context, dial, tune, ComRaster(heldBy(context, dial) + detents * ComDetent_MHz));
}

template <int dial, Tune tune>
void turnComCoarse(CommandContext& context, float detents) {
  tuneTo(context, dial, tune, heldBy(context, dial) + detents);
}

/// The whole megahertz stay, and so does what is held.
template <int dial, Tune tune>
void turnComFraction(CommandContext& context, float detents) {
  const double turned_MHz = ComRaster(fractionOf(context, dial) + detents * ComDetent_MHz);
  (*context.accessors.radio.*tune)(toSingle(wholePartOf(context, dial) + turned_MHz));
}

template <int dial, Tune tune>
void turnNavFine(CommandContext& context, float detents) {
  tuneTo(context, dial, tune, NavWrapFrac(RadioSet(context, dial), detents));
}

template <int dial, Tune tune>
void turnNavCoarse(CommandContext& context, float detents) {
  tuneTo(context, dial, tune, NavWrapWhole(RadioSet(context, dial), detents));
}

/// From what the simulator has tuned, not from what is held, and without an end.
template <int dial, Tune tune, float modPublic::*simulators>
void turnNavOfSimulator(CommandContext& context, float detents) {
  tuneTo(context, dial, tune, context.store.*simulators + detents * NavDetent_MHz);
}

template <int dial, void (clsRadio::*turn)(std::int16_t)>
void turnObs(CommandContext& context, float detents) {
  float& held_deg = RadioSet(context, dial);
  held_deg = Wrap360(held_deg, detents);
  (*context.accessors.radio.*turn)(toInt16(held_deg));
}

constexpr CommandRow Rows[] = {
    {1, "ADF hundreds", turnAdf<1000>},
    {2, "ADF tens", turnAdf<100>},
    {3, "ADF units", turnAdf<10>},
    {4, "ADF tenths", turnAdf<1>},
    {12, "COM1 fine", turnComFine<Com1, &clsRadio::Comm1Freq>},
    {13, "COM1 MHz", turnComCoarse<Com1, &clsRadio::Comm1Freq>},
    {14, "COM1 fraction without carry", turnComFraction<Com1, &clsRadio::Comm1Freq>},
    {15, "COM2 fine", turnComFine<Com2, &clsRadio::Comm2Freq>},
    {16, "COM2 MHz", turnComCoarse<Com2, &clsRadio::Comm2Freq>},
    {17, "COM2 fraction without carry", turnComFraction<Com2, &clsRadio::Comm2Freq>},
    {19, "NAV1 fine", turnNavFine<Nav1, &clsRadio::Nav1Freq>},
    {20, "NAV1 MHz", turnNavCoarse<Nav1, &clsRadio::Nav1Freq>},
    {21, "NAV1 fine from the simulator",
     turnNavOfSimulator<Nav1, &clsRadio::Nav1Freq, &modPublic::Nav1Freq>},
    {22, "NAV2 fine", turnNavFine<Nav2, &clsRadio::Nav2Freq>},
    {23, "NAV2 MHz", turnNavCoarse<Nav2, &clsRadio::Nav2Freq>},
    {24, "NAV2 fine from the simulator",
     turnNavOfSimulator<Nav2, &clsRadio::Nav2Freq, &modPublic::Nav2Freq>},
    {25, "OBS1", turnObs<Obs1, &clsRadio::Vor_1_obs>},
    {26, "OBS2", turnObs<Obs2, &clsRadio::Vor_2_obs>},
    // There is no digit 0: a builder who assigned it is told.
    {27, "Transponder digit 0 (there is none)", turnXpndrDigit<0>},
    {28, "Transponder fourth digit up", turnXpndrDigit<4>},
    {29, "Transponder third digit up", turnXpndrDigit<3>},
    {30, "Transponder second digit up", turnXpndrDigit<2>},
    {31, "Transponder first digit up", turnXpndrDigit<1>},
    {36, "COM2 stand-by fine", turnComFine<Com2Standby, &clsRadio::Comm2SBFreq>},
    {37, "COM2 stand-by MHz", turnComCoarse<Com2Standby, &clsRadio::Comm2SBFreq>},
    {38, "COM2 stand-by fraction without carry",
     turnComFraction<Com2Standby, &clsRadio::Comm2SBFreq>},
    {39, "NAV1 stand-by fine", turnNavFine<Nav1Standby, &clsRadio::Nav1SBFreq>},
    {40, "NAV1 stand-by MHz", turnNavCoarse<Nav1Standby, &clsRadio::Nav1SBFreq>},
    {41, "NAV1 stand-by fine from the simulator",
     turnNavOfSimulator<Nav1Standby, &clsRadio::Nav1SBFreq, &modPublic::Nav1Standby>},
    {42, "NAV2 stand-by fine", turnNavFine<Nav2Standby, &clsRadio::Nav2SBFreq>},
    {43, "NAV2 stand-by MHz", turnNavCoarse<Nav2Standby, &clsRadio::Nav2SBFreq>},
    {44, "NAV2 stand-by fine from the simulator",
     turnNavOfSimulator<Nav2Standby, &clsRadio::Nav2SBFreq, &modPublic::Nav2Standby>},
};

}  // namespace

std::span<const CommandRow> radioEncoderRows() { return Rows; }

}  // namespace vorlent
