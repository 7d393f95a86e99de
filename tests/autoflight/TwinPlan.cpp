#include "autoflight/TwinPlan.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "flightplan/ExecutedPlan.h"

namespace vorlent {
namespace {

using independent::Row;
using Record = FlightPlanRecord;

struct TextField {
  std::size_t number;
  std::string Record::*member;
};
constexpr TextField PlanTexts[] = {
    {1, &Record::Name}, {2, &Record::Text2}, {3, &Record::Text3}, {21, &Record::Kind}};

struct RealField {
  std::size_t number;
  float Record::*member;
};
constexpr RealField Reals[] = {
    {4, &Record::Value4},    {5, &Record::Value5},     {6, &Record::Course},
    {7, &Record::Value7},    {8, &Record::Value8},     {9, &Record::Value9},
    {10, &Record::Distance}, {11, &Record::Value11},   {12, &Record::Value12},
    {13, &Record::Value13},  {14, &Record::Value14},   {15, &Record::Value15},
    {16, &Record::Value16},  {17, &Record::Value17},   {19, &Record::Value19},
    {23, &Record::Latitude}, {24, &Record::Longitude}, {25, &Record::VertexLat},
    {26, &Record::VertexLon}};

template <class Value>
std::string differenceAt(std::size_t number, const Value& expected, const Value& actual) {
  if (expected == actual) return "";
  std::ostringstream text;
  text << "\n  field " << number << ": expected " << expected << ", in the server " << actual;
  return text.str();
}

std::string differenceOfRows(const Record& actual, const Row& expected) {
  std::string found;
  for (const auto& [number, member] : PlanTexts)
    found += differenceAt(number, expected.texts[number], actual.*member);
  for (const auto& [number, member] : Reals)
    found += differenceAt(number, expected.numbers[number], double{actual.*member});
  found += differenceAt(18, expected.numbers[18], static_cast<double>(actual.Altitude));
  found += differenceAt(20, expected.numbers[20], static_cast<double>(actual.Value20));
  found += differenceAt(22, expected.numbers[22], static_cast<double>(actual.Value22));
  return found;
}

std::string differenceOfFiles(const std::string& name, const std::vector<Record>& actual,
                              const std::vector<Row>& expected) {
  if (actual.size() != expected.size())
    return "\n  rows of " + name + ": expected " + std::to_string(expected.size()) +
           ", in the server " + std::to_string(actual.size());
  std::string found;
  for (std::size_t row = 0; row < actual.size() && found.empty(); ++row) {
    const std::string fields = differenceOfRows(actual[row], expected[row]);
    if (!fields.empty())
      found = ("\n  " + name + ", row ").append(std::to_string(row)).append(fields);
  }
  return found;
}

constexpr std::string_view BlockStarts[] = {"DX within turningrange", "Impossible Intercept",
                                            "Past Crossing Intercept"};
constexpr std::size_t LinesOfBlock = 11;

/// Those of the phases and of the leg.
std::vector<std::string> flightLines(const std::vector<std::string>& lines) {
  std::vector<std::string> kept;
  std::size_t left = 0;
  for (const std::string& line : lines) {
    for (const std::string_view start : BlockStarts)
      if (line == start) left = LinesOfBlock;
    if (left > 0 || line.starts_with("switch to ")) kept.push_back(line);
    left -= left > 0 ? 1 : 0;
  }
  return kept;
}

std::vector<double> numbersIn(const std::string& text) {
  static const std::regex Number("-?[0-9]+(\\.[0-9]+)?(E[-+][0-9]+)?");
  std::vector<double> numbers;
  for (auto found = std::sregex_iterator(text.begin(), text.end(), Number);
       found != std::sregex_iterator(); ++found)
    numbers.push_back(std::stod(found->str()));
  return numbers;
}

/// To the seven digits that a single has in a text.
bool near(double a, double b) { return std::fabs(a - b) <= 1e-6 * std::fabs(a) + 1e-30; }

bool matches(const std::string& line, const IndependentAutoflight::LogLine& expected) {
  if (!line.starts_with(expected.start)) return false;
  const std::string rest = line.substr(expected.start.size());
  if (expected.numbers.empty())
    return expected.text.empty() ? rest.find_first_not_of(' ') == std::string::npos
                                 : rest.find(expected.text) != std::string::npos;
  const std::vector<double> numbers = numbersIn(rest);
  return std::equal(numbers.begin(), numbers.end(), expected.numbers.begin(),
                    expected.numbers.end(), near);
}

std::string shown(const IndependentAutoflight::LogLine& line) {
  std::ostringstream text;
  text << line.start << line.text;
  for (const double number : line.numbers) text << ' ' << number;
  return text.str();
}

}  // namespace

std::string differenceOfPlans(const ExecutedPlan& product, const independent::Plan& independent) {
  return differenceOfFiles("EXEC", product.FlightPlan, independent.rows) +
         differenceOfFiles("PROF", product.ProfilePlan, independent.profile);
}

std::string differenceOfLogs(const std::vector<std::string>& product,
                             const std::vector<IndependentAutoflight::LogLine>& independent) {
  const std::vector<std::string> lines = flightLines(product);
  if (lines.size() != independent.size())
    return "\n  lines of the log: expected " + std::to_string(independent.size()) +
           ", the server wrote " + std::to_string(lines.size());
  for (std::size_t nth = 0; nth < lines.size(); ++nth)
    if (!matches(lines[nth], independent[nth]))
      return "\n  log: expected \"" + shown(independent[nth]) + "\", the server wrote \"" +
             lines[nth] + "\"";
  return "";
}

std::vector<std::string> LinesOfFile::take() {
  std::error_code none;
  const std::uintmax_t size = std::filesystem::file_size(path_, none);
  if (none || size == taken_) return {};
  std::ifstream file(path_, std::ios::binary);
  file.seekg(static_cast<std::streamoff>(taken_));
  taken_ = size;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);)
    lines.push_back(line.substr(0, line.find('\r')));
  return lines;
}

}  // namespace vorlent
