#pragma once

#include <cstdint>
#include <memory>

#include "base/ControlArray.h"
#include "base/IndexedArray.h"
#include "base/analogScale.h"
#include "base/controls.h"
#include "platform/FormTimer.h"
#include "sticks/encoders.h"
#include "sticks/responseCurve.h"

namespace vorlent {

class StickDisplay;
class StickPoll;
class Timer;
struct Sticks;

/// One stick: a controller board with four analog channels and four digital lines. Its controls
/// are the store of its configuration, which the poll reads whether or not a window shows them.
///
/// A row that is selected shows what is assigned to it: the entry of the catalogue with its code,
/// or the name of its key. Selecting a row assigns nothing; choosing an entry does, and a key that
/// is pressed in txtKeyA or txtKeyBtn.
class frmCStick : public Form {
 public:
  static constexpr int Axes = 4;
  static constexpr int Lines = 4;

  /// Reads the four catalogues; ends the process where one is missing.
  frmCStick(Sticks& sticks, std::int16_t stick);
  ~frmCStick() override;

  /// Takes the kinds of the lines into the switch boxes, works out both modes and selects the
  /// first axis and the first line.
  void Form_Init();
  /// The window has come into sight: the selected axis gives ChannelID from now on.
  void Form_Activate();
  /// AxisMode by the encoder flag of the last axis, and the page that goes with it.
  void SetAxisCoderState();
  /// BtnMode by the kind of the last line and by whether a line is a switch, and the page that goes
  /// with it.
  void SetBtnCoderState();

  /// 0..8; the device of the same number is the stick's, and "stick<MyID>.cfg" its file.
  std::int16_t MyID() const { return MyID_; }
  void MyID(std::int16_t stick);
  /// The axis that the curve's properties mean, 0..3.
  std::int16_t ChannelID() const { return ChannelID_; }
  void ChannelID(std::int16_t axis) { ChannelID_ = axis; }
  /// 1: the axes are two encoders, else 0.
  std::int16_t AxisMode() const { return AxisMode_; }
  /// 0 plain lines, 1 lines that carry a code for fifteen buttons, 2 two encoders.
  std::int16_t BtnMode() const { return BtnMode_; }
  bool BtnEncoder() const { return BtnMode_ == 2; }
  bool Initialised() const { return Initialised_; }
  /// The board did not answer its last poll: it has been pulled out.
  bool Unplugged() const;
  /// The window is in sight.
  bool Showing() const { return Showing_; }

  // The response curve of the channel ChannelID; outside 0..3 they raise SubscriptOutOfRange.
  float m1() const { return curve().m1; }
  void m1(float slope) { ownCurve().m1 = slope; }
  float m2() const { return curve().m2; }
  void m2(float slope) { ownCurve().m2 = slope; }
  float m3() const { return curve().m3; }
  void m3(float slope) { ownCurve().m3 = slope; }
  float y1() const { return curve().y1; }
  void y1(float percent) { ownCurve().y1 = percent; }
  float x2() const { return curve().x2; }
  void x2(float percent) { ownCurve().x2 = percent; }
  float X3() const { return curve().X3; }
  void X3(float percent) { ownCurve().X3 = percent; }
  /// All six at once, of an axis 0..3.
  void takeCurve(int axis, const ResponseCurve& curve) { curves_(axis) = curve; }
  const ResponseCurve& curve() const { return curves_(ChannelID_); }
  /// Of an axis, 0..3.
  const ResponseCurve& curve(int axis) const { return curves_(axis); }

  /// One tick: reads the device, conditions what it says and carries out what has changed.
  void PollStick();
  /// Takes down a direction; `result` is 0 unless the one before was the same.
  void push(std::int16_t direction, std::int16_t& result);
  /// Polls every `period_ms`; less than 1 counts as 1.
  void startPolling(int period_ms);

  /// As the close box: as cmdCancel.
  void close() override;

  /// What its rows read, send and are answered, for its window.
  StickDisplay& display() { return *display_; }

  /// Of the pages' numbers in SSTab1.
  enum Page : int { AxisPage = 0, ButtonPage = 1 };
  TabStrip SSTab1{"SSTab1"};
  /// Selects the row of whatever moved last.
  CheckBox chkFind{"chkFind", "Press it, turn it, move it"};
  Label lblBoard{"lblBoard"};  ///< says when the board is away

