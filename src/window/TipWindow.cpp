#include "window/TipWindow.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "core/FrmTip.h"

namespace vorlent {
namespace {

constexpr int TextWidth_px = 620;
/// Frame, margins and a scroll bar.
constexpr int Beside_px = 90;

}  // namespace

TipWindow::TipWindow(FrmTip& form, const Guard& guard) : FormDialog(form, guard) {
  auto* text = new QLabel(this);
  auto* notShow = new QCheckBox(this);
  auto* exit = new QPushButton(this);
  binder().bind(form.Text1, *text);
  binder().bind(form.chkNotShow, *notShow);
  binder().bind(form.cmdExit, *exit);
  text->setWordWrap(true);
  text->setMinimumWidth(std::min(TextWidth_px, screen()->availableSize().width() - Beside_px));
  text->setContentsMargins(0, 0, 0, 12);
  exit->setDefault(true);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(notShow);
  bottom->addStretch();
  bottom->addWidget(exit);
  fill(text, bottom);
}

}  // namespace vorlent
