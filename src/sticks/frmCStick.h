#pragma once

#include <cstdint>
#include <memory>

#include "base/ControlArray.h"
#include "base/IndexedArray.h"
#include "base/controls.h"
#include "sticks/encoders.h"
#include "sticks/responseCurve.h"

namespace vorlent {

class StickPoll;
class Timer;
struct Sticks;

/// One stick: a controller board with four analog channels and four digital lines. Its controls
/// are the store of its configuration, which the poll reads whether or not a window shows them.
class frmCStick : public Form {
 public:
  static constexpr int Axes = 4;
  static constexpr int Lines = 4;

  /// Reads the four catalogues; ends the process where one is missing.
  frmCStick(Sticks& sticks, std::int16_t stick);
  ~frmCStick() override;

  /// Takes the kinds of the lines into the switch boxes and works out both modes.
  void Form_Init();
  /// The window has come into sight: the selected axis gives ChannelID from now on.
  void Form_Activate();
  /// AxisMode by the encoder flag of the last axis.
  void SetAxisCoderState();
  /// BtnMode by the kind of the last line and by whether a line is a switch.
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

  // The axes "X-Axis", "Y-Axis", "Z-Axis" and "R-Axis".
  ControlArray<OptionButton> optAxes{"optAxes", Axes, ""};  ///< Tag: the assigned code
  ControlArray<TextBox> txtNull{"txtNull", Axes};           ///< change threshold in axis units
  ControlArray<CheckBox> chkDamp{"chkDamp", Axes, "Damp"};  ///< Tag: "1" where encoders are wired
  ControlArray<TextBox> txtAccA{"txtAccA", Axes};
  ControlArray<CheckBox> chkInvert{"chkInvert", Axes, "Invert Axis"};
  ControlArray<TextBox> txtValue{"txtValue", Axes};
  ControlArray<Shape> shpAxis{"shpAxis", Axes};
  ComboBox cboAxes{"cboAxes"};
  ComboBox cboACoder{"cboACoder"};

  // The lines "Button 1" to "Button 4".
  ControlArray<OptionButton> optSwitches{"optSwitches", Lines, ""};  ///< Tag: the assigned code
  /// Tag: the kind, "0" a push button, "1" a switch, "2" a line of an encoder.
  ControlArray<CheckBox> OnOff{"OnOff", Lines, "On/Off switch"};
  ControlArray<TextBox> txtAccBtn{"txtAccBtn", Lines};
  ControlArray<Shape> shpOnOff{"shpOnOff", Lines};
  ComboBox cboSwitches{"cboSwitches"};
  ComboBox cboButtons{"cboButtons"};
  ComboBox cboCoder{"cboCoder"};

  Button cmdMore{"cmdMore", "Button 5-15..."};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void addControls();
  void setDefaults();
  void wireControls();
  void loadCatalogues();
  void selectAxis(int axis);
  void cmdOKClick();
  int switchCount() const;
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
  std::unique_ptr<StickPoll> poll_;
  std::unique_ptr<Timer> pollTimer_;
};

}  // namespace vorlent
