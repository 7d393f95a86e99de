#include "sticks/frmCStick.h"

#include <algorithm>
#include <string>

#include "base/backups.h"
#include "base/controls.h"
#include "base/files.h"
#include "base/text.h"
#include "platform/EventLoop.h"
#include "platform/FailureDomain.h"
#include "platform/Operator.h"
#include "platform/StatusLine.h"
#include "platform/fileChecks.h"
#include "sticks/StickPoll.h"
#include "sticks/Sticks.h"
#include "sticks/catalogues.h"
#include "sticks/clsJoyst.h"
#include "sticks/frmCMore.h"
#include "sticks/stickFile.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// Keeps the text of a box a number: anything else becomes `whenEmpty`.
void keepNumber(TextBox& box, const std::string& whenEmpty) {
  box.Text.onChange([&box, whenEmpty] {
    const std::string typed = box.Text();
    const std::string number = typed.empty() ? typed : FilterNumber(typed, DotMode::OneDot, false);
    box.Text.setQuietly(number.empty() ? whenEmpty : number);
  });
}

bool tagIs(const Control& control, double number) { return numeric(control.Tag()) == number; }

}  // namespace

frmCStick::frmCStick(Sticks& sticks, std::int16_t stick)
    : Form("frmCStick(" + std::to_string(stick) + ")"),
      sticks_(sticks),
      MyID_(stick),
      poll_(std::make_unique<StickPoll>(sticks, *this)) {
  addControls();
  setDefaults();
  wireControls();
  loadCatalogues();
}

frmCStick::~frmCStick() = default;

void frmCStick::MyID(std::int16_t stick) { MyID_ = stick; }

void frmCStick::addControls() {
  for (int i = 0; i < Axes; ++i)
    for (Control* control :
         std::initializer_list<Control*>{&optAxes(i), &txtValue(i), &txtNull(i), &chkDamp(i),
                                         &chkInvert(i), &txtAccA(i), &shpAxis(i)})
      add(*control);
  for (int i = 0; i < Lines; ++i)
    for (Control* control :
         std::initializer_list<Control*>{&optSwitches(i), &OnOff(i), &txtAccBtn(i), &shpOnOff(i)})
      add(*control);
  for (Control* control :
       std::initializer_list<Control*>{&cboAxes, &cboACoder, &cboSwitches, &cboButtons, &cboCoder,
                                       &cmdMore, &cmdOK, &cmdCancel})
    add(*control);
}

void frmCStick::setDefaults() {
  for (int i = 0; i < Axes; ++i) {
    optAxes(i).Caption(axisLabel(i));
    optAxes(i).Tag("0");
    txtNull(i).Text("0");
    chkDamp(i).Tag("0");
    txtAccA(i).Text("1");
    txtValue(i).Text("0");
  }
  for (int i = 0; i < Lines; ++i) {
    optSwitches(i).Caption("Button " + std::to_string(i + 1));
    optSwitches(i).Tag("0");
    OnOff(i).Tag("0");
    txtAccBtn(i).Text("1");
  }
}

void frmCStick::wireControls() {
  for (int i = 0; i < Axes; ++i) {
    keepNumber(txtNull(i), "0");
    keepNumber(txtAccA(i), "1");
    optAxes(i).Value.onChange([this, i] {
      if (optAxes(i).Value()) selectAxis(i);
    });
  }
  for (int i = 0; i < Lines; ++i) keepNumber(txtAccBtn(i), "1");
  Visible.onChange([this] {
    if (Visible())
      Form_Activate();
    else
      Showing_ = false;
  });
  cmdMore.onClick([this] {
    frmCMore& more = *sticks_.CMore.at(static_cast<std::size_t>(MyID_));
    more.Visible(true);
    sticks_.context.failureDomain.showModal(more);
  });
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

/// The catalogues name what can be assigned: to axes, to switches, to push buttons, to encoders.
void frmCStick::loadCatalogues() {
  loadCatalogue(sticks_.context, "anasort.txt", HashRows::Skipped, {&cboAxes});
  loadCatalogue(sticks_.context, "togsort.txt", HashRows::Skipped, {&cboSwitches});
  loadCatalogue(sticks_.context, "butsort.txt", HashRows::Skipped, {&cboButtons});
  loadCatalogue(sticks_.context, "encoder.txt", HashRows::Listed, {&cboCoder, &cboACoder});
}

void frmCStick::selectAxis(int axis) {
  for (int i = 0; i < Axes; ++i)
    if (i != axis) optAxes(i).Value(false);
  ChannelID(static_cast<std::int16_t>(axis));
}

void frmCStick::Form_Init() {
  Caption(std::to_string(MyID_ + 1) + " setup - 4 axes, 4 buttons/switches");
  for (int i = 0; i < Lines; ++i) OnOff(i).Value(tagIs(OnOff(i), 1) ? 1 : 0);
  Initialised_ = true;
  SetAxisCoderState();
  // Selected anew even where it is selected already, so that the selection is taken over.
  optAxes(3).Value(true);
  optAxes(0).Value(true);
  SetBtnCoderState();
}

void frmCStick::Form_Activate() {
  Showing_ = true;
  for (int i = 0; i < Axes; ++i)
    if (optAxes(i).Value()) ChannelID(static_cast<std::int16_t>(i));
}

void frmCStick::SetAxisCoderState() { AxisMode_ = tagIs(chkDamp(3), 1) ? 1 : 0; }

void frmCStick::SetBtnCoderState() {
  if (tagIs(OnOff(3), 2))
    BtnMode_ = 2;
  else
    BtnMode_ = switchCount() < 1 ? 1 : 0;
  cmdMore.Enabled(BtnMode_ == 1);
}

int frmCStick::switchCount() const {
  int sum = 0;
  for (int i = 0; i < Lines; ++i) sum += OnOff(i).Value();
  return sum;
}

bool frmCStick::Unplugged() const { return poll_->unplugged(); }

void frmCStick::PollStick() {
  sticks_.context.store.StickMessage = poll_->tick();
  sticks_.joyst->ProcessStickMessage();
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
