#pragma once

#include <string>
#include <vector>

#include "base/controls.h"
#include "sticks/curvePoints.h"

/// What the editor of a response curve paints, as places in picture units. No library paints here.
namespace vorlent {

/// The graph's scales: percent of travel, input across and output up.
namespace CurveScale {
constexpr float LeftMargin = 200;
constexpr float BottomMargin = 200;
/// What the picture is higher than the graph; the marker of the live value stands over it.
constexpr float ValueScaleHeight = 350;
constexpr float RightMargin = 150;
constexpr float Travel = 3000;  ///< 100 percent
constexpr float Width = LeftMargin + Travel + RightMargin;
constexpr float Height = Travel + ValueScaleHeight;
constexpr float Top = Height - BottomMargin - Travel;
/// A point is a square that reaches so far to each side, and is grasped within it.
constexpr float PointReach = 40;
constexpr float MarkerWidth = 80;
constexpr float MarkerHeight = 110;
}  // namespace CurveScale

Picture::Place placeOfPercent(float percentX, float percentY);
/// The inverse: x and y in percent.
Picture::Place percentOfPlace(Picture::Place place);

/// A point beyond the travel is painted and grasped at its edge.
Picture::Place placeOfPoint(const CurvePoints& points, int point);

struct CurvePicture {
  using Line = std::vector<Picture::Place>;
  struct Tick {
    int percent;
    Picture::Place atX, atY;  ///< on the axis of inputs and on that of outputs
  };
  struct Point {
    Picture::Place place;
    bool inHand;
  };

  std::vector<Tick> ticks;  ///< 0, 20, .. 100
  Line curve;               ///< from the left edge of the graph to the right, within it
  std::vector<Point> points;
  Line marker;          ///< a triangle over the input that stands now
  Picture::Place live;  ///< input and output that stand now, on the curve
};

/// `inHand`: the number of the point that is held or chosen, 0 for none. `value`: the input that
/// stands now, 0..32767.
CurvePicture curvePicture(const CurvePoints& points, const ResponseCurve& curve, int inHand,
                          int value);

/// "Linear: 0,0 33,33 66,66 100,100; input 50, output 50": percent, in whole numbers.
std::string curveDescription(const CurvePoints& points, const ResponseCurve& curve, int value);

}  // namespace vorlent
