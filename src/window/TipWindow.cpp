#include "window/TipWindow.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/FrmTip.h"

namespace vorlent {
namespace {

constexpr int TextWidth_px = 620;

}  // namespace

TipWindow::TipWindow(FrmTip& form, const Guard& guard) : form_(form), guard_(guard) {
  setObjectName(QString::fromStdString(form.name()));
  follow(form.Caption, *this, [](TipWindow& window, const std::string& caption) {
    window.setWindowTitle(QString::fromStdString(caption));
  });
  auto* text = new QLabel(this);
  auto* notShow = new QCheckBox(this);
  auto* exit = new QPushButton(this);
  const Binder binder(guard);
  binder.bind(form.Text1, *text);
  binder.bind(form.chkNotShow, *notShow);
  binder.bind(form.cmdExit, *exit);
  text->setWordWrap(true);
  text->setMinimumWidth(TextWidth_px);
  exit->setDefault(true);

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(notShow);
  bottom->addStretch();
  bottom->addWidget(exit);
  auto* all = new QVBoxLayout(this);
  all->addWidget(text);
  all->addSpacing(12);
  all->addLayout(bottom);
  all->setSizeConstraint(QLayout::SetFixedSize);
}

void TipWindow::reject() noexcept { guard_.close(form_); }

}  // namespace vorlent
