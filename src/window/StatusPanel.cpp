#include "window/StatusPanel.h"

#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include "core/frmStatus.h"

namespace vorlent {
namespace {

/// As on the annunciator of the aircraft: engaged modes green, armed ones white, control wheel
/// steering amber, on a dark ground.
constexpr auto Dark = "QFrame#annunciators { background: #10161c; border-radius: 3px; } ";
constexpr auto Heading = "color: #8c9aa8;";
constexpr auto Engaged = "color: #3ddc5b; font-weight: bold;";
constexpr auto Armed = "color: #ffffff;";
constexpr auto Cws = "color: #ffb74d;";

struct Annunciator {
  Label frmStatus::*label;
  int row, column;
  const char* look;
};

constexpr Annunciator Annunciators[] = {
    {&frmStatus::lblATEngaged, 1, 0, Engaged},    {&frmStatus::lblRollEngaged, 1, 1, Engaged},
    {&frmStatus::lblPitchEngaged, 1, 2, Engaged}, {&frmStatus::lblAutopilot, 1, 3, Engaged},
    {&frmStatus::lblRollArmed, 2, 1, Armed},      {&frmStatus::lblPitchArmed, 2, 2, Armed},
    {&frmStatus::lblCwsRoll, 3, 1, Cws},          {&frmStatus::lblCwsPitch, 3, 2, Cws},
};
constexpr const char* Columns[] = {"A/T", "Roll", "Pitch", "Autopilot"};
constexpr auto WidestMode = "VNAV_SPD__";

QLabel* styled(const QString& text, const char* look) {
  auto* label = new QLabel(text);
  label->setStyleSheet(look);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

void row(QFormLayout& rows, const QString& title, Label& label, const Binder& binder) {
  auto* text = new QLabel;
  binder.bind(label, *text);
  text->setMinimumWidth(text->fontMetrics().horizontalAdvance("1 on, unplugged: 1 2 3"));
  rows.addRow(title, text);
}

}  // namespace

StatusPanel::StatusPanel(frmStatus& form, const Binder& binder) {
  setObjectName(QString::fromStdString(form.name()));
  auto* groups = new QHBoxLayout(this);
  groups->setContentsMargins(0, 0, 0, 0);
  groups->addWidget(linkGroup(form, binder));
  groups->addWidget(annunciatorGroup(form, binder));
  groups->addWidget(sessionGroup(form, binder), 1);
}

QWidget* StatusPanel::linkGroup(frmStatus& form, const Binder& binder) {
  auto* group = new QGroupBox("Link", this);
  auto* rows = new QFormLayout(group);
  row(*rows, "Simulator", form.lblSimulator, binder);
  row(*rows, "Data", form.lblPoll, binder);
  row(*rows, "Sticks", form.lblSticks, binder);
  return group;
}

QWidget* StatusPanel::annunciatorGroup(frmStatus& form, const Binder& binder) {
  auto* group = new QGroupBox("Autoflight", this);
  auto* dark = new QFrame;
  dark->setObjectName("annunciators");
  dark->setStyleSheet(Dark);
  auto* grid = new QGridLayout(dark);
  for (int column = 0; column < 4; ++column) {
    grid->addWidget(styled(Columns[column], Heading), 0, column);
    grid->setColumnMinimumWidth(column, fontMetrics().horizontalAdvance(WidestMode));
  }
  for (const Annunciator& a : Annunciators) {
    QLabel* label = styled({}, a.look);
    binder.bind(form.*a.label, *label);
    grid->addWidget(label, a.row, a.column);
  }
  (new QVBoxLayout(group))->addWidget(dark);
  return group;
}

QWidget* StatusPanel::sessionGroup(frmStatus& form, const Binder& binder) {
  auto* group = new QGroupBox("Sessions", this);
  auto* table = new QTableWidget;
  binder.bind(form.lstSessions, *table);
  (new QVBoxLayout(group))->addWidget(table);
  return group;
}

}  // namespace vorlent
