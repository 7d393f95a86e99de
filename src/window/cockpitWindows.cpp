#include "window/cockpitWindows.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "cockpits/frmDir.h"
#include "cockpits/frmNew.h"
#include "cockpits/frmSave.h"
#include "cockpits/frmZip.h"
#include "window/listBinding.h"

namespace vorlent {
namespace {

/// Of a path, in letters.
constexpr int PathWidth = 56;
constexpr int NameWidth = 36;

/// Enter opens the folder; it is not for the window's OK.
class FolderList : public QListWidget {
 protected:
  void keyPressEvent(QKeyEvent* event) noexcept override {
    QListWidget::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
  }
};

/// Rows of a form with its labels, and OK and Cancel below them.
class Rows {
 public:
  Rows(FormDialog& window, const Guard& guard)
      : binder_(guard), window_(window), all_(new QWidget(&window)), rows_(new QFormLayout(all_)) {
    rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows_->setContentsMargins(0, 0, 0, 8);
  }

  void row(const QString& label, TextBox& box, int letters) {
    labelled(label, box, *edit(box, letters));
  }
  void row(const QString& label, ComboBox& box) {
    auto* list = new QComboBox(all_);
    binder_.bind(box, *list);
    labelled(label, box, *list);
  }
  /// A path, which can also be pointed at.
  void row(const QString& label, TextBox& box, Button& browse, char altKey) {
    auto* pointing = new QPushButton(all_);
    binder_.bind(browse, *pointing, altKey);
    auto* both = new QHBoxLayout;
    QLineEdit* path = edit(box, PathWidth);
    both->addWidget(path, 1);
    both->addWidget(pointing);
    rows_->addRow(buddy(label, box, *path), both);
  }
  void row(const QString& label, ComboBox& box, QListWidget& list) { labelled(label, box, list); }

  void buttons(Button& ok, Button& cancel) { window_.fill(all_, ok, cancel); }

 private:
  QLineEdit* edit(TextBox& box, int letters) {
    auto* edit = new QLineEdit(all_);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * letters);
    binder_.bind(box, *edit);
    return edit;
  }
  QLabel* buddy(const QString& label, Control& control, QWidget& widget) {
    auto* text = new QLabel(label, all_);
    text->setBuddy(&widget);
    follow(control.Visible, *text, [](QLabel& l, bool visible) { l.setVisible(visible); });
    return text;
  }
  void labelled(const QString& label, Control& control, QWidget& widget) {
    rows_->addRow(buddy(label, control, widget), &widget);
  }

  Binder binder_;
  FormDialog& window_;
  QWidget* all_;
  QFormLayout* rows_;
};

}  // namespace

std::unique_ptr<FormDialog> newWindow(frmNew& form, const Guard& guard) {
  auto window = std::make_unique<FormDialog>(form, guard);
  Rows rows(*window, guard);
  rows.row("Te&mplate", form.cboDir);
  rows.row("&Name of the new aircraft", form.Text1, NameWidth);
  rows.buttons(form.cmdOK, form.cmdCancel);
  return window;
}

std::unique_ptr<FormDialog> saveWindow(frmSave& form, const Guard& guard) {
  auto window = std::make_unique<FormDialog>(form, guard);
  Rows rows(*window, guard);
  rows.row("&New name", form.Text1, NameWidth);
  rows.buttons(form.cmdOK, form.cmdCancel);
  return window;
}

std::unique_ptr<FormDialog> importWindow(frmDir& form, const Guard& guard) {
  auto window = std::make_unique<FormDialog>(form, guard);
  Rows rows(*window, guard);
  rows.row("&Drive", form.drvDrive1);
  rows.row("&Folder of the old Vorlent", form.txtPath, form.cmdBrowse, 'B');
  auto* list = new FolderList;
  bindList(form.dirList1, *list, guard);
  rows.row("&Sub-folders", form.dirList1, *list);
  rows.buttons(form.cmdOK, form.cmdCancel);
  return window;
}

std::unique_ptr<FormDialog> zipWindow(frmZip& form, const Guard& guard) {
  auto window = std::make_unique<FormDialog>(form, guard);
  Rows rows(*window, guard);
  rows.row("&Zip file", form.txtFile, form.cmdBrowse, 'B');
  rows.row("&Name of the new aircraft", form.txtName, NameWidth);
  rows.buttons(form.cmdOK, form.cmdCancel);
  return window;
}

}  // namespace vorlent
