#include "sticks/frmCStick.h"

#include <algorithm>
#include <string>

#include "base/backups.h"
#include "base/controls.h"
#include "base/files.h"
#include "base/text.h"
#include "commands/Keystrokes.h"
#include "platform/EventLoop.h"
#include "platform/FailureDomain.h"
#include "platform/Operator.h"
#include "platform/StatusLine.h"
#include "platform/fileChecks.h"
#include "sticks/StickDisplay.h"
#include "sticks/StickPoll.h"
#include "sticks/Sticks.h"
#include "sticks/catalogues.h"
#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/rowAssignment.h"
#include "sticks/stickFile.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr int DisplayPeriod_ms = 250;

}  // namespace

frmCStick::frmCStick(Sticks& sticks, std::int16_t stick)
    : Form("frmCStick(" + std::to_string(stick) + ")"),
      sticks_(sticks),
      MyID_(stick),
      display_(std::make_unique<StickDisplay>(sticks, *this)),
      poll_(std::make_unique<StickPoll>(sticks, *this)),
      tmrstick_(sticks.context.eventLoop, DisplayPeriod_ms,
                sticks.context.failureDomain.guarded([this] { display_->tmrstickTick(); })) {
  addControls();
  setDefaults();
  setCaptions();
  wireControls();
  loadCatalogues();
}

frmCStick::~frmCStick() { View.reset(); }

void frmCStick::MyID(std::int16_t stick) { MyID_ = stick; }

void frmCStick::addControls() {
  using Controls = std::initializer_list<Control*>;
  for (Control* control : Controls{&SSTab1, &chkFind, &lblBoard, &lblAxisName, &lblValue, &lblNull,
                                   &lblDamp, &lblInv, &lblAccA})
    add(*control);
  for (int i = 0; i < Axes; ++i) {
    for (Control* control :
         Controls{&optAxes(i), &txtValue(i), &prgRaw(i), &prgValue(i), &shpAxis(i), &txtNull(i),
                  &chkDamp(i), &chkInvert(i), &txtAccA(i), &lblSentA(i), &lblAnswerA(i)})
      add(*control);
    if (i % 2 == 0) add(cboEncA(i / 2));
  }
  for (Control* control : Controls{&cboAxes, &cboACoder, &chkKeyA, &txtKeyA, &lblKeyA,
                                   &cmdCoderAxis, &cmdSens, &lblType, &lblAccBtn})
    add(*control);
  for (int i = 0; i < Lines; ++i) {
    for (Control* control : Controls{&optSwitches(i), &shpLine(i), &shpOnOff(i), &OnOff(i),
                                     &txtAccBtn(i), &lblSentBtn(i), &lblAnswerBtn(i)})
      add(*control);
    if (i % 2 == 0) add(cboEncBtn(i / 2));
  }
  for (Control* control : Controls{&cboSwitches, &cboButtons, &cboCoder, &chkKeyBtn, &txtKeyBtn,
                                   &lblKeyBtn, &cmdCoderBtn, &cmdMore, &cmdOK, &cmdCancel})
    add(*control);
}

void frmCStick::setDefaults() {
  for (int i = 0; i < Axes; ++i) {
    optAxes(i).Tag("0");
    txtNull(i).Text("0");
    chkDamp(i).Tag("0");
    txtAccA(i).Text("1");
    txtValue(i).Text("0");
    txtValue(i).Locked(true);
  }
  for (int i = 0; i < Lines; ++i) {
    optSwitches(i).Tag("0");
    OnOff(i).Tag("0");
    txtAccBtn(i).Text("1");
  }
  for (int i = 0; i < 2; ++i)
    for (ComboBox* box : {&cboEncA(i), &cboEncBtn(i)}) {
      box->Items({{"Half cycle (CRS288)"}, {"Full cycle (CRS290"}});
      box->ListIndex(0);
    }
}

void frmCStick::setCaptions() {
  SSTab1.Items({{"Axes"}, {"Buttons/Switches"}});
  SSTab1.ListIndex(AxisPage);
  lblNull.Caption("Null zone");
  lblDamp.Caption("Damp");
  lblInv.Caption("Invert Axis");
  lblAccA.Caption("Accelleration");
  lblType.Caption("Type");
  lblAccBtn.Caption("Acceleration");
  chkFind.ToolTipText("Selects the row of whatever moved last");
  for (Label* told : {&lblKeyA, &lblKeyBtn}) told->Alarm(true);
  for (TextBox* box : {&txtKeyA, &txtKeyBtn}) box->ToolTipText("Press the key that is to be sent");
}

