#include "sticks/frmXY.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/RuntimeError.h"
#include "platform/FailureDomain.h"
#include "platform/Operator.h"
#include "platform/StatusLine.h"
#include "sticks/Sticks.h"
#include "sticks/frmCStick.h"
#include "sticks/rowAssignment.h"

namespace vorlent {
namespace {

enum Mode : int { Linear = 0, SecondDegree = 1 };

/// Virtual key codes.
enum Key : int { PageUp = 33, PageDown, End, Home, Left, Up, Right, Down };
constexpr float Step = 1;
constexpr float WideStep = 10;

bool within(Picture::Place a, Picture::Place b) {
  return std::abs(a.x - b.x) <= CurveScale::PointReach &&
         std::abs(a.y - b.y) <= CurveScale::PointReach;
}

std::string whole(float percent) { return std::to_string(std::lround(percent)); }

}  // namespace

frmXY::frmXY(Sticks& sticks) : Form("frmXY"), sticks_(sticks) {
  Caption("Sensitivity");
  optMode(Linear).Caption("Linear");
  optMode(SecondDegree).Caption("2nd-degree");
  optMode(Linear).Value(true);
  for (TextBox* box : {&txtX, &txtY}) box->Locked(true);
  for (Control* control :
       std::initializer_list<Control*>{&Pic1, &optMode(Linear), &optMode(SecondDegree), &txtX,
                                       &txtY, &cmdStart, &cmdDefault, &cmdOK, &cmdCancel})
    add(*control);
  wireControls();
}

void frmXY::wireControls() {
  for (int mode = 0; mode < optMode.count(); ++mode)
    optMode(mode).Value.onChange([this, mode] {
      if (optMode(mode).Value()) optModeClick(mode);
    });
  Pic1.percentRule(placeOfPercent);
  Pic1.onMouseDown(
      [this](int button, int shift, Picture::Place place) { mouseDown(button, shift, place); });
  Pic1.onMouseMove([this](Picture::Place place) { mouseMove(place); });
  Pic1.onMouseUp([this](Picture::Place) { mouseUp(); });
  Pic1.onKeyDown([this](int keyCode, int shift) { keyDown(keyCode, shift); });
  cmdStart.onClick([this] { DrawLine(); });
  cmdDefault.onClick([this] { cmdDefaultClick(); });
  cmdOK.onClick([this] {
    apply();
    close();
  });
  cmdCancel.onClick([this] { close(); });
}

/// Nothing when the sticks have been switched off meanwhile.
frmCStick* frmXY::edited() const {
  return sticks_.CStick.at(static_cast<std::size_t>(stick_)).get();
}

void frmXY::InitForStick(std::int16_t stick, std::int16_t value) {
  stick_ = stick;
  value_ = value;
  DragIndex_ = chosen_ = 0;
  channel_ = edited() != nullptr ? edited()->ChannelID() : std::int16_t{0};
  curve_ = edited() != nullptr ? edited()->curve() : ResponseCurve();
  try {
    points_ = pointsOf(curve_);
  } catch (const RuntimeError& error) {
    sticks_.context.status.SetStatusText(1, "Sensitivity: " + error.description());
    points_ = pointsOf({});
  }
  const int mode = points_.linear ? Linear : SecondDegree;
  selectOnly(optMode, mode);
  optMode(mode).Value.setQuietly(true);
  showCoordinates(0);
  DrawPointer();
}

void frmXY::LiveValue(std::int16_t value) {
  if (value == value_) return;
  value_ = value;
  DrawPointer();
}

CurvePicture frmXY::picture() const {
  return curvePicture(points_, curve_, DragIndex_ != 0 ? DragIndex_ : chosen_, value_);
}

/// The points of the other form lie on the curve that the stick has, which stays until one is
/// moved. So the way back to the first form loses nothing.
void frmXY::optModeClick(int mode) {
  selectOnly(optMode, mode);
  const bool linear = mode == Linear;
  if (linear == points_.linear) return;
  points_ = pointsOnCurve(edited() != nullptr ? edited()->curve(channel_) : curve_, linear);
  DragIndex_ = chosen_ = 0;
  showCoordinates(0);
  DrawLine();
}

void frmXY::cmdDefaultClick() {
  optMode(Linear).Value(true);
  curve_ = {};
  points_ = pointsOf(curve_);
  DragIndex_ = chosen_ = 0;
  showCoordinates(0);
  giveToStick();
  DrawPointer();
  sticks_.context.failureDomain.pump();
}

void frmXY::mouseDown(int button, int shift, Picture::Place place) {
  if (button != Picture::LeftButton || shift != 0) return;
  DragIndex_ = 0;
  for (int i = 1; i <= PointCount() && DragIndex_ == 0; ++i)
    if (within(place, placeOfPoint(points_, i))) DragIndex_ = static_cast<std::int16_t>(i);
  if (DragIndex_ != 0) chosen_ = DragIndex_;
  showCoordinates(DragIndex_);
  DrawPointer();
}

void frmXY::mouseMove(Picture::Place place) {
  if (DragIndex_ == 0) return;
  const Picture::Place percent = percentOfPlace(place);
  movePoint(DragIndex_, percent.x, percent.y);
}

void frmXY::mouseUp() {
  if (DragIndex_ == 0) return;
  apply();
  DragIndex_ = 0;
  DrawPointer();
}

void frmXY::keyDown(int keyCode, int shift) {
  if (keyCode == PageUp || keyCode == PageDown) {
    const int next = chosen_ + (keyCode == PageDown ? 1 : -1);
    chosen_ = static_cast<std::int16_t>(std::clamp(next, 1, int{PointCount()}));
    showCoordinates(chosen_);
    return DrawPointer();
  }
  if (keyCode < Left || keyCode > Down || chosen_ == 0) return;
  const float step = (shift & Held::Shift) != 0 ? WideStep : Step;
  const float x = keyCode == Left ? -step : keyCode == Right ? step : 0;
  const float y = keyCode == Down ? -step : keyCode == Up ? step : 0;
  movePoint(chosen_, PointX(chosen_) + x, PointY(chosen_) + y);
}

void frmXY::movePoint(int point, float x, float y) {
  moveWithinNeighbours(points_, point, x, y);
  showCoordinates(point);
  apply();
}

/// A curve that cannot be told, as of points of a file that lie over each other, leaves the stick's
/// as it is.
void frmXY::apply() {
  try {
    curve_ = curveThrough(points_);
    giveToStick();
  } catch (const RuntimeError& error) {
    sticks_.context.status.SetStatusText(1, "Sensitivity: " + error.description());
  }
  DrawPointer();
}

void frmXY::giveToStick() {
  if (edited() != nullptr) edited()->takeCurve(channel_, curve_);
}

/// Of points that give no curve the last one stays.
void frmXY::DrawLine() {
  try {
    curve_ = curveThrough(points_);
  } catch (const RuntimeError& error) {
    sticks_.context.status.SetStatusText(1, "Sensitivity: " + error.description());
  }
  DrawPointer();
}

void frmXY::DrawPointer() {
  Pic1.Description(curveDescription(points_, curve_, value_));
  Pic1.Refresh();
}

void frmXY::showCoordinates(int point) {
  txtX.Text(point == 0 ? "" : whole(PointX(point)));
  txtY.Text(point == 0 ? "" : whole(PointY(point)));
}

void frmXY::close() {
  DragIndex_ = 0;
  if (!Visible()) return;
  Visible(false);
  sticks_.context.op.hideForm(*this);
}

}  // namespace vorlent
