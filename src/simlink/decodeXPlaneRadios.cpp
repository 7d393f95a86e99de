#include <string>

#include "simlink/decodeRows.h"
#include "simlink/dmeText.h"
#include "simlink/statements.h"
#include "simlink/xplaneConversions.h"

namespace vorlent {
namespace {

/// COM and NAV: the digits behind the leading 1 of the megahertz.
double megahertz(const TypedInput& in) {
  return lowerDigits(in, 0) / 100.0 + upperDigits(in, 0) + 100;
}

/// The main word, the extension's tenths and thousands.
double kilohertz(const TypedInput& in) {
  return upperDigits(in, 0) * 100.0 + lowerDigits(in, 0) + in[2] * 1000 + in[1] / 10;
}

double standbyFrequency(const TypedInput& in, const modPublic& v) {
  return isModern(v) ? megahertz(in) : 0;
}

std::string fourCharacters(const TypedInput& in) {
  return in.s.characters(offsetOf(in.reads[0]), 4);
}

/// A name goes on to its 0, which may be as far behind as in the other poll.
constexpr std::uint16_t Adf2IdOffset = 0x02DC;
constexpr std::uint16_t Adf2NameOffset = 0x02E2;
std::string name(const TypedInput& in, std::uint16_t offset) {
  return in.s.text(offset, Snapshot::RawBlockEnd);
}

constexpr XPlaneRow RadioRows[] = {
    {"Adf1Freq",
     {U16(0x034C), U8(0x0356), U8(0x0357)},
     [](auto& in, auto& v) { set(v.Adf1Freq, kilohertz(in)); }},
    {"Adf2Freq",
     {U16(0x02D4), U8(0x02D6), U8(0x02D7)},
     [](auto& in, auto& v) { set(v.Adf2Freq, kilohertz(in)); }},
    {"Com1Freq", {U16(0x034E)}, [](auto& in, auto& v) { set(v.Com1Freq, megahertz(in)); }},
    {"Nav1Freq", {U16(0x0350)}, [](auto& in, auto& v) { set(v.Nav1Freq, megahertz(in)); }},
    {"Nav2Freq", {U16(0x0352)}, [](auto& in, auto& v) { set(v.Nav2Freq, megahertz(in)); }},
    {"TransponderCode",
     {U16(0x0354)},
     [](auto& in, auto& v) {
       set(v.TransponderCode, upperDigits(in, 0) * 100 + lowerDigits(in, 0));
     }},
    {"Com2Freq",
     {U16(0x3118)},
     [](auto& in, auto& v) { set(v.Com2Freq, standbyFrequency(in, v)); }},
    {"Com1Standby",
     {U16(0x311A)},
     [](auto& in, auto& v) { set(v.Com1Standby, standbyFrequency(in, v)); }},
    {"Com2Standby",
     {U16(0x311C)},
     [](auto& in, auto& v) { set(v.Com2Standby, standbyFrequency(in, v)); }},
    // The NAV standbys keep what they hold when the simulator is too old to have them.
    {"Nav1Standby",
     {U16(0x311E)},
     [](auto& in, auto& v) {
       if (isModern(v)) set(v.Nav1Standby, megahertz(in));
     }},
    {"Nav2Standby",
     {U16(0x3120)},
     [](auto& in, auto& v) {
       if (isModern(v)) set(v.Nav2Standby, megahertz(in));
     }},
};

double signedByte(const TypedInput& in) { return folded(in[0], 127, 256); }

constexpr XPlaneRow ReceiverRows[] = {
    {"Word378", {U16(0x0378)}, [](auto& in, auto& v) { set(v.Word378, in[0]); }},
    {"NavGpsSwitch", {U8(0x132C)}, [](auto& in, auto& v) { set(v.NavGpsSwitch, in[0]); }},
    {"NavRadios(1).LocNeedle",
     {U8(0x0C48)},
     [](auto& in, auto& v) { set(v.NavRadios(1).LocNeedle, signedByte(in)); }},
    {"NavRadios(2).LocNeedle",
     {U8(0x0C59)},
     [](auto& in, auto& v) { set(v.NavRadios(2).LocNeedle, signedByte(in)); }},
    {"NavRadios(1).GsNeedle",
     {U8(0x0C49)},
     [](auto& in, auto& v) { set(v.NavRadios(1).GsNeedle, signedByte(in)); }},
    {"NavRadios(1).BackCourse",
     {U8(0x0C4A)},
     [](auto& in, auto& v) { set(v.NavRadios(1).BackCourse, in[0]); }},
    {"NavRadios(2).BackCourse",
     {U8(0x0C5A)},
     [](auto& in, auto& v) { set(v.NavRadios(2).BackCourse, in[0]); }},
    {"NavRadios(1).ToFrom",
     {U8(0x0C4B)},
     [](auto& in, auto& v) { set(v.NavRadios(1).ToFrom, in[0]); }},
    {"NavRadios(2).ToFrom",
     {U8(0x0C5B)},
     [](auto& in, auto& v) { set(v.NavRadios(2).ToFrom, in[0]); }},
    {"NavRadios(1).GsFlag",
     {U8(0x0C4C)},
     [](auto& in, auto& v) { set(v.NavRadios(1).GsFlag, in[0]); }},
    {"NavRadios(1).Obs", {U16(0x0C4E)}, [](auto& in, auto& v) { set(v.NavRadios(1).Obs, in[0]); }},
    {"NavRadios(2).Obs", {U16(0x0C5E)}, [](auto& in, auto& v) { set(v.NavRadios(2).Obs, in[0]); }},
    {"NavRadios(1).Radial",
     {U16(0x0C50)},
     [](auto& in, auto& v) { set(v.NavRadios(1).Radial, in[0] * 360 / Turn16); }},
    {"NavRadios(2).Radial",
     {U16(0x0C60)},
     [](auto& in, auto& v) { set(v.NavRadios(2).Radial, in[0] * 360 / Turn16); }},
    {"NavRadios(1).IlsHeading",
     {U16(0x0870)},
     [](auto& in, auto& v) { set(v.NavRadios(1).IlsHeading, in[0] * 360 / IlsTurn); }},
    {"NavRadios(1).IlsSlope",
     {U16(0x0872)},
     [](auto& in, auto& v) { set(v.NavRadios(1).IlsSlope, 360 - in[0] * 360 / IlsTurn); }},
    {"NavRadios(1).OuterMarker",
     {U8(0x0BB0)},
     [](auto& in, auto& v) { set(v.NavRadios(1).OuterMarker, in[0]); }},
    {"NavRadios(1).MiddleMarker",
     {U8(0x0BAE)},
     [](auto& in, auto& v) { set(v.NavRadios(1).MiddleMarker, in[0]); }},
    {"NavRadios(1).InnerMarker",
     {U8(0x0BAC)},
     [](auto& in, auto& v) { set(v.NavRadios(1).InnerMarker, in[0]); }},
    {"NavRadios(1).DmeDistance",
     {Text(0x0C29, 4)},
     [](auto& in, auto& v) { decodeDmeDistance(v.NavRadios(1), fourCharacters(in), v.sDecimal); }},
    {"NavRadios(1).DmeSpeed",
     {Text(0x0C2E, 4)},
     [](auto& in, auto& v) { decodeDmeSpeed(v.NavRadios(1), fourCharacters(in), v.sDecimal); }},
    {"NavRadios(2).DmeDistance",
     {Text(0x0C33, 4)},
     [](auto& in, auto& v) { decodeDmeDistance(v.NavRadios(2), fourCharacters(in), v.sDecimal); }},
    {"NavRadios(2).DmeSpeed",
     {Text(0x0C38, 4)},
     [](auto& in, auto& v) { decodeDmeSpeed(v.NavRadios(2), fourCharacters(in), v.sDecimal); }},
    {"Adf1Bearing",
     {U16(0x0C6A)},
     [](auto& in, auto& v) { set(v.Adf1Bearing, in[0] * 360 / Turn16); }},
    {"Adf2Bearing",
     {U16(0x02D8)},
     [](auto& in, auto& v) { set(v.Adf2Bearing, in[0] * 360 / Turn16); }},
    {"Adf2Id",
     {Text(Adf2IdOffset, Snapshot::RawBlockEnd - Adf2IdOffset)},
     [](auto& in, auto& v) { v.Adf2Id = name(in, Adf2IdOffset); }},
    // Out of the same read.
    {"Adf2Name", {}, [](auto& in, auto& v) { v.Adf2Name = name(in, Adf2NameOffset); }},
    // docs/peculiarities.md: six characters of a station.
    {"Adf1Id", {Text(0x303E, 6)}, [](auto& in, auto& v) { v.Adf1Id = walkedText(in); }},
    {"Vor1Id", {Text(0x3000, 6)}, [](auto& in, auto& v) { v.Vor1Id = walkedText(in); }},
    {"Vor2Id", {Text(0x301F, 6)}, [](auto& in, auto& v) { v.Vor2Id = walkedText(in); }},
};

}  // namespace

std::span<const XPlaneRow> xplaneRadioRows() { return RadioRows; }
std::span<const XPlaneRow> xplaneReceiverRows() { return ReceiverRows; }

}  // namespace vorlent