void frmCStick::wireControls() {
  wireAxes();
  wireButtons();
  wireKeys();
  Visible.onChange([this] {
    if (Visible())
      Form_Activate();
    else
      hidden();
  });
  cmdMore.onClick([this] { cmdMoreClick(); });
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

/// A key goes to the page that is in sight: a box for keys comes into sight with the focus, and
/// loses it with its page.
void frmCStick::wireKeys() {
  wireKeyBox(txtKeyA, txtKeyBtn, *this);
  wireKeyBox(txtKeyBtn, txtKeyA, *this);
  KeyPreview.onChange([this] {
    if (KeyPreview()) SSTab1.ListIndex(txtKeyA.hasFocus() ? AxisPage : ButtonPage);
  });
  SSTab1.ListIndex.onChange([this] {
    TextBox& away = SSTab1.ListIndex() == AxisPage ? txtKeyBtn : txtKeyA;
    if (away.hasFocus()) away.loseFocus();
  });
}

/// The catalogues name what can be assigned: to axes, to switches, to push buttons, to encoders.
void frmCStick::loadCatalogues() {
  loadCatalogue(sticks_.context, "anasort.txt", HashRows::Skipped, {&cboAxes});
  loadCatalogue(sticks_.context, "togsort.txt", HashRows::Skipped, {&cboSwitches});
  loadCatalogue(sticks_.context, "butsort.txt", HashRows::Skipped, {&cboButtons});
  loadCatalogue(sticks_.context, "encoder.txt", HashRows::Listed, {&cboCoder, &cboACoder});
}

void frmCStick::Form_Init() {
  Caption(std::to_string(MyID_ + 1) + " setup - 4 axes, 4 buttons/switches");
  Initialised_ = false;
  for (int i = 0; i < Lines; ++i) OnOff(i).Value(assignedCode(OnOff(i)) == 1 ? 1 : 0);
  Initialised_ = true;
  SetAxisCoderState();
  // Selected anew even where it is selected already, so that the selection is taken over.
  optAxes(3).Value(true);
  optAxes(0).Value(true);
  SetBtnCoderState();
  optSwitches(3).Value(true);
  optSwitches(0).Value(true);
}

void frmCStick::Form_Activate() {
  Showing_ = true;
  ChannelID(static_cast<std::int16_t>(selectedAxis()));
  tmrstick_.Enabled(true);
}

/// Keys are for the window alone.
void frmCStick::hidden() {
  Showing_ = false;
  tmrstick_.Enabled(false);
  if (Control* active = ActiveControl()) active->loseFocus();
}

void frmCStick::Form_KeyDown(int keyCode, int shift) {
  const std::int16_t code = keystrokeCode(keyCode, shift);
  const std::string label = KeyLabel(code);
  if (SSTab1.ListIndex() == AxisPage)
    captureAxis(code, label);
  else
    captureLine(code, label);
}

bool frmCStick::Unplugged() const { return poll_->unplugged(); }

void frmCStick::PollStick() {
  if (!Showing_) {
    sticks_.context.store.StickMessage = poll_->tick();
    sticks_.joyst->ProcessStickMessage();
    return;
  }
  display_->beginTick();
  sticks_.context.store.StickMessage = poll_->tick();
  sticks_.joyst->ProcessStickMessage([this] { display_->carriedOut(); });
  display_->endTick();
}

void frmCStick::push(std::int16_t direction, std::int16_t& result) {
  result = DirHistory_.push(direction) ? 1 : 0;
}

/// A stick beyond the number in use is not polled, though its timer runs.
void frmCStick::startPolling(int period_ms) {
  if (!pollTimer_)
    pollTimer_ =
        sticks_.context.eventLoop.createTimer(sticks_.context.failureDomain.guarded([this] {
          if (MyID_ < int16Of(sticks_.context.txtSticks.Text())) PollStick();
        }));
  pollTimer_->start(std::max(1, period_ms));
}

void frmCStick::cmdMoreClick() {
  frmCMore& more = *sticks_.CMore.at(static_cast<std::size_t>(MyID_));
  more.Visible(true);
  sticks_.context.failureDomain.showModal(more);
}

void frmCStick::cmdOKClick() {
  const std::string path = stickFilePath(sticks_.context.store, MyID_);
  CheckFileExists(sticks_.context.op, path, BoxIcon::Critical);
  overwriteStartKeepingBackups(
      path, stickFileText(*this, *sticks_.CMore.at(static_cast<std::size_t>(MyID_))));
  close();
}

void frmCStick::close() {
  if (!Visible()) return;
  Visible(false);
  sticks_.context.op.hideForm(*this);
}

}  // namespace vorlent
