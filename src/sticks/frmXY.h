#pragma once

#include <cstdint>

#include "base/ControlArray.h"
#include "base/controls.h"
#include "sticks/CurvePicture.h"
#include "sticks/curvePoints.h"

namespace vorlent {

class frmCStick;
struct Sticks;

/// "Sensitivity": the editor of the response curve of one axis. Points are dragged on a graph, or
/// moved with the keys: Page Up and Page Down choose a point, the arrows move it by a percent, with
/// Shift by ten. What is dragged works in the next poll; it reaches the file with the stick's own.
class frmXY : public Form {
 public:
  explicit frmXY(Sticks& sticks);
  ~frmXY() override { View.reset(); }

  /// Takes the curve of the stick's channel; `value` is the input that stands now, 0..32767. A
  /// curve beyond all numbers is shown as a straight line, and told on the status line.
  void InitForStick(std::int16_t stick, std::int16_t value);
  /// The stick whose curve is edited.
  std::int16_t stick() const { return stick_; }
  /// The axis of that stick, 0..3: the one that was selected when the editor was opened.
  std::int16_t channel() const { return channel_; }
  void LiveValue(std::int16_t value);

  /// 4 in the linear form, 3 in that of the second degree.
  std::int16_t PointCount() const { return points_.PointCount(); }
  float PointX(int point) const { return points_.PointX(point); }
  float PointY(int point) const { return points_.PointY(point); }
  /// The point that the mouse holds, 0 for none.
  std::int16_t DragIndex() const { return DragIndex_; }
  CurvePicture picture() const;

  /// As the close box: what has been applied stays, a point in hand is let go.
  void close() override;

  Picture Pic1{"Pic1", CurveScale::Width, CurveScale::Height};
  ControlArray<OptionButton> optMode{"optMode", 2, ""};
  TextBox txtX{"txtX"};
  TextBox txtY{"txtY"};
  Button cmdStart{"cmdStart", "Refresh"};
  Button cmdDefault{"cmdDefault", "Default"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void wireControls();
  frmCStick* edited() const;
  void optModeClick(int mode);
  void cmdDefaultClick();
  void mouseDown(int button, int shift, Picture::Place place);
  void mouseMove(Picture::Place place);
  void mouseUp();
  void keyDown(int keyCode, int shift);
  void movePoint(int point, float x, float y);
  void apply();
  void giveToStick();
  void DrawLine();
  void DrawPointer();
  void showCoordinates(int point);

  Sticks& sticks_;
  std::int16_t stick_ = 0;
  std::int16_t channel_ = 0;
  std::int16_t value_ = 0;
  CurvePoints points_;
  ResponseCurve curve_;  ///< through the points, as it is painted
  std::int16_t DragIndex_ = 0;
  std::int16_t chosen_ = 0;  ///< by the keys or the mouse last
};

}  // namespace vorlent
