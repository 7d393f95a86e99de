#pragma once

#include <string>

#include "base/controls.h"

namespace vorlent {

struct Server;

/// The window with advice. Where it offers not to be shown again, closing it takes the answer.
class FrmTip : public Form {
 public:
  explicit FrmTip(Server& server);

  void SetTipText(const std::string& text) { Text1.Text(text); }
  /// Comes back when the operator has closed it, or at once where nobody can.
  void showModal(const std::string& caption, const std::string& text, bool offerNotToShow);
  void close() override;

  TextBox Text1{"Text1"};
  CheckBox chkNotShow{"chkNotShow", "Do not show this window again"};
  Button cmdExit{"cmdExit", "E&xit"};

 private:
  Server& server_;
};

}  // namespace vorlent
