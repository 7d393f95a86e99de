#include "sticks/StickDisplay.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/controls.h"
#include "base/text.h"
#include "sticks/Sticks.h"
#include "sticks/frmCMore.h"
#include "sticks/frmCStick.h"
#include "sticks/frmXY.h"

namespace vorlent {
namespace {

constexpr std::size_t MostFields = 3;

std::string fieldText(const SimulatorField& field, const std::optional<double>& value) {
  return fmt::format("{:04X} {}", field.offset & 0xFFFF,
                     value ? "holds " + doubleText(*value) : "not answered");
}

}  // namespace

void StickDisplay::beginTick() {
  order_.clear();
  done_ = 0;
  sticks_.context.commands->watchSimulator(true);
}

void StickDisplay::endTick() { sticks_.context.commands->watchSimulator(false); }

void StickDisplay::readings(const Readings& now) {
  for (int i = 0; i < frmCStick::Axes; ++i) {
    const auto axis = static_cast<std::size_t>(i);
    stick_.prgRaw(i).Value(now.raw[axis]);
    stick_.prgValue(i).Value(now.conditioned[axis]);
  }
  for (int i = 0; i < frmCStick::Lines; ++i)
    stick_.shpLine(i).FillColor(now.lines[static_cast<std::size_t>(i)] == 1 ? Shape::Red
                                                                            : Shape::White);
  find(now);
}

/// What moved while the box was clear, or the curve was bent, is not looked for afterwards.
void StickDisplay::find(const Readings& now) {
  LastMoved::Readings readings{now.raw, now.decoded, stick_.AxisMode() == 1, stick_.BtnMode(), {}};
  for (int i = 0; i < frmCStick::Lines; ++i)
    readings.isSwitch.at(static_cast<std::size_t>(i)) = stick_.OnOff(i).Tag() == "1";
  if (stick_.chkFind.Value() == 0 || sticks_.XY->Visible()) return lastMoved_.restAt(readings);
  if (const auto row = lastMoved_.moved(readings)) select(*row);
}

/// An extra button's row is in the window beside, which the operator opens.
void StickDisplay::select(StickRow row) {
  stick_.SSTab1.ListIndex(row.kind == StickRow::Axis ? frmCStick::AxisPage : frmCStick::ButtonPage);
  if (row.kind == StickRow::Axis) stick_.optAxes(row.index).Value(true);
  if (row.kind == StickRow::Line) stick_.optSwitches(row.index).Value(true);
  if (row.kind == StickRow::Extra)
    sticks_.CMore.at(static_cast<std::size_t>(stick_.MyID()))->optSwitches(row.index).Value(true);
}

void StickDisplay::sent(StickRow row, const std::string& triple) {
  sentLabel(row).Caption(trimmed(triple));
  order_.push_back(row);
}

void StickDisplay::carriedOut() {
  if (done_ >= order_.size()) return;
  const StickRow row = order_[done_++];
  std::erase_if(asked_, [row](const Asked& asked) { return asked.row == row; });
  asked_.push_back({row, sticks_.context.commands->takeWritten()});
}

/// The simulator has had time to make something of what was written.
void StickDisplay::tmrstickTick() {
  for (const Asked& asked : asked_) answerLabel(asked.row).Caption(held(asked.fields));
  stick_.lblBoard.Caption(stick_.Unplugged() ? "The board is unplugged" : "");
  stick_.lblBoard.Alarm(stick_.Unplugged());
  frmXY& curve = *sticks_.XY;
  if (curve.Visible() && curve.stick() == stick_.MyID())
    curve.LiveValue(int16Of(stick_.txtValue(curve.channel()).Text()));
}

std::string StickDisplay::held(const std::vector<SimulatorField>& fields) const {
  if (fields.empty()) return "stays in the server";
  std::string text;
  for (std::size_t i = 0; i < std::min(fields.size(), MostFields); ++i)
    text += (i == 0 ? "" : ", ") + fieldText(fields[i], sticks_.context.commands->held(fields[i]));
  return text;
}

Label& StickDisplay::sentLabel(StickRow row) {
  if (row.kind == StickRow::Axis) return stick_.lblSentA(row.index);
  if (row.kind == StickRow::Line) return stick_.lblSentBtn(row.index);
  return sticks_.CMore.at(static_cast<std::size_t>(stick_.MyID()))->lblSent(row.index);
}

Label& StickDisplay::answerLabel(StickRow row) {
  if (row.kind == StickRow::Axis) return stick_.lblAnswerA(row.index);
  if (row.kind == StickRow::Line) return stick_.lblAnswerBtn(row.index);
  return sticks_.CMore.at(static_cast<std::size_t>(stick_.MyID()))->lblAnswer(row.index);
}

}  // namespace vorlent
