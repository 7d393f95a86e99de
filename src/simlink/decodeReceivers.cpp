#include "simlink/conversions.h"
#include "simlink/decodeRows.h"
#include "simlink/dmeText.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

double signedByte(std::uint8_t b) { return folded(b, 127, 256); }

constexpr DecodeRow Rows[] = {
    {"Word378", [](auto& s, auto& v) { set(v.Word378, s.u16(0x0378)); }},
    {"NavGpsSwitch", [](auto& s, auto& v) { set(v.NavGpsSwitch, s.u8(0x132C)); }},
    {"NavRadios(1).LocNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(1).LocNeedle, signedByte(s.u8(0x0C48))); }},
    {"NavRadios(2).LocNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(2).LocNeedle, signedByte(s.u8(0x0C59))); }},
    {"NavRadios(1).GsNeedle",
     [](auto& s, auto& v) { set(v.NavRadios(1).GsNeedle, signedByte(s.u8(0x0C49))); }},
    {"NavRadios(1).BackCourse",
     [](auto& s, auto& v) { set(v.NavRadios(1).BackCourse, s.u8(0x0C4A)); }},
    {"NavRadios(2).BackCourse",
     [](auto& s, auto& v) { set(v.NavRadios(2).BackCourse, s.u8(0x0C5A)); }},
    {"NavRadios(1).ToFrom", [](auto& s, auto& v) { set(v.NavRadios(1).ToFrom, s.u8(0x0C4B)); }},
    {"NavRadios(2).ToFrom", [](auto& s, auto& v) { set(v.NavRadios(2).ToFrom, s.u8(0x0C5B)); }},
    {"NavRadios(1).GsFlag", [](auto& s, auto& v) { set(v.NavRadios(1).GsFlag, s.u8(0x0C4C)); }},
    {"NavRadios(1).Obs", [](auto& s, auto& v) { set(v.NavRadios(1).Obs, s.u16(0x0C4E)); }},
    {"NavRadios(2).Obs", [](auto& s, auto& v) { set(v.NavRadios(2).Obs, s.u16(0x0C5E)); }},
    {"NavRadios(1).Radial",
     [](auto& s, auto& v) { set(v.NavRadios(1).Radial, degrees16(s.u16(0x0C50))); }},
    {"NavRadios(2).Radial",
     [](auto& s, auto& v) { set(v.NavRadios(2).Radial, degrees16(s.u16(0x0C60))); }},
    {"NavRadios(1).IlsHeading",
     [](auto& s, auto& v) { set(v.NavRadios(1).IlsHeading, s.u16(0x0870) * 360.0 / IlsTurn); }},
    {"NavRadios(1).IlsSlope",
     [](auto& s, auto& v) { set(v.NavRadios(1).IlsSlope, 360 - s.u16(0x0872) * 360.0 / IlsTurn); }},
    {"NavRadios(1).OuterMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).OuterMarker, s.u8(0x0BB0)); }},
    {"NavRadios(1).MiddleMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).MiddleMarker, s.u8(0x0BAE)); }},
    {"NavRadios(1).InnerMarker",
     [](auto& s, auto& v) { set(v.NavRadios(1).InnerMarker, s.u8(0x0BAC)); }},
    {"NavRadios(1).DmeDistance",
     [](auto& s, auto& v) {
       decodeDmeDistance(v.NavRadios(1), s.characters(0x0C29, 4), v.sDecimal);
     }},
    {"NavRadios(1).DmeSpeed",
     [](auto& s, auto& v) { decodeDmeSpeed(v.NavRadios(1), s.characters(0x0C2E, 4), v.sDecimal); }},
    {"NavRadios(2).DmeDistance",
     [](auto& s, auto& v) {
       decodeDmeDistance(v.NavRadios(2), s.characters(0x0C33, 4), v.sDecimal);
     }},
    {"NavRadios(2).DmeSpeed",
     [](auto& s, auto& v) { decodeDmeSpeed(v.NavRadios(2), s.characters(0x0C38, 4), v.sDecimal); }},
    {"Adf1Bearing", [](auto& s, auto& v) { set(v.Adf1Bearing, degrees16(s.u16(0x0C6A))); }},
    {"Adf2Bearing", [](auto& s, auto& v) { set(v.Adf2Bearing, degrees16(s.u16(0x02D8))); }},
    {"Adf1Id", [](auto& s, auto& v) { v.Adf1Id = s.text(0x303E, Snapshot::RawText3000End); }},
    {"Adf2Id", [](auto& s, auto& v) { v.Adf2Id = s.text(0x02DC, Snapshot::RawBlockEnd); }},
    {"Adf2Name", [](auto& s, auto& v) { v.Adf2Name = s.text(0x02E2, Snapshot::RawBlockEnd); }},
    {"Vor1Id", [](auto& s, auto& v) { v.Vor1Id = s.text(0x3000, Snapshot::RawText3000End); }},
    {"Vor2Id", [](auto& s, auto& v) { v.Vor2Id = s.text(0x301F, Snapshot::RawText3000End); }},
};

}  // namespace

std::span<const DecodeRow> receiverRows() { return Rows; }

}  // namespace vorlent
