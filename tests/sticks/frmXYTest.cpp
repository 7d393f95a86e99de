#include "sticks/frmXY.h"

#include "core/frmMainClient.h"
#include "sticks/StickTest.h"

namespace vorlent {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;
using ::testing::IsEmpty;

/// The editor of the first axis of a plain stick. Places on the graph are told in percent.
class Sensitivity : public StickTest {
 protected:
  void SetUp() override {
    StickTest::SetUp();
    click(1);
    edit = t.server.sticks.XY.get();
    open();
  }
  void open(std::int16_t value = 0) {
    edit->InitForStick(0, value);
    edit->Visible(true);
  }
  void curve(const ResponseCurve& wanted) {
    stick().takeCurve(0, wanted);
    open();
  }
  void down(float x, float y, int button = 1, int shift = 0) {
    edit->Pic1.mouseDown(button, shift, placeOfPercent(x, y));
  }
  void move(float x, float y) { edit->Pic1.mouseMove(placeOfPercent(x, y)); }
  void up(float x, float y) { edit->Pic1.mouseUp(placeOfPercent(x, y)); }
  void drag(float fromX, float fromY, float toX, float toY) {
    down(fromX, fromY);
    move(toX, toY);
    up(toX, toY);
  }
  std::vector<float> ofStick() {
    const ResponseCurve& c = stick().curve(0);
    return {c.y1, c.x2, c.X3, c.m1, c.m2, c.m3};
  }
  std::vector<float> xs() const {
    return {edit->PointX(1), edit->PointX(2), edit->PointX(3), edit->PointX(4)};
  }
  std::vector<float> ys() const {
    return {edit->PointY(1), edit->PointY(2), edit->PointY(3), edit->PointY(4)};
  }
  void key(int keyCode, int shift = 0) { edit->Pic1.keyDown(keyCode, shift); }

