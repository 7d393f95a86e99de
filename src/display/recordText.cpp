#include "display/recordText.h"

#include "base/text.h"
#include "display/format.h"

namespace vorlent {
namespace {

constexpr std::size_t NameWidth = 28;

std::string valueText(const Token& token, const Field& field) {
  switch (token.row->kind) {
    case TokenKind::Single:
    case TokenKind::Double:
      return doubleText(field.number);
    default:
      return printable(field.text);
  }
}

}  // namespace

std::string reportLine(const Record& r) {
  std::string line =
      r.text("LocalTimeText(1)") + ":" + r.text("LocalTimeText(2)") + ":" +
      r.text("LocalTimeText(3)") + " " + latitudeText(r.number("Latitude")) + " " +
      longitudeText(r.number("Longitude")) + " alt " + fixedText(r.number("AircraftAltitude"), 0) +
      " ft ra " + r.text("RadioAltitude") + " ft ias " + fixedText(r.number("Ias"), 1) + " kt gs " +
      r.text("GroundSpeed") + " kt hdg " + fixedText(r.number("MagHeading"), 1) + " vs " +
      signedText(r.number("VerticalSpeed"), 0) + " ft/min pitch " +
      signedText(r.number("Pitch"), 1) + " bank " + bankText(r.number("Bank")) + " fma " +
      r.text("ATEngagedMode") + "|" + r.text("RollEngagedMode") + "|" + r.text("PitchEngagedMode") +
      "|" + r.text("AutopilotMode") + " n1";
  for (int engine = 1; engine <= r.layout().blocks(); ++engine)
    line += " " + fixedText(r.number("Engines(" + std::to_string(engine) + ").N1"), 1);
  return printable(line + " % fuel " + fixedText(r.number("FuelTotalLb"), 0) + " lb");
}

std::string fieldList(const Record& record) {
  std::string list;
  const auto& tokens = record.layout().tokens();
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    list +=
        leftAligned(tokens[i].name, NameWidth) + " = " + valueText(tokens[i], record.fields()[i]);
    if (tokens[i].row->unit != "-") list += " " + std::string(tokens[i].row->unit);
    list += "\n";
  }
  return list;
}

}  // namespace vorlent
