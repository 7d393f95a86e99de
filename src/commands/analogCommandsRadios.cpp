#include <algorithm>
#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "commands/analogFamilies.h"
#include "commands/leverConversions.h"
#include "commands/radioDials.h"
#include "simlink/Accessors.h"

namespace vorlent {
namespace {

using namespace Radio;

template <int dial, Tune tune>
void setWhole(CommandContext& context, float whole_MHz) {
  tuneTo(context, dial, tune, whole_MHz + fractionOf(context, dial));
}

template <int dial, Tune tune>
void setFraction(CommandContext& context, float fraction) {
  tuneTo(context, dial, tune, wholePartOf(context, dial) + fraction);
}

void setCom1WholeRounded(CommandContext& context, float whole_MHz) {
  setWhole<Com1, &clsRadio::Comm1Freq>(context, toInt16(whole_MHz));
}

void setCom1FractionRounded(CommandContext& context, float fraction_MHz) {
  setFraction<Com1, &clsRadio::Comm1Freq>(context, toInt16(fraction_MHz));
}

/// `position` counts from 1; one behind the end of the frequency is put there.
void setAdfDigit(CommandContext& context, std::string frequency, std::size_t position,
                 float digit) {
  const std::size_t at = std::min(position - 1, frequency.size());
  frequency.replace(at, 1, singleText(digit));
  tuneTo(context, Adf1, &clsRadio::AdfFreq, numberOf(frequency));
}

std::string adfText(CommandContext& context) { return singleText(RadioSet(context, Adf1)); }

/// The dial of the hundreds ends at 2.
void setAdfHundreds(CommandContext& context, float digit) {
  setAdfDigit(context, adfText(context), 1, std::min(digit, 2.0F));
}

void setAdfTens(CommandContext& context, float digit) {
  setAdfDigit(context, adfText(context), 2, digit);
}

void setAdfUnits(CommandContext& context, float digit) {
  setAdfDigit(context, adfText(context), 3, digit);
}

void setAdfTenths(CommandContext& context, float digit) {
  constexpr std::size_t WithTenths = 4;
  std::string frequency = adfText(context);
  if (frequency.size() < WithTenths) frequency += ".0";
  setAdfDigit(context, frequency, 5, digit);
}

template <int dial, Tune tune>
void setFrequency(CommandContext& context, float frequency_MHz) {
  tuneTo(context, dial, tune, frequency_MHz);
}

/// A display that has no frequency sends 0.
void setNav1(CommandContext& context, float frequency_MHz) {
  if (frequency_MHz > 0) setFrequency<Nav1, &clsRadio::Nav1Freq>(context, frequency_MHz);
}

void setObs1(CommandContext& context, float degrees) {
  context.accessors.radio->Vor_1_obs(toInt16(degrees));
}

void setObs2(CommandContext& context, float degrees) {
  context.accessors.radio->Vor_2_obs(toInt16(degrees));
}

void setTransponder(CommandContext& context, float code) {
  context.accessors.radio->XpndrCode(code);
}

constexpr CommandRow Rows[] = {
    {1, "ADF hundreds", setAdfHundreds, levers::whole<9>},
    {2, "ADF tens", setAdfTens, levers::whole<9>},
    {3, "ADF units", setAdfUnits, levers::whole<9>},
    {4, "ADF tenths", setAdfTenths, levers::whole<9>},
    {20, "COM1 MHz", setWhole<Com1, &clsRadio::Comm1Freq>, levers::whole<18, 118>},
    {21, "COM1 fraction", setFraction<Com1, &clsRadio::Comm1Freq>, levers::comFraction},
    {39, "NAV1 MHz", setWhole<Nav1, &clsRadio::Nav1Freq>, levers::whole<9, 108>},
    {40, "NAV1 fraction", setFraction<Nav1, &clsRadio::Nav1Freq>, levers::navFraction},
    {41, "NAV2 MHz", setWhole<Nav2, &clsRadio::Nav2Freq>, levers::whole<9, 108>},
    {42, "NAV2 fraction", setFraction<Nav2, &clsRadio::Nav2Freq>, levers::navFraction},
    {59, "OBS1", setObs1, levers::obs},
    {60, "OBS2", setObs2, levers::obs},
    {64, "COM2 MHz", setWhole<Com2, &clsRadio::Comm2Freq>, levers::whole<18, 118>},
    {65, "COM2 fraction", setFraction<Com2, &clsRadio::Comm2Freq>, levers::comFraction},
    {66, "COM1 stand-by MHz", setWhole<Com1Standby, &clsRadio::Comm1SBFreq>,
     levers::whole<18, 118>},
    {67, "COM1 stand-by fraction", setFraction<Com1Standby, &clsRadio::Comm1SBFreq>,
     levers::comFraction},
    {68, "COM2 stand-by MHz", setWhole<Com2Standby, &clsRadio::Comm2SBFreq>,
     levers::whole<18, 118>},
    {69, "COM2 stand-by fraction", setFraction<Com2Standby, &clsRadio::Comm2SBFreq>,
     levers::comFraction},
    {70, "NAV1 stand-by MHz", setWhole<Nav1Standby, &clsRadio::Nav1SBFreq>, levers::whole<9, 108>},
    {71, "NAV1 stand-by fraction", setFraction<Nav1Standby, &clsRadio::Nav1SBFreq>,
     levers::navFraction},
    {72, "NAV2 stand-by MHz", setWhole<Nav2Standby, &clsRadio::Nav2SBFreq>, levers::whole<9, 108>},
    {73, "NAV2 stand-by fraction", setFraction<Nav2Standby, &clsRadio::Nav2SBFreq>,
     levers::navFraction},
    {74, "NAV1 frequency", setNav1},
    {76, "NAV2 frequency", setFrequency<Nav2, &clsRadio::Nav2Freq>},
    {97, "Transponder code", setTransponder},
    {98, "ADF1 fraction", setFraction<Adf1, &clsRadio::AdfFreq>},
    {99, "ADF2 fraction", setFraction<Adf2, &clsRadio::Adf2Freq>},
    {100, "COM1 MHz in whole steps", setCom1WholeRounded},
    {101, "COM1 fraction in whole steps", setCom1FractionRounded},
};

}  // namespace

std::span<const CommandRow> radioAnalogRows() { return Rows; }

}  // namespace vorlent
