#pragma once

#include <functional>
#include <string>

#include "cockpits/ModalForm.h"

namespace vorlent {

/// Exports an aircraft's folder as a zip file, and imports one as a new aircraft. The work goes on
/// after the form has been closed; how it ended is told on the status line, a fault in a box.
class frmZip : public ModalForm {
 public:
  explicit frmZip(const CockpitContext& context);

  void showExport(const std::string& cockpit);
  void showImport();
  /// `handler` runs when a new aircraft is there.
  void onImported(std::function<void()> handler) { imported_ = std::move(handler); }

  TextBox txtFile{"txtFile"};
  Button cmdBrowse{"cmdBrowse", "Browse..."};
  /// Of the new aircraft.
  TextBox txtName{"txtName"};
  Button cmdOK{"cmdOK", "OK"};
  Button cmdCancel{"cmdCancel", "Cancel"};

 private:
  void Form_Load() override;
  void cmdBrowseClick();
  void suggestName();
  void cmdOKClick();
  void exportTo(const std::string& zip);
  void importFrom(const std::string& zip);
  void unpack(const std::string& zip, const std::string& name);
  /// `fault` is what went wrong so far.
  void take(const std::string& name, std::string fault);
  std::string unpacked() const;

  std::string exported_;  ///< the cockpit to export; empty for an import
  std::function<void()> imported_;
};

}  // namespace vorlent