  // The axes "X-Axis", "Y-Axis", "Z-Axis" and "R-Axis", or "Encoder 1" and "Encoder 2".
  Label lblAxisName{"lblAxisName"};  ///< the selected row's name
  Label lblValue{"lblValue"};
  Label lblNull{"lblNull"};
  Label lblDamp{"lblDamp"};
  Label lblInv{"lblInv"};
  Label lblAccA{"lblAccA"};
  ControlArray<OptionButton> optAxes{"optAxes", Axes, ""};  ///< Tag: the assigned code
  ControlArray<TextBox> txtValue{"txtValue", Axes};         ///< before the curve
  ControlArray<Bar> prgRaw{"prgRaw", Axes, AnalogMax};      ///< as the board reads
  ControlArray<Bar> prgValue{"prgValue", Axes, AnalogMax};  ///< as txtValue
  ControlArray<Shape> shpAxis{"shpAxis", Axes};
  ControlArray<TextBox> txtNull{"txtNull", Axes};           ///< change threshold in axis units
  ControlArray<CheckBox> chkDamp{"chkDamp", Axes, "Damp"};  ///< Tag: "1" where encoders are wired
  ControlArray<CheckBox> chkInvert{"chkInvert", Axes, "Invert Axis"};
  ControlArray<TextBox> txtAccA{"txtAccA", Axes};
  ControlArray<ComboBox> cboEncA{"cboEncA", Axes / 2};
  ControlArray<Label> lblSentA{"lblSentA", Axes};      ///< "A 81 12000"
  ControlArray<Label> lblAnswerA{"lblAnswerA", Axes};  ///< what the simulator holds since
  ComboBox cboAxes{"cboAxes"};
  ComboBox cboACoder{"cboACoder"};
  CheckBox chkKeyA{"chkKeyA", "Send Key"};
  TextBox txtKeyA{"txtKeyA"};
  Label lblKeyA{"lblKeyA"};  ///< says when a key is where none is sent
  Button cmdCoderAxis{"cmdCoderAxis", "Encoders"};
  Button cmdSens{"cmdSens", "Sensitivity"};

  // The lines "Button 1" to "Button 4", or "Encoder 1" and "Encoder 2".
  Label lblType{"lblType"};
  Label lblAccBtn{"lblAccBtn"};
  ControlArray<OptionButton> optSwitches{"optSwitches", Lines, ""};  ///< Tag: the assigned code
  ControlArray<Shape> shpLine{"shpLine", Lines};    ///< red while the line is closed
  ControlArray<Shape> shpOnOff{"shpOnOff", Lines};  ///< what was sent last
  /// Tag: the kind, "0" a push button, "1" a switch, "2" a line of an encoder.
  ControlArray<CheckBox> OnOff{"OnOff", Lines, "On/Off switch"};
  ControlArray<TextBox> txtAccBtn{"txtAccBtn", Lines};
  ControlArray<ComboBox> cboEncBtn{"cboEncBtn", Lines / 2};
  ControlArray<Label> lblSentBtn{"lblSentBtn", Lines};
  ControlArray<Label> lblAnswerBtn{"lblAnswerBtn", Lines};
  ComboBox cboSwitches{"cboSwitches"};
  ComboBox cboButtons{"cboButtons"};
  ComboBox cboCoder{"cboCoder"};
  CheckBox chkKeyBtn{"chkKeyBtn", "Send Key"};
  TextBox txtKeyBtn{"txtKeyBtn"};
  Label lblKeyBtn{"lblKeyBtn"};  ///< as lblKeyA
  Button cmdCoderBtn{"cmdCoderBtn", "Encoders"};
  Button cmdMore{"cmdMore", "Button 5-15..."};

  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 protected:
  void Form_KeyDown(int keyCode, int shift) override;

 private:
  void addControls();
  void setDefaults();
  void setCaptions();
  void wireControls();
  void wireKeys();
  void wireAxes();
  void wireButtons();
  void loadCatalogues();
  void hidden();

  // The page of the axes, frmCStickAxes.cpp.
  int selectedAxis() const;
  void selectAxis(int axis);
  void showAxis(int axis);
  void showKeyA(bool checked, const std::string& assigned);
  void chkKeyAClick();
  void takeAxis(const ComboBox& box);
  void cmdCoderAxisClick();
  void cmdSensClick();
  void tellKeyOf(int axis);
  void captureAxis(std::int16_t code, const std::string& label);

  // The page of the lines, frmCStickButtons.cpp.
  int selectedLine() const;
  void selectLine(int line);
  void showLine(int line);
  void showKeyBtn(bool checked, int line);
  ComboBox& catalogueOf(int line);
  void chkKeyBtnClick();
  void takeLine(const ComboBox& box);
  void OnOffClick(int line);
  void setLineMode();
  void cmdCoderBtnClick();
  void captureLine(std::int16_t code, const std::string& label);
  int switchCount() const;

  void cmdMoreClick();
  void cmdOKClick();
  ResponseCurve& ownCurve() { return curves_(ChannelID_); }

  Sticks& sticks_;
  std::int16_t MyID_ = 0;
  std::int16_t ChannelID_ = 0;
  std::int16_t AxisMode_ = 0;
  std::int16_t BtnMode_ = 0;
  bool Initialised_ = false;
  bool Showing_ = false;
  IndexedArray<ResponseCurve, 0, Axes - 1> curves_;
  DirectionHistory DirHistory_;
  std::unique_ptr<StickDisplay> display_;
  std::unique_ptr<StickPoll> poll_;
  FormTimer tmrstick_;
  std::unique_ptr<Timer> pollTimer_;
};

}  // namespace vorlent
