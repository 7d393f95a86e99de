#include "sticks/stickFile.h"

#include <array>
#include <optional>
#include <vector>

#include "base/RuntimeError.h"
#include "base/SequentialInput.h"
#include "base/TextLines.h"
#include "base/numbers.h"
#include "base/text.h"
#include "commands/Keystrokes.h"
#include "commands/commands.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr const char* LineEnd = "\r\n";
constexpr std::array AxisLabels = {"X-Axis", "Y-Axis", "Z-Axis", "R-Axis"};
constexpr int FirstExtraButton = 5;
/// Of what stands in the place of a code.
constexpr std::size_t LongestShown = 40;
constexpr int Rows = frmCStick::Axes + frmCStick::Lines + frmCMore::Buttons;

/// A field of a row, numbered from 1; nothing where the row is shorter.
using Row = std::vector<std::string>;
std::optional<std::string> field(const Row& row, std::size_t number) {
  if (number > row.size()) return std::nullopt;
  return row[number - 1];
}

/// The second field; a row without a comma is taken whole, since no name can be cut off it.
std::optional<std::string> assignmentOf(const Row& row) {
  if (row.size() > 1) return trimmed(row[1]);
  const std::string whole = trimmed(row.front());
  return whole.empty() ? std::nullopt : std::optional(whole);
}

void takeInto(Property<std::string>& property, const std::optional<std::string>& text) {
  if (text) property(*text);
}

/// "0" or "1"; anything else leaves the box.
void takeInto(CheckBox& box, const std::optional<std::string>& text) {
  if (!text) return;
  const std::string word = trimmed(*text);
  if (word == "0" || word == "1") box.Value(word == "1" ? 1 : 0);
}

std::optional<float> single(const std::optional<std::string>& text) {
  try {
    if (text) return toSingle(numberOf(*text));
  } catch (const RuntimeError&) {
    // No number: what stood there before stays.
  }
  return std::nullopt;
}

void readCurve(const Row& row, frmCStick& stick) {
  if (const auto y1 = single(field(row, 7))) stick.y1(*y1);
  if (const auto x2 = single(field(row, 8))) stick.x2(*x2);
  if (const auto X3 = single(field(row, 9))) stick.X3(*X3);
  if (const auto m1 = single(field(row, 10))) stick.m1(*m1);
  if (const auto m2 = single(field(row, 11))) stick.m2(*m2);
  if (const auto m3 = single(field(row, 12))) stick.m3(*m3);
}

/// Older rows are shorter: of four fields, without encoders and curve, or of five, where the fifth
/// is the inversion.
void readAxis(const Row& row, int axis, frmCStick& stick) {
  takeInto(stick.optAxes(axis).Tag, assignmentOf(row));
  takeInto(stick.txtNull(axis).Text, field(row, 3));
  takeInto(stick.chkDamp(axis), field(row, 4));
  stick.chkDamp(axis).Tag("0");
  stick.txtAccA(axis).Text("1");
  stick.chkInvert(axis).Value(1);
  stick.ChannelID(static_cast<std::int16_t>(axis));
  if (row.size() > 5) {
    takeInto(stick.chkDamp(axis).Tag, field(row, 5));
    takeInto(stick.txtAccA(axis).Text, field(row, 6));
    readCurve(row, stick);
  }
  takeInto(stick.chkInvert(axis), field(row, row.size() == 5 ? 5 : 13));
  stick.optAxes(axis).Enabled(true);
  stick.chkDamp(axis).Enabled(true);
  stick.txtNull(axis).Enabled(true);
}

/// The acceleration is all that follows the kind: with a comma in it it is no number.
void readLine(const Row& row, int line, frmCStick& stick) {
  takeInto(stick.optSwitches(line).Tag, assignmentOf(row));
  takeInto(stick.OnOff(line).Tag, field(row, 3));
  stick.txtAccBtn(line).Text(row.size() == 4 ? row[3] : "1");
}

/// A whole number; what is none is kept as it stands.
std::string assignmentIn(SequentialInput& input) {
  SequentialInput asText = input;
  try {
    return std::to_string(input.int16());
  } catch (const RuntimeError& error) {
    if (error.number() == RuntimeError::InputPastEnd) throw;
    return asText.text();
  }
}

/// The name, which may stand in quotes, and the assignment; without a comma there is no name.
std::string extraAssignment(const std::string& line) {
  SequentialInput input(line);
  if (line.find(',') != std::string::npos) input.text();
  try {
    return assignmentIn(input);
  } catch (const RuntimeError&) {
    return {};  // the line ends here
  }
}

