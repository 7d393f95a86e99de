#include "window/listBinding.h"

#include <QListWidget>

namespace vorlent {

void bindList(ComboBox& box, QListWidget& widget, const Guard& guard) {
  widget.setObjectName(QString::fromStdString(box.name()));
  follow(box.Items, widget, [](QListWidget& w, const std::vector<ComboBox::Item>& items) {
    w.clear();
    for (const auto& item : items) w.addItem(QString::fromStdString(item.text));
    if (w.count() > 0) w.setCurrentRow(0);
  });
  QObject::connect(&widget, &QListWidget::itemActivated, &widget,
                   [&box, &widget, guard](const QListWidgetItem* item) noexcept {
                     const int row = widget.row(item);
                     guard(Deed::Choose, box, std::to_string(row), [&] { box.ListIndex(row); });
                   });
}

}  // namespace vorlent
