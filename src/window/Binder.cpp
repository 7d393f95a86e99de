#include "window/Binder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTextDocument>
#include <QToolButton>
#include <QWheelEvent>

#include "window/Lamp.h"

namespace vorlent {
namespace {

void setSeen(QAction& action, bool seen) { action.setVisible(seen); }

/// A widget that has no place yet comes into sight with its window, and is none of its own before.
void setSeen(QWidget& widget, bool seen) {
  if (!seen || widget.parentWidget() != nullptr) widget.setVisible(seen);
}

template <class Object>
void bindControl(Control& control, Object& object) {
  object.setObjectName(QString::fromStdString(control.name()));
  follow(control.Enabled, object, [](Object& o, bool enabled) { o.setEnabled(enabled); });
  follow(control.Visible, object, [](Object& o, bool visible) { setSeen(o, visible); });
  follow(control.ToolTipText, object,
         [](Object& o, const std::string& text) { o.setToolTip(QString::fromStdString(text)); });
}

QString withAltKey(const std::string& caption, char altKey) {
  QString text = QString::fromStdString(caption);
  if (altKey == Binder::NoKey) return text;
  const auto place = text.indexOf(QLatin1Char(altKey), 0, Qt::CaseInsensitive);
  return place < 0 ? text : text.insert(place, '&');
}

/// For every control with a caption: button, check box, menu entry.
template <class Captioned, class Object>
void bindCaption(Captioned& control, Object& object, char altKey = Binder::NoKey) {
  follow(control.Caption, object, [altKey](Object& o, const std::string& caption) {
    o.setText(withAltKey(caption, altKey));
  });
}

/// Red that is read on the ground of the platform's look, light or dark.
QColor alarmColour(const QWidget& widget) {
  constexpr int Middle = 128;
  const bool dark = widget.palette().color(QPalette::Window).lightness() < Middle;
  return dark ? QColor(0xff, 0x7b, 0x72) : QColor(0xc6, 0x28, 0x28);
}

constexpr auto RedFrame =
    "QLineEdit { border: 2px solid #d32f2f; border-radius: 2px; padding: 1px; }";

/// The frame is not as thick as the style's own in every style, the box stays as high.
void showFrame(QLineEdit& edit, bool wrong) {
  if (wrong != edit.styleSheet().isEmpty()) return;
  if (wrong) edit.setFixedHeight(edit.sizeHint().height());
  edit.setStyleSheet(wrong ? RedFrame : "");
  if (wrong) return;
  edit.setMinimumHeight(0);
  edit.setMaximumHeight(QWIDGETSIZE_MAX);
}

/// What is wrong stands above what the box is for.
void bindComplaint(TextBox& box, QLineEdit& edit) {
  const auto show = [&box](QLineEdit& e, const std::string&) {
    const std::string& complaint = box.Complaint();
    const std::string& purpose = box.ToolTipText();
    const std::string gap = complaint.empty() || purpose.empty() ? "" : "\n";
    e.setToolTip(QString::fromStdString(complaint + gap + purpose));
    showFrame(e, !complaint.empty());
  };
  follow(box.Complaint, edit, show);
  follow(box.ToolTipText, edit, show);
}

/// On a colour of its own a text is black, whatever the platform's look.
void showBackColor(QLineEdit& edit, int colour) {
  QPalette colours;
  if (colour != TextBox::WindowBackground) {
    colours.setColor(QPalette::Base, colourOf(colour));
    colours.setColor(QPalette::Text, Qt::black);
  }
  edit.setPalette(colours);
}

void setUpToRead(QTableWidget& widget) {
  widget.setFocusPolicy(Qt::NoFocus);
  widget.setSelectionMode(QAbstractItemView::NoSelection);
  widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget.setShowGrid(false);
  widget.setStyleSheet("QTableView::item { padding: 0 5px; }");
  widget.verticalHeader()->hide();
  widget.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  widget.horizontalHeader()->setHighlightSections(false);
  widget.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  widget.horizontalHeader()->setStretchLastSection(true);
  widget.verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void showCell(QTableWidget& widget, int row, int column, const QString& text) {
  QTableWidgetItem* item = widget.item(row, column);
  if (!item) widget.setItem(row, column, item = new QTableWidgetItem);
  item->setText(text);
}

bool movesToAnotherControl(Qt::FocusReason reason) {
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

/// Goes with the widget that it watches.
class FocusWatch : public QObject {
 public:
  FocusWatch(Control& control, QObject& watched, Guard guard)
      : QObject(&watched), control_(control), guard_(std::move(guard)) {
    watched.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) noexcept override {
    if (event->type() == QEvent::FocusIn && !control_.hasFocus())
      guard_(Deed::Focus, control_, "", [this] { control_.getFocus(); });
    if (event->type() == QEvent::FocusOut && control_.hasFocus() &&
        movesToAnotherControl(static_cast<QFocusEvent*>(event)->reason()))
      guard_(Deed::Leave, control_, "", [this] { control_.loseFocus(); });
    return false;
  }

 private:
  Control& control_;
  Guard guard_;
};

/// The wheel turns a list that has the focus. Over any other it scrolls what is behind it: a list
/// that the pointer meets on its way must not change. Goes with the widget that it watches.
class WheelWatch : public QObject {
 public:
  explicit WheelWatch(QWidget& watched) : QObject(&watched), watched_(watched) {
    watched.installEventFilter(this);
    watched.setFocusPolicy(Qt::StrongFocus);
  }

  bool eventFilter(QObject*, QEvent* event) noexcept override {
    if (event->type() != QEvent::Wheel || watched_.hasFocus()) return false;
    event->ignore();
    return true;
  }

 private:
  QWidget& watched_;
};

/// Ends in an ellipsis where its text goes on; the tool tip has all of it.
class StatusText : public QLabel {
 protected:
  void paintEvent(QPaintEvent*) noexcept override {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect();
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
  }
};

/// Texts come from the network, too: neither marked-up nor of several lines, nor so long that they
/// widen the window.
QLabel* statusPanel(const StatusBar& bar, int panel) {
  auto* label = new StatusText;
  label->setObjectName(QString::fromStdString(bar.name()) + QString(".%1").arg(panel));
  label->setTextFormat(Qt::PlainText);
  label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  label->setContentsMargins(4, 1, 4, 1);
  return label;
}

QString oneLine(const std::string& text) {
  return QString::fromStdString(text).replace('\r', ' ').replace('\n', ' ');
}

}  // namespace

void Binder::bind(TextBox& box, QLineEdit& edit) const {
  bindControl(box, edit);
  const auto showText = [](QLineEdit& e, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (e.text() != shown) e.setText(shown);
  };
  follow(box.Text, edit, showText);
  bindComplaint(box, edit);
  follow(box.Locked, edit, [](QLineEdit& e, bool locked) { e.setReadOnly(locked); });
  follow(box.BackColor, edit, showBackColor);
  QObject::connect(&edit, &QLineEdit::textEdited, &edit,
                   [&box, &edit, showText, guard = guard_](const QString& text) noexcept {
                     guard(Deed::Text, box, text.toStdString(),
                           [&] { box.Text(text.toStdString()); });
                     showText(edit, box.Text());
                   });
  new FocusWatch(box, edit, guard_);
}

void Binder::bind(TextBox& box, QLabel& label) const {
  bindControl(box, label);
  label.setTextFormat(Qt::PlainText);
  follow(box.Text, label,
         [](QLabel& l, const std::string& text) { l.setText(QString::fromStdString(text)); });
}

void Binder::bind(Label& text, QLabel& label) const {
  bindControl(text, label);
  label.setTextFormat(Qt::PlainText);
  follow(text.Caption, label,
         [](QLabel& l, const std::string& caption) { l.setText(oneLine(caption)); });
  follow(text.Alarm, label, [](QLabel& l, bool alarm) {
    QPalette colours;
    if (alarm) colours.setColor(QPalette::WindowText, alarmColour(l));
    l.setPalette(colours);
  });
}

void Binder::bind(Table& table, QTableWidget& widget) const {
  bindControl(table, widget);
  QStringList titles;
  for (const std::string& column : table.columns()) titles << QString::fromStdString(column);
  widget.setColumnCount(static_cast<int>(titles.size()));
  widget.setHorizontalHeaderLabels(titles);
  setUpToRead(widget);
  follow(table.Rows, widget, [](QTableWidget& w, const std::vector<Table::Row>& rows) {
    w.setRowCount(static_cast<int>(rows.size()));
    int row = 0;
    for (const Table::Row& cells : rows) {
      int column = 0;
      for (const std::string& cell : cells) showCell(w, row, column++, oneLine(cell));
      ++row;
    }
  });
}

void Binder::bind(CheckBox& box, QCheckBox& widget, char altKey) const {
  bindControl(box, widget);
  bindCaption(box, widget, altKey);
  const auto showValue = [](QCheckBox& w, int value) { w.setChecked(value != 0); };
  follow(box.Value, widget, showValue);
  QObject::connect(&widget, &QCheckBox::clicked, &widget,
                   [&box, &widget, showValue, guard = guard_](bool checked) noexcept {
                     guard(Deed::Value, box, checked ? "1" : "0",
                           [&] { box.Value(checked ? 1 : 0); });
                     showValue(widget, box.Value());
                   });
}

void Binder::bind(ComboBox& box, QComboBox& widget) const {
  bindControl(box, widget);
  new WheelWatch(widget);
  follow(box.Items, widget, [&box](QComboBox& w, const std::vector<ComboBox::Item>& items) {
    w.clear();
    for (const auto& item : items) w.addItem(QString::fromStdString(item.text));
    w.setCurrentIndex(box.ListIndex());
  });
  const auto showIndex = [](QComboBox& w, int index) { w.setCurrentIndex(index); };
  follow(box.ListIndex, widget, showIndex);
  QObject::connect(&widget, &QComboBox::activated, &widget,
                   [&box, &widget, showIndex, guard = guard_](int index) noexcept {
                     guard(Deed::Choose, box, std::to_string(index), [&] { box.ListIndex(index); });
                     showIndex(widget, box.ListIndex());
                   });
}

void Binder::bind(OptionButton& option, QRadioButton& widget, char altKey) const {
  bindControl(option, widget);
  bindCaption(option, widget, altKey);
  // A group of Qt's would keep one of them checked while the form changes over.
  const auto showValue = [](QRadioButton& w, bool value) {
    w.setAutoExclusive(false);
    w.setChecked(value);
    w.setAutoExclusive(true);
  };
  follow(option.Value, widget, showValue);
  QObject::connect(&widget, &QRadioButton::clicked, &widget,
                   [&option, &widget, showValue, guard = guard_]() noexcept {
                     guard(Deed::Value, option, "1", [&] { option.Value(true); });
                     showValue(widget, option.Value());
                   });
}

void Binder::bind(TabStrip& pages, QTabWidget& widget) const {
  bindControl(pages, widget);
  for (int i = 0; i < widget.count(); ++i)
    widget.setTabText(i,
                      QString::fromStdString(pages.Items().at(static_cast<std::size_t>(i)).text));
  follow(pages.ListIndex, widget, [](QTabWidget& w, int index) { w.setCurrentIndex(index); });
  QObject::connect(
      &widget, &QTabWidget::currentChanged, &widget, [&pages, guard = guard_](int index) noexcept {
        guard(Deed::Choose, pages, std::to_string(index), [&] { pages.ListIndex(index); });
      });
}

void Binder::bind(Bar& bar, QProgressBar& widget) const {
  bindControl(bar, widget);
  widget.setRange(0, bar.Max);
  follow(bar.Value, widget, [](QProgressBar& w, int value) { w.setValue(value); });
}

void Binder::bind(Shape& shape, Lamp& widget) const {
  bindControl(shape, widget);
  follow(shape.FillColor, widget,
         [](Lamp& lamp, int colour) { lamp.show(colourOf(colour), colour != Shape::White); });
}

void Binder::bind(Picture& picture, QWidget& widget) const {
  bindControl(picture, widget);
  follow(picture.Description, widget, [](QWidget& w, const std::string& text) {
    w.setAccessibleDescription(QString::fromStdString(text));
  });
  follow(picture.Paintings, widget, [](QWidget& w, unsigned) { w.update(); });
  new FocusWatch(picture, widget, guard_);
}

void Binder::bind(Button& button, QPushButton& widget, char altKey) const {
  bindControl(button, widget);
  bindCaption(button, widget, altKey);
  QObject::connect(&widget, &QPushButton::clicked, &widget, [&button, guard = guard_]() noexcept {
    guard(Deed::Press, button, "", [&] { button.press(); });
  });
}

void Binder::bind(Button& button, QToolButton& widget) const {
  bindControl(button, widget);
  bindCaption(button, widget);
  QObject::connect(&widget, &QToolButton::clicked, &widget, [&button, guard = guard_]() noexcept {
    guard(Deed::Press, button, "", [&] { button.press(); });
  });
}

void Binder::bind(MenuItem& entry, QAction& action) const {
  bindControl(entry, action);
  bindCaption(entry, action);
  const auto showChecked = [](QAction& a, bool checked) { a.setChecked(checked); };
  follow(entry.Checked, action, showChecked);
  QObject::connect(&action, &QAction::triggered, &action,
                   [&entry, &action, showChecked, guard = guard_]() noexcept {
                     guard(Deed::Press, entry, "", [&] { entry.press(); });
                     showChecked(action, entry.Checked());
                   });
}

void Binder::bind(StatusBar& bar, QStatusBar& widget) const {
  bindControl(bar, widget);
  for (int panel = 1; panel <= bar.panelCount(); ++panel) {
    QLabel* label = statusPanel(bar, panel);
    widget.addWidget(label, panel == 1 ? 3 : 2);
    const auto refresh = [&bar, panel, target = QPointer<QLabel>(label)](int changed) {
      if (!target || changed != panel) return;
      target->setText(oneLine(bar.panelText(panel)));
      target->setToolTip(Qt::convertFromPlainText(target->text(), Qt::WhiteSpaceNormal));
    };
    refresh(panel);
    bar.addView(refresh);
  }
}

}  // namespace vorlent
