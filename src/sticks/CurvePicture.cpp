#include "sticks/CurvePicture.h"

#include <algorithm>
#include <cmath>

#include "base/analogScale.h"

namespace vorlent {
namespace {

using Place = Picture::Place;
using namespace CurveScale;

constexpr int TickStep = 20;
constexpr int Percent = 100;

/// The curve's output in percent, within the travel.
float outputAt(const ResponseCurve& curve, float percent) {
  const auto value = static_cast<std::int16_t>(std::lround(percent / Percent * AnalogMax));
  return static_cast<float>(curveOutput(curve, value)) / AnalogMax * Percent;
}

float percentOf(int value) { return static_cast<float>(value) / AnalogMax * Percent; }

CurvePicture::Line curveLine(const ResponseCurve& curve) {
  CurvePicture::Line line;
  for (int percent = 0; percent <= Percent; ++percent) {
    const auto x = static_cast<float>(percent);
    line.push_back(placeOfPercent(x, outputAt(curve, x)));
  }
  return line;
}

std::string whole(float percent) { return std::to_string(std::lround(percent)); }

}  // namespace

Place placeOfPercent(float percentX, float percentY) {
  return {LeftMargin + percentX / Percent * Travel, Top + (Percent - percentY) / Percent * Travel};
}

Place percentOfPlace(Place place) {
  return {(place.x - LeftMargin) / Travel * Percent, Percent - (place.y - Top) / Travel * Percent};
}

Place placeOfPoint(const CurvePoints& points, int point) {
  return placeOfPercent(std::clamp(points.PointX(point), 0.0F, 100.0F),
                        std::clamp(points.PointY(point), 0.0F, 100.0F));
}

CurvePicture curvePicture(const CurvePoints& points, const ResponseCurve& curve, int inHand,
                          int value) {
  CurvePicture picture;
  for (int percent = 0; percent <= Percent; percent += TickStep) {
    const auto at = static_cast<float>(percent);
    picture.ticks.push_back({percent, placeOfPercent(at, 0), placeOfPercent(0, at)});
  }
  picture.curve = curveLine(curve);
  for (int i = 1; i <= points.PointCount(); ++i)
    picture.points.push_back({placeOfPoint(points, i), i == inHand});
  const float input = percentOf(value);
  const Place foot = placeOfPercent(input, Percent);
  const Place left{foot.x - MarkerWidth / 2, foot.y - MarkerHeight};
  picture.marker = {foot, left, {left.x + MarkerWidth, left.y}};
  picture.live = placeOfPercent(input, outputAt(curve, input));
  return picture;
}

std::string curveDescription(const CurvePoints& points, const ResponseCurve& curve, int value) {
  std::string text = points.linear ? "Linear:" : "2nd-degree:";
  for (int i = 1; i <= points.PointCount(); ++i)
    text += " " + whole(points.PointX(i)) + "," + whole(points.PointY(i));
  const float input = percentOf(value);
  return text + "; input " + whole(input) + ", output " + whole(outputAt(curve, input));
}

}  // namespace vorlent
