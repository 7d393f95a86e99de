#include "display/hostChecks.h"

#include <charconv>
#include <string_view>

#include "base/text.h"

namespace vorlent {
namespace {

bool isAddressPart(std::string_view text) {
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool leadingZero = text.size() > 1 && text.front() == '0';
  return error == std::errc() && end == text.data() + text.size() && value <= 255 && !leadingZero;
}

bool isIpv4Address(std::string_view text) {
  for (int part = 1; part < 4; ++part) {
    const auto dot = text.find('.');
    if (dot == std::string_view::npos || !isAddressPart(text.substr(0, dot))) return false;
    text.remove_prefix(dot + 1);
  }
  return isAddressPart(text);
}

}  // namespace

std::string whyNoAddress(const std::string& text) {
  if (isIpv4Address(text)) return "";
  return "it is an address such as 192.168.1.20, not \"" + text + "\"";
}

std::string whyNoHost(const std::string& text) {
  const bool isName =
      isHostName(text) && text.find_first_not_of("0123456789.") != std::string::npos;
  if (isName || isIpv4Address(text)) return "";
  return "it is a name or an address such as 192.168.1.20, not \"" + text + "\"";
}

std::string whyNoMachine(const std::string& text) {
  if (isHostName(text)) return "";
  return "the name of a machine is made of letters, digits, \"-\", \"_\" and \".\"";
}

}  // namespace vorlent
