#include "simlink/dmeText.h"

#include <string_view>

#include "base/text.h"
#include "simlink/statements.h"

namespace vorlent {
namespace {

/// The text that marks a missing station counts as 0. With another decimal mark than the point the
/// number is made twice, and the second try fails on that text, so that the 0 stays.
void decodeDme(float& variable, const std::string& text, std::string_view missing,
               const std::string& mark) {
  const auto convert = [&](const std::string& number) {
    set(variable, number == missing ? 0 : regionalNumberOf(number, mark));
  };
  attempt([&] { convert(text); });
  if (mark != ".") attempt([&] { convert(replaced(text, ".", mark)); });
}

}  // namespace

void decodeDmeDistance(NavRadio& radio, const std::string& text, const std::string& decimalMark) {
  decodeDme(radio.DmeDistance, text, ";;.;", decimalMark);
}

void decodeDmeSpeed(NavRadio& radio, const std::string& text, const std::string& decimalMark) {
  decodeDme(radio.DmeSpeed, text, ";;;.", decimalMark);
}

}  // namespace vorlent
