#include "display/recordText.h"

#include <fmt/format.h>

#include "base/text.h"
#include "display/format.h"

namespace vorlent {
namespace {

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
  std::string n1;
  for (int engine = 1; engine <= r.layout().blocks(); ++engine)
    n1 += fmt::format(" {:.1f}", r.number(fmt::format("Engines({}).N1", engine)));
  return printable(fmt::format(
      "{}:{}:{} {} {} alt {:.0f} ft ra {} ft ias {:.1f} kt gs {} kt hdg {:.1f} vs {:+.0f} ft/min "
      "pitch {:+.1f} bank {} fma {}|{}|{}|{} n1{} % fuel {:.0f} lb",
      r.text("LocalTimeText(1)"), r.text("LocalTimeText(2)"), r.text("LocalTimeText(3)"),
      latitudeText(r.number("Latitude")), longitudeText(r.number("Longitude")),
      r.number("AircraftAltitude"), r.text("RadioAltitude"), r.number("Ias"), r.text("GroundSpeed"),
      r.number("MagHeading"), r.number("VerticalSpeed"), r.number("Pitch"),
      bankText(r.number("Bank")), r.text("ATEngagedMode"), r.text("RollEngagedMode"),
      r.text("PitchEngagedMode"), r.text("AutopilotMode"), n1, r.number("FuelTotalLb")));
}

std::string fieldList(const Record& record) {
  std::string list;
  const auto& tokens = record.layout().tokens();
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const auto unit = tokens[i].row->unit;
    list +=
        fmt::format("{:28} = {}{}{}\n", tokens[i].name, valueText(tokens[i], record.fields()[i]),
                    unit == "-" ? "" : " ", unit == "-" ? "" : unit);
  }
  return list;
}

}  // namespace vorlent
