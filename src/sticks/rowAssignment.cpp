#include "sticks/rowAssignment.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/text.h"
#include "commands/Keystrokes.h"

namespace vorlent {
namespace {

constexpr int LightRed = 0xC0C0FF;

}  // namespace

std::optional<double> assignedCode(const Control& row) { return numeric(row.Tag()); }

bool isKeystroke(const Control& row) { return assignedCode(row).value_or(0) >= FirstKeystroke; }

/// A number from a file may be no key's.
std::string keyLabelOf(const Control& row) {
  if (!isKeystroke(row)) return {};
  try {
    return KeyLabel(int16Of(row.Tag()));
  } catch (const RuntimeError&) {
    return {};
  }
}

void showAssigned(ComboBox& box, const Control& row) {
  const auto code = assignedCode(row);
  const auto& items = box.Items();
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&code](const auto& item) { return code == item.data; });
  box.ListIndex.setQuietly(found == items.end() ? -1 : static_cast<int>(found - items.begin()));
}

void takeAssigned(const ComboBox& box, Control& row) {
  const int index = box.ListIndex();
  if (index < 0 || static_cast<std::size_t>(index) >= box.Items().size()) return;
  row.Tag(std::to_string(box.Items()[static_cast<std::size_t>(index)].data));
}

void assignFirst(const ComboBox& box, Control& row) {
  if (!box.Items().empty()) row.Tag(std::to_string(box.Items().front().data));
}

void takeFirst(ComboBox& box, Control& row) {
  if (!box.Items().empty()) box.ListIndex.setQuietly(0);
  assignFirst(box, row);
}

void keepNumber(TextBox& box, const std::string& whenEmpty) {
  box.Text.onChange([&box, whenEmpty] {
    const std::string typed = box.Text();
    const std::string number = typed.empty() ? typed : FilterNumber(typed, DotMode::NoDot, false);
    box.Text.setQuietly(number.empty() ? whenEmpty : number);
  });
}

void wireKeyBox(TextBox& box, const TextBox& twin, Form& form) {
  box.Locked(true);
  box.onGotFocus([&box, &form] {
    form.KeyPreview(true);
    box.BackColor(LightRed);
  });
  box.onLostFocus([&box, &twin, &form] {
    form.KeyPreview(false);
    box.BackColor(&twin == &box ? TextBox::WindowBackground : twin.BackColor());
  });
}

}  // namespace vorlent
