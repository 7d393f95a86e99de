#include "window/TestMcpWindow.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "mcp/frmTestMCP.h"

namespace vorlent {
namespace {

constexpr int ButtonColumns = 6;
constexpr int Lamp_px = 5;
constexpr auto WidestReadOut = "-12345.67";

QString colourOf(int backColor) {
  return QColor(backColor & 255, backColor >> 8 & 255, backColor >> 16 & 255).name();
}

/// Under its title, which is what its tool tip says.
QWidget* readOut(TextBox& box, const Binder& binder, QWidget* panel) {
  auto* column = new QWidget(panel);
  auto* stack = new QVBoxLayout(column);
  stack->setContentsMargins(0, 0, 0, 0);
  auto* title = new QLabel(QString::fromStdString(box.ToolTipText()), column);
  auto* edit = new QLineEdit(column);
  binder.bind(box, *edit);
  QFont digits = edit->font();
  digits.setPointSizeF(digits.pointSizeF() * 1.3);
  edit->setFont(digits);
  edit->setMinimumWidth(QFontMetrics(digits).horizontalAdvance(WidestReadOut));
  edit->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  edit->setAlignment(Qt::AlignRight);
  edit->setAccessibleName(title->text());
  title->setAlignment(Qt::AlignHCenter);
  title->setBuddy(edit);
  stack->addWidget(title);
  stack->addWidget(edit);
  // What was typed counts, and the next one is at hand.
  QObject::connect(edit, &QLineEdit::returnPressed, edit, [edit]() noexcept {
    QWidget* next = edit->nextInFocusChain();
    while (next->focusPolicy() == Qt::NoFocus) next = next->nextInFocusChain();
    next->setFocus(Qt::TabFocusReason);
  });
  return column;
}

QPushButton* panelButton(Button& button, const Binder& binder, QWidget* panel) {
  auto* push = new QPushButton(panel);
  push->setAutoDefault(false);
  binder.bind(button, *push);
  push->setMinimumHeight(push->sizeHint().height() * 5 / 4);
  push->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  push->setAccessibleName(QString::fromStdString(button.Caption()));
  follow(button.BackColor, *push, [](QPushButton& b, int colour) {
    b.setStyleSheet(
        colour == Button::ButtonFace
            ? QString()
            : QString("QPushButton { background: %1; color: white; }").arg(colourOf(colour)));
  });
  return push;
}

QWidget* lamp(Shape& shape) {
  auto* frame = new QFrame;
  frame->setObjectName(QString::fromStdString(shape.name()));
  frame->setFixedHeight(Lamp_px);
  follow(shape.FillColor, *frame, [](QFrame& f, int colour) {
    f.setStyleSheet(colour == Shape::White
                        ? QString("background: palette(mid); border-radius: 2px;")
                        : QString("background: %1; border-radius: 2px;").arg(colourOf(colour)));
  });
  return frame;
}

}  // namespace

TestMcpWindow::TestMcpWindow(frmTestMCP& form, const Guard& guard) : FormDialog(form, guard) {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(8);
  for (int i = 0; i < frmTestMCP::ReadOuts; ++i)
    grid->addWidget(readOut(form.Text1(i), binder(), panel), 0, i);
  grid->setRowMinimumHeight(1, 6);
  for (int i = 0; i < frmTestMCP::Buttons; ++i) {
    const int row = 2 + 2 * (i / ButtonColumns);
    grid->addWidget(lamp(form.Shape1(i)), row, i % ButtonColumns);
    grid->addWidget(panelButton(form.Command1(i), binder(), panel), row + 1, i % ButtonColumns);
  }
  grid->addWidget(panelButton(form.Command2, binder(), panel), 3, ButtonColumns, 5, 1);
  auto* cycle = new QLabel(panel);
  binder().bind(form.lblCycle, *cycle);
  grid->addWidget(cycle, 8, 0, 1, ButtonColumns + 1);
  for (int column = 0; column < ButtonColumns; ++column) grid->setColumnStretch(column, 1);
  fill(panel);
}

}  // namespace vorlent