  static constexpr int PageUp = 33, PageDown = 34, Left = 37, Up = 38, Right = 39, Down = 40;
  frmXY* edit = nullptr;
};

TEST_F(Sensitivity, ShowsALinearCurveAsFourPoints) {
  curve({10, 20, 60, 0.5F, 1.5F, 0.25F});
  EXPECT_TRUE(edit->optMode(0).Value());
  EXPECT_FALSE(edit->optMode(1).Value());
  EXPECT_EQ(edit->PointCount(), 4);
  EXPECT_THAT(xs(), ElementsAre(0, 20, 60, 100));
  EXPECT_THAT(ys(), ElementsAre(10, 20, 80, 90));
}

TEST_F(Sensitivity, AThirdBreakpointOfZeroSelectsTheSecondDegree) {
  curve({0, 50, 0, 0.01F, 0, 0});
  EXPECT_TRUE(edit->optMode(1).Value());
  EXPECT_EQ(edit->PointCount(), 3);
  EXPECT_THAT(xs(), ElementsAre(0, 50, 100, 100));
  EXPECT_THAT(ys(), ElementsAre(0, 25, 100, 100));
}

TEST_F(Sensitivity, ADraggedPointWorksInTheNextPoll) {
  down(33, 33);
  EXPECT_EQ(edit->DragIndex(), 2);
  EXPECT_EQ(edit->txtX.Text(), "33");
  EXPECT_EQ(edit->txtY.Text(), "33");
  move(50, 20.4F);
  EXPECT_EQ(edit->txtX.Text(), "50");
  EXPECT_EQ(edit->txtY.Text(), "20");
  // 20.4 / 50, (66 - 20.4) / 16
  EXPECT_THAT(ofStick(), ElementsAre(0, FloatNear(50, 1e-4F), 66, FloatNear(0.408F, 1e-5F),
                                     FloatNear(2.85F, 1e-4F), 1));
  board().x = 32768;  // half a unit behind the point: 6684.5 + 0.5 * 2.85
  EXPECT_THAT(tick(), ElementsAre("A 1 6686"));
  up(50, 20.4F);
  EXPECT_EQ(edit->DragIndex(), 0);
}

TEST_F(Sensitivity, APointIsGraspedWithinFortyUnitsBothWays) {
  const Picture::Place point = placeOfPercent(33, 33);
  for (const float side : {-40.0F, 40.0F}) {
    edit->Pic1.mouseDown(1, 0, {point.x + side, point.y - side});
    EXPECT_EQ(edit->DragIndex(), 2);
    edit->Pic1.mouseDown(1, 0, {point.x + side * 1.02F, point.y});
    EXPECT_EQ(edit->DragIndex(), 0);
    edit->Pic1.mouseDown(1, 0, {point.x, point.y + side * 1.02F});
    EXPECT_EQ(edit->DragIndex(), 0);
  }
}

TEST_F(Sensitivity, OfTwoPointsInReachTheFirstIsGrasped) {
  curve({0, 33, 34, 1, 1, 1});
  down(33.5F, 33.5F);
  EXPECT_EQ(edit->DragIndex(), 2);
}

TEST_F(Sensitivity, AnyButtonButTheLeftAloneDoesNothing) {
  down(33, 33, 2);
  EXPECT_EQ(edit->DragIndex(), 0);
  down(33, 33, 4);
  EXPECT_EQ(edit->DragIndex(), 0);
  for (int shift = 1; shift <= 7; ++shift) {
    down(33, 33, 1, shift);
    EXPECT_EQ(edit->DragIndex(), 0);
  }
  move(60, 60);
  up(60, 60);
  EXPECT_THAT(ofStick(), ElementsAre(0, 33, 66, 1, 1, 1));
}

TEST_F(Sensitivity, ThePointsAtTheEndsMoveAlongYAlone) {
  drag(0, 0, 40, 30);
  EXPECT_THAT(xs(), ElementsAre(0, 33, 66, 100));
  EXPECT_THAT(ys(), ElementsAre(FloatNear(30, 0.01F), 33, 66, 100));
  drag(100, 100, 10, 80);
  EXPECT_THAT(xs(), ElementsAre(0, 33, 66, 100));
  EXPECT_THAT(ys()[3], FloatNear(80, 0.01F));
}

TEST_F(Sensitivity, APointStaysAPercentAwayFromItsNeighboursAndWithinTheTravel) {
  drag(33, 33, 90, 130);
  EXPECT_THAT(xs(), ElementsAre(0, 65, 66, 100));
  EXPECT_EQ(ys()[1], 100);
  drag(65, 100, -20, -20);
  EXPECT_THAT(xs(), ElementsAre(0, 1, 66, 100));
  EXPECT_EQ(ys()[1], 0);
  drag(66, 66, 400, 50);
  EXPECT_EQ(xs()[2], 99);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(Sensitivity, AParabolaGoesThroughItsDraggedPointAtEveryMove) {
  curve({0, 50, 0, 0, 1, 0});
  down(50, 50);
  move(50, 25);
  EXPECT_THAT(ofStick(), ElementsAre(0, 50, 0, FloatNear(0.01F, 1e-7F), 0, 0));
  EXPECT_EQ(edit->PointX(3), 100);
  move(99.9F, 25);
  EXPECT_EQ(edit->PointX(2), 99);
  move(0, 25);
  EXPECT_EQ(edit->PointX(2), 1);
  up(0, 25);
  EXPECT_EQ(t.exitStatus(), std::nullopt);
}

TEST_F(Sensitivity, TheLastPointOfAParabolaIsItsThird) {
  curve({0, 50, 0, 0, 1, 0});
  drag(100, 100, 30, 50);
  EXPECT_EQ(edit->PointX(3), 100);
  EXPECT_THAT(edit->PointY(3), FloatNear(50, 0.01F));
}

TEST_F(Sensitivity, TheOtherFormBeginsOnTheCurveThatStandsAndIsAppliedLater) {
  curve({0, 50, 66, 0.5F, 1.5F, 1.5F});  // (50, 25), (66, 49), (100, 100)
  edit->optMode(1).Value(true);
  EXPECT_FALSE(edit->optMode(0).Value());
  EXPECT_EQ(edit->PointCount(), 3);
  EXPECT_THAT(xs(), ElementsAre(0, 50, 100, 100));
  EXPECT_THAT(ys(),
              ElementsAre(0, FloatNear(25, 0.01F), FloatNear(100, 0.01F), FloatNear(100, 0.01F)));
  EXPECT_THAT(ofStick(), ElementsAre(0, 50, 66, 0.5F, 1.5F, 1.5F));
  edit->cmdOK.press();
  EXPECT_THAT(ofStick(), ElementsAre(0, 50, 0, FloatNear(0.01F, 1e-6F), FloatNear(0, 1e-6F), 0));
  EXPECT_FALSE(edit->Visible());
  EXPECT_THAT(t.op.hidden, ElementsAre("frmXY"));
}

TEST_F(Sensitivity, TheOtherFormAndBackWithoutAMoveGivesTheOldPoints) {
  curve({0, 20, 80, 2, 1, 0});  // (20, 40), (80, 100), (100, 100)
  edit->optMode(1).Value(true);
  edit->cmdStart.press();
  edit->optMode(0).Value(true);
  EXPECT_THAT(xs(), ElementsAre(0, 20, 80, 100));
  EXPECT_THAT(ys(),
              ElementsAre(0, FloatNear(40, 0.01F), FloatNear(100, 0.01F), FloatNear(100, 0.01F)));
  EXPECT_THAT(ofStick(), ElementsAre(0, 20, 80, 2, 1, 0));
}

TEST_F(Sensitivity, FromAParabolaToLinesTheSecondBendIsSixtySix) {
  curve({0, 50, 0, 0.01F, 0, 0});
  edit->optMode(0).Value(true);
  EXPECT_THAT(xs(), ElementsAre(0, 50, 66, 100));
  EXPECT_THAT(
      ys(), ElementsAre(0, FloatNear(25, 0.01F), FloatNear(43.56F, 0.01F), FloatNear(100, 0.01F)));
}

TEST_F(Sensitivity, ABendBeyondTheDefaultPushesItAway) {
  curve({0, 80, 0, 0, 1, 0});
  edit->optMode(0).Value(true);
  EXPECT_THAT(xs(), ElementsAre(0, 80, 81, 100));
  curve({0, 100, 0, 0, 1, 0});
  edit->optMode(0).Value(true);
  EXPECT_THAT(xs(), ElementsAre(0, 98, 99, 100));
}

TEST_F(Sensitivity, DefaultAndThenClosingLeavesTheIdentity) {
  curve({10, 50, 0, 0.005F, 0.25F, 5});
  edit->cmdDefault.press();
  EXPECT_TRUE(edit->optMode(0).Value());
  EXPECT_THAT(ofStick(), ElementsAre(0, 33, 66, 1, 1, 1));
  EXPECT_THAT(xs(), ElementsAre(0, 33, 66, 100));
  EXPECT_THAT(ys(), ElementsAre(0, 33, 66, 100));
  edit->cmdCancel.press();
  EXPECT_THAT(ofStick(), ElementsAre(0, 33, 66, 1, 1, 1));
  edit->Visible(true);
  edit->cmdOK.press();
  EXPECT_THAT(ofStick(), ElementsAre(0, 33, 66, 1, 1, 1));
}

TEST_F(Sensitivity, CancelKeepsWhatWasDragged) {
  drag(33, 33, 33, 50);
  edit->cmdCancel.press();
  EXPECT_FALSE(edit->Visible());
  EXPECT_THAT(ofStick()[3], FloatNear(50.0F / 33, 1e-4F));
}

TEST_F(Sensitivity, RefreshPaintsAnewAndChangesNothing) {
  edit->optMode(1).Value(true);
  const unsigned painted = edit->Pic1.Paintings();
  edit->cmdStart.press();
  EXPECT_EQ(edit->Pic1.Paintings(), painted + 1);
  EXPECT_EQ(edit->PointCount(), 3);
  EXPECT_THAT(ofStick(), ElementsAre(0, 33, 66, 1, 1, 1));
}

TEST_F(Sensitivity, AWindowThatClosesInTheMiddleOfADragLetsThePointGo) {
  down(33, 33);
  move(40, 40);
  edit->close();
  EXPECT_EQ(edit->DragIndex(), 0);
  move(60, 60);
  up(60, 60);
  EXPECT_THAT(ofStick()[1], FloatNear(40, 0.01F));
}

TEST_F(Sensitivity, PointsThatLieOverEachOtherLeaveTheSticksCurveUntilTheyAreApart) {
  for (const ResponseCurve& broken :
       {ResponseCurve{0, 0, 66, 1, 1, 1}, ResponseCurve{0, 50, 50, 1, 1, 1},
        ResponseCurve{0, 33, 100, 1, 1, 1}, ResponseCurve{0, 0, 0, 0, 1, 0}}) {
    curve(broken);
    statusLines.clear();
    edit->cmdOK.press();
    EXPECT_THAT(statusLines, ElementsAre("Sensitivity: Division by zero"));
    EXPECT_THAT(ofStick(),
                ElementsAre(broken.y1, broken.x2, broken.X3, broken.m1, broken.m2, broken.m3));
  }
  curve({0, 0, 66, 1, 1, 1});
  key(PageDown);
  key(PageDown);
  key(Right);
  EXPECT_EQ(edit->PointX(2), 1);
  EXPECT_EQ(stick().curve(0).x2, 1);
}

TEST_F(Sensitivity, ADragBringsNoPointsTogetherWhereAFileHasThemTooNear) {
  curve({0, 0.5F, 1, 40, 40, 0});  // (0.5, 20), (1, 40)
  statusLines.clear();
  drag(0.5F, 20, 40, 30);
  EXPECT_THAT(xs(), ElementsAre(0, 0.5F, 1, 100));
  EXPECT_THAT(stick().curve(0).m1, FloatNear(60, 0.01F));
  curve({0, 99, 99.5F, 0.5F, 20, 1});  // (99, 49.5), (99.5, 59.5)
  drag(99.5F, 59.5F, 60, 80);
  EXPECT_THAT(xs(), ElementsAre(0, 99, 99.5F, 100));
  EXPECT_THAT(stick().curve(0).m2, FloatNear(61, 0.02F));
  EXPECT_THAT(statusLines, IsEmpty());
}

TEST_F(Sensitivity, TheFormsAndButtonsHaveTheirNames) {
  EXPECT_EQ(edit->Caption(), "Sensitivity");
  EXPECT_EQ(edit->optMode(0).Caption(), "Linear");
  EXPECT_EQ(edit->optMode(1).Caption(), "2nd-degree");
  EXPECT_EQ(edit->cmdStart.Caption(), "Refresh");
  EXPECT_EQ(edit->cmdDefault.Caption(), "Default");
}

TEST_F(Sensitivity, ACurveBeyondAllNumbersIsToldAndShownAsALine) {
  statusLines.clear();
  curve({0, 33, 66, 3e38F, 1, 1});
  EXPECT_THAT(statusLines, ElementsAre("Sensitivity: Overflow"));
  EXPECT_THAT(ys(), ElementsAre(0, 33, 66, 100));
  EXPECT_EQ(stick().curve(0).m1, 3e38F);
}

TEST_F(Sensitivity, KeysChooseAPointAndMoveItByOneOrTenPercent) {
  key(Up);
  EXPECT_THAT(ys(), ElementsAre(0, 33, 66, 100));  // none is chosen yet
  key(PageDown);
  EXPECT_EQ(edit->txtX.Text(), "0");
  key(PageDown);
  EXPECT_EQ(edit->txtX.Text(), "33");
  key(Up);
  key(Right, 1);
  EXPECT_EQ(edit->PointX(2), 43);
  EXPECT_EQ(edit->PointY(2), 34);
  key(Left);
  key(Down, 1);
  EXPECT_EQ(edit->PointX(2), 42);
  EXPECT_EQ(edit->PointY(2), 24);
  EXPECT_EQ(edit->txtY.Text(), "24");
  EXPECT_EQ(stick().curve(0).x2, 42);
  for (int i = 0; i < 9; ++i) key(PageDown);
  EXPECT_EQ(edit->txtX.Text(), "100");
  key(Left, 1);
  EXPECT_EQ(edit->PointX(4), 100);
  for (int i = 0; i < 9; ++i) key(PageUp);
  EXPECT_EQ(edit->txtX.Text(), "0");
  key(Down, 1);
  EXPECT_EQ(edit->PointY(1), 0);
  key(65);
}

TEST_F(Sensitivity, TheMarkerFollowsTheSelectedAxisAtThePaceOfTheDisplay) {
  stick().Visible(true);
  stick().optAxes(1).Value(true);
  stick().cmdSens.press();
  board().y = 65535;
  t.loop.advance(50);
  EXPECT_EQ(edit->picture().marker.at(0).x, 200);
  t.loop.advance(250);
  EXPECT_EQ(edit->picture().marker.at(0).x, 3200);
  EXPECT_THAT(edit->Pic1.Description(), ::testing::EndsWith("input 100, output 100"));
}

TEST_F(Sensitivity, TheAxisThatIsSelectedMeanwhileKeepsItsCurve) {
  stick().Visible(true);
  stick().optAxes(2).Value(true);
  drag(33, 33, 33, 50);
  EXPECT_EQ(stick().curve(2).m1, 1);
  EXPECT_THAT(stick().curve(0).m1, FloatNear(50.0F / 33, 1e-4F));
  stick().chkFind.Value(1);
  tick();
  board().rz = 65535;
  ticks(3);
  EXPECT_TRUE(stick().optAxes(2).Value());
  edit->close();
  ticks(2);
  EXPECT_TRUE(stick().optAxes(2).Value());  // what moved meanwhile does not count
}

TEST_F(Sensitivity, APointBeyondTheTravelIsGraspedAtItsEdge) {
  curve({-20, 150, 66, 1, 1, 1});
  down(0, 0);
  EXPECT_EQ(edit->DragIndex(), 1);
  up(0, 0);
  down(100, 100);
  EXPECT_EQ(edit->DragIndex(), 2);
}

TEST_F(Sensitivity, ThePictureHasScalesPointsAndCurveInItsUnits) {
  curve({10, 50, 66, 0, 1, 1});  // (0, 10), (50, 10), (66, 26), (100, 60)
  const CurvePicture picture = edit->picture();
  EXPECT_EQ(edit->Pic1.ScaleWidth, 3350);
  EXPECT_EQ(edit->Pic1.ScaleHeight, 3350);
  ASSERT_EQ(picture.ticks.size(), 6U);
  EXPECT_EQ(picture.ticks[1].percent, 20);
  EXPECT_EQ(picture.ticks[1].atX.x, 800);   // 200 + 20 * 30
  EXPECT_EQ(picture.ticks[1].atX.y, 3150);  // 3350 - 200
  EXPECT_EQ(picture.ticks[1].atY.x, 200);
  EXPECT_EQ(picture.ticks[1].atY.y, 2550);
  ASSERT_EQ(picture.points.size(), 4U);
  EXPECT_EQ(picture.points[1].place.x, 1700);
  EXPECT_NEAR(picture.points[1].place.y, 2850, 1);
  ASSERT_EQ(picture.curve.size(), 101U);
  EXPECT_NEAR(picture.curve[0].y, 2850, 1);
  EXPECT_NEAR(picture.curve[100].y, 1350, 2);
  EXPECT_EQ(picture.marker.at(2).x - picture.marker.at(1).x, 80);
  EXPECT_EQ(picture.marker.at(0).y - picture.marker.at(1).y, 110);
}

TEST_F(Sensitivity, OtherSticksKeepTheirCurves) {
  t.folder.write(stickFileOf(1), PlainStickFile);
  t.controllers.plugIn();
  click(0);
  t.form.txtSticks.Text("2");
  click(1);
  stick(0).Visible(true);
  stick(1).Visible(true);
  stick(0).cmdSens.press();
  stick(1).cmdSens.press();
  EXPECT_EQ(edit->stick(), 1);
  drag(33, 33, 33, 50);
  EXPECT_EQ(stick(0).curve(0).m1, 1);
  EXPECT_THAT(stick(1).curve(0).m1, FloatNear(50.0F / 33, 1e-4F));
  EXPECT_TRUE(stick(0).Showing());
  EXPECT_TRUE(stick(1).Showing());
}

}  // namespace
}  // namespace vorlent
