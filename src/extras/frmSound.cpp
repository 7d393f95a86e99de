#include "extras/frmSound.h"

#include <initializer_list>

#include "base/numbers.h"
#include "base/text.h"
#include "extras/SoundSettings.h"
#include "platform/FailureDomain.h"
#include "platform/Operator.h"
#include "platform/SoundDevice.h"
#include "platform/StatusLine.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

template <std::size_t Count>
void makeBoxes(std::array<std::unique_ptr<TextBox>, Count>& boxes, const std::string& name) {
  for (std::size_t i = 0; i < Count; ++i)
    boxes[i] = std::make_unique<TextBox>(name + "(" + std::to_string(i) + ")");
}

std::string complaintAboutWhole(const std::string& text) {
  try {
    int16Of(text);
    return "";
  } catch (const RuntimeError&) {
    return "A whole number from -32768 to 32767";
  }
}

std::string complaintAboutFactor(const std::string& text) {
  try {
    toSingle(numberOf(text));
    return "";
  } catch (const RuntimeError&) {
    return "A number, such as 0.05";
  }
}

std::int16_t flagOf(const CheckBox& box) { return box.Value() != 0 ? 1 : 0; }

void show(TextBox& box, int value) { box.Text(std::to_string(value)); }

}  // namespace

frmSound::frmSound(const SoundContext& context) : Form("frmSound"), context_(context) {
  makeBoxes(txtRum_, "txtRum");
  makeBoxes(txtBump_, "txtBump");
  Caption("Sound");
  lblVolume.Caption("Volume");
  lblFactor.Caption("+Factor");
  lblThreshold.Caption("Treshold (kts)");
  txtRum(0).ToolTipText("Base volume of tyre rumble");
  txtRum(1).ToolTipText("Factor to multiply with speed");
  txtRum(2).ToolTipText("Max volume");
  txtBump(0).ToolTipText("Base volume of touchdown bump");
  txtBump(1).ToolTipText("Factor to multiply with speed");
  txtBump(2).ToolTipText("Max volume");
  txtTyres().ToolTipText("Volume of type spinup");
  txtStart().ToolTipText("Volume of engine starter");
  chainTabs();
  setRules();
  cboSoundDevice.ListIndex.onChange([this] {
    if (const int row = cboSoundDevice.ListIndex(); row >= 0)
      context_.store.SoundDeviceId = toInt16(row + 1);
  });
  cmdOK.onClick([this] { cmdOKClick(); });
  cmdCancel.onClick([this] { close(); });
}

void frmSound::chainTabs() {
  for (Control* control : std::initializer_list<Control*>{
           &cboSoundDevice, &chkRum, &txtRum(0), &txtRum(1), &txtRum(2), &txtRum(3), &chkBump,
           &txtBump(0), &txtBump(1), &txtBump(2), &chkTyres, &txtTyres(), &chkStart, &txtStart(),
           &cmdOK, &cmdCancel, &lblVolume, &lblFactor, &lblThreshold})
    add(*control);
}

std::vector<TextBox*> frmSound::wholeNumbers() {
  return {&txtRum(0), &txtRum(2), &txtRum(3), &txtBump(0), &txtBump(2), &txtTyres(), &txtStart()};
}

void frmSound::setRules() {
  for (TextBox* box : wholeNumbers()) box->rule(complaintAboutWhole);
  for (TextBox* box : {&txtRum(1), &txtBump(1)}) box->rule(complaintAboutFactor);
}

void frmSound::showModal() {
  fill();
  Visible(true);
  context_.failureDomain.showModal(*this);
}

void frmSound::close() {
  if (!Visible()) return;
  Visible(false);
  context_.op.hideForm(*this);
}

void frmSound::fill() {
  const SoundSettings& settings = context_.settings;
  fillDevices();
  chkRum.Value(settings.rumble.Enabled);
  show(txtRum(0), settings.rumble.Volume);
  txtRum(1).Text(singleText(settings.rumble.Factor));
  show(txtRum(2), settings.rumble.MaxVolume);
  show(txtRum(3), settings.rumble.Threshold);
  chkBump.Value(settings.bump.Enabled);
  show(txtBump(0), settings.bump.Volume);
  txtBump(1).Text(singleText(settings.bump.Factor));
  show(txtBump(2), settings.bump.MaxVolume);
  chkTyres.Value(settings.tyres.Enabled);
  show(txtTyres(), settings.tyres.Volume);
  chkStart.Value(settings.start.Enabled);
  show(txtStart(), settings.start.Volume);
}

/// The one in force is selected, which is no click.
void frmSound::fillDevices() {
  std::vector<ComboBox::Item> items;
  for (std::string& name : context_.device.devices()) items.push_back({std::move(name)});
  const int inForce = context_.store.SoundDeviceId - 1;
  const bool listed = inForce < static_cast<int>(items.size());
  cboSoundDevice.ListIndex.setQuietly(-1);
  cboSoundDevice.Items(std::move(items));
  cboSoundDevice.ListIndex.setQuietly(listed ? inForce : -1);
}

std::string frmSound::complaint() const {
  for (const Control* control : controls())
    if (const auto* box = dynamic_cast<const TextBox*>(control); box && !box->Complaint().empty())
      return box->name() + " holds \"" + box->Text() + "\": " + box->Complaint();
  return "";
}

/// A box that holds no number keeps the form open, and everything as it was.
void frmSound::cmdOKClick() {
  if (const std::string wrong = complaint(); !wrong.empty()) {
    context_.op.messageBox(wrong, BoxIcon::Exclamation, "Sound");
    return;
  }
  keep();
  write();
  context_.host.enableAcftSound(
      flagOf(chkRum) + flagOf(chkBump) + flagOf(chkTyres) + flagOf(chkStart) > 0);
  close();
}

/// What cannot be saved still holds until the exit.
void frmSound::write() {
  try {
    WriteSoundPars(context_.op, context_.store.CockpitPath, context_.settings);
  } catch (const RuntimeError& error) {
    context_.op.messageBox(
        context_.store.CockpitPath + "sound.cfg cannot be written: " + error.description(),
        BoxIcon::Exclamation, "Sound");
  }
}

void frmSound::keep() {
  SoundSettings& settings = context_.settings;
  settings.rumble.Enabled = flagOf(chkRum);
  settings.rumble.Volume = int16Of(txtRum(0).Text());
  settings.rumble.Factor = toSingle(numberOf(txtRum(1).Text()));
  settings.rumble.MaxVolume = int16Of(txtRum(2).Text());
  settings.rumble.Threshold = int16Of(txtRum(3).Text());
  settings.bump.Enabled = flagOf(chkBump);
  settings.bump.Volume = int16Of(txtBump(0).Text());
  settings.bump.Factor = toSingle(numberOf(txtBump(1).Text()));
  settings.bump.MaxVolume = int16Of(txtBump(2).Text());
  settings.tyres.Enabled = flagOf(chkTyres);
  settings.tyres.Volume = int16Of(txtTyres().Text());
  settings.start.Enabled = flagOf(chkStart);
  settings.start.Volume = int16Of(txtStart().Text());
}

}  // namespace vorlent
