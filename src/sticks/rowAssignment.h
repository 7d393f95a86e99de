#pragma once

#include <optional>
#include <string>

#include "base/controls.h"

/// What the pages of a stick's window have in common: a row's Tag is the code that is assigned.
namespace vorlent {

/// The code of a Tag; nothing for one that is no number.
std::optional<double> assignedCode(const Control& row);

/// The Tag is the code of a keystroke, 1000 or above.
bool isKeystroke(const Control& row);

/// The name of the key of a keystroke, empty for any other code.
std::string keyLabelOf(const Control& row);

/// Selects the entry with the row's code without assigning it; selects none where there is none.
void showAssigned(ComboBox& box, const Control& row);

/// Assigns the selected entry, and nothing while none is selected.
void takeAssigned(const ComboBox& box, Control& row);

/// Assigns the first entry, and nothing of an empty catalogue; the box shows what it showed.
void assignFirst(const ComboBox& box, Control& row);

/// Selects and assigns the first entry, and nothing of an empty catalogue.
void takeFirst(ComboBox& box, Control& row);

/// Keeps the text of a box a number of digits: anything else becomes `whenEmpty`.
void keepNumber(TextBox& box, const std::string& whenEmpty);

/// Makes an option the one of its group that is selected.
template <class Options>
void selectOnly(Options& options, int index) {
  for (int i = 0; i < options.count(); ++i)
    if (i != index) options(i).Value(false);
}

/// Index of the selected option, 0 while none is.
template <class Options>
int selectedOf(const Options& options) {
  for (int i = 0; i < options.count(); ++i)
    if (options(i).Value()) return i;
  return 0;
}

/// A box into which a key is pressed: red, and the keys come to the form first, while it has the
/// focus. It has the colour of `twin` otherwise.
void wireKeyBox(TextBox& box, const TextBox& twin, Form& form);

}  // namespace vorlent
