#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/controls.h"
#include "extras/SoundContext.h"

namespace vorlent {

/// The settings of the aircraft's sounds. OK keeps what the controls hold and writes sound.cfg;
/// Cancel and the close box drop it. The sound device is chosen at once by a click.
class frmSound : public Form {
 public:
  explicit frmSound(const SoundContext& context);

  /// Fills the controls and comes back when the operator has closed the form, or at once where
  /// nobody can.
  void showModal();
  void close() override;

  TextBox& txtRum(std::size_t index) { return *txtRum_.at(index); }
  TextBox& txtBump(std::size_t index) { return *txtBump_.at(index); }
  TextBox& txtTyres() { return txtTyres_; }
  TextBox& txtStart() { return txtStart_; }

  ComboBox cboSoundDevice{"cboSoundDevice"};
  CheckBox chkRum{"chkRum", "Ground Rumble"};
  CheckBox chkBump{"chkBump", "Touchdown Bump"};
  CheckBox chkTyres{"chkTyres", "Wheel Spinup"};
  CheckBox chkStart{"chkStart", "Starter Sound"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};
  Label lblVolume{"lblVolume"};
  Label lblFactor{"lblFactor"};
  Label lblThreshold{"lblThreshold"};

 private:
  void chainTabs();
  void setRules();
  void fill();
  void fillDevices();
  void cmdOKClick();
  void keep();
  void write();
  /// What is wrong with the first box that holds no number; empty when none does.
  std::string complaint() const;
  std::vector<TextBox*> wholeNumbers();

  SoundContext context_;
  std::array<std::unique_ptr<TextBox>, 4> txtRum_;
  std::array<std::unique_ptr<TextBox>, 3> txtBump_;
  TextBox txtTyres_{"txtTyres(0)"};
  TextBox txtStart_{"txtStart(0)"};
};

}  // namespace vorlent
