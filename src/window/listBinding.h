#pragma once

#include "window/Binder.h"

class QListWidget;

namespace vorlent {

/// Shows all entries of a box at once. One is chosen by Enter or a double click.
void bindList(ComboBox& box, QListWidget& widget, const Guard& guard);

}  // namespace vorlent