/// A button whose line is missing or empty keeps what it had.
void readExtraButtons(TextLines& lines, frmCMore& more) {
  for (int i = 0; i < frmCMore::Buttons && !lines.atEnd(); ++i) {
    const std::string line = lines.next();
    if (!line.empty()) more.optSwitches(i).Tag(extraAssignment(line));
  }
}

/// A row past the end of the file has one empty field.
Row nextRow(TextLines& lines) { return commaFields(lines.atEnd() ? "" : lines.next()); }

void appendAxis(std::string& text, int axis, frmCStick& stick) {
  stick.ChannelID(static_cast<std::int16_t>(axis));
  text += std::string(axisLabel(axis)) + ", " + stick.optAxes(axis).Tag() + "," +
          stick.txtNull(axis).Text() + "," + std::to_string(stick.chkDamp(axis).Value()) + "," +
          stick.chkDamp(axis).Tag() + "," + stick.txtAccA(axis).Text();
  for (const float number :
       {stick.y1(), stick.x2(), stick.X3(), stick.m1(), stick.m2(), stick.m3()})
    appendSingle(text += ',', number);
  text += "," + std::to_string(stick.chkInvert(axis).Value()) + LineEnd;
}

std::string buttonLabel(int number) { return "Button-" + std::to_string(number); }

std::string codeFault(std::int16_t code, std::string_view kind) {
  const bool sendsKeys = kind == "P" || kind == "E";
  if (code >= FirstKeystroke && !sendsKeys) return " is a key, which no axis and no switch sends";
  if (!isCommand(kind, code)) return " is no code of that kind";
  if (kind == "A" && !takesLever(code)) return " is for displays, no lever sets it";
  return {};
}

/// What is wrong with a row's assignment, empty when nothing is; a row that has none is well.
std::string assignmentFault(const Row& row, std::string_view kind) {
  const std::string text = assignmentOf(row).value_or("");
  if (text.empty()) return {};
  try {
    const std::int16_t code = int16Of(text);
    const std::string fault = codeFault(code, kind);
    return fault.empty() ? fault : std::to_string(code) + fault;
  } catch (const RuntimeError&) {
    return "\"" + text.substr(0, LongestShown) + "\" is no code";
  }
}

/// The kind of triple that a row of the file sends, by its number from 1.
std::string_view kindOfRow(int number, const frmCStick& stick) {
  if (number <= frmCStick::Axes) return stick.AxisMode() == 1 ? "E" : "A";
  const int line = number - frmCStick::Axes - 1;
  if (line >= frmCStick::Lines) return "P";
  const std::string& kind = stick.OnOff(line).Tag();
  if (stick.BtnMode() == 2) return "E";
  return kind == "1" ? "T" : "P";
}

}  // namespace

std::vector<std::string> stickFileFaults(std::string_view text, const frmCStick& stick) {
  std::vector<std::string> faults;
  TextLines lines(text);
  int number = 1;
  for (; number <= Rows && !lines.atEnd(); ++number) {
    const std::string fault = assignmentFault(nextRow(lines), kindOfRow(number, stick));
    if (!fault.empty())
      faults.push_back("line " + std::to_string(number) + ": " + fault +
                       ", this control does nothing");
  }
  if (number <= Rows)
    faults.push_back("line " + std::to_string(number) + " of " + std::to_string(Rows) +
                     " and what follows is missing, these controls keep their defaults");
  return faults;
}

std::string stickFilePath(const modPublic& store, std::int16_t stick) {
  return store.CockpitPath + "stick\\stick" + std::to_string(stick) + ".cfg";
}

const char* axisLabel(int axis) { return AxisLabels.at(static_cast<std::size_t>(axis)); }

void readStickFile(std::string_view text, frmCStick& stick, frmCMore& more) {
  TextLines lines(text);
  for (int i = 0; i < frmCStick::Axes; ++i) readAxis(nextRow(lines), i, stick);
  stick.ChannelID(0);
  for (int i = 0; i < frmCStick::Lines; ++i) readLine(nextRow(lines), i, stick);
  readExtraButtons(lines, more);
}

std::string stickFileText(frmCStick& stick, const frmCMore& more) {
  std::string text;
  const std::int16_t channel = stick.ChannelID();
  for (int i = 0; i < frmCStick::Axes; ++i) appendAxis(text, i, stick);
  stick.ChannelID(channel);
  for (int i = 0; i < frmCStick::Lines; ++i)
    text += buttonLabel(i + 1) + "," + stick.optSwitches(i).Tag() + "," + stick.OnOff(i).Tag() +
            "," + stick.txtAccBtn(i).Text() + LineEnd;
  for (int i = 0; i < frmCMore::Buttons; ++i)
    text += buttonLabel(i + FirstExtraButton) + "," + more.optSwitches(i).Tag() + LineEnd;
  return text;
}

}  // namespace vorlent
