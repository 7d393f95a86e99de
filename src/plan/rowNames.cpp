#include "plan/rowNames.h"

#include <set>
#include <string_view>

#include "flightplan/FlightPlanRecord.h"

namespace vorlent {
namespace {

constexpr std::size_t Longest = FlightPlanRecord::NameLength;
constexpr std::string_view Kept =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+.";

std::string plainName(std::string_view name) {
  std::string plain(name.substr(0, Longest));
  for (char& c : plain)
    if (Kept.find(c) == std::string_view::npos) c = '_';
  return plain.empty() ? "WPT" : plain;
}

std::string withNumber(const std::string& name, int number) {
  const std::string digits = std::to_string(number);
  return name.substr(0, Longest - digits.size()) + digits;
}

}  // namespace

std::vector<std::string> rowNames(const std::vector<std::string>& names) {
  std::vector<std::string> rows;
  std::set<std::string> taken;
  for (const std::string& name : names) {
    const std::string plain = plainName(name);
    std::string row = plain;
    for (int number = 2; !taken.insert(row).second; ++number) row = withNumber(plain, number);
    rows.push_back(row);
  }
  return rows;
}

}  // namespace vorlent
