#include "base/controls.h"

#include <algorithm>

#include "base/text.h"

namespace vorlent {

Control::Control(std::string name) : name_(std::move(name)) {
  for (Property<bool>* use : {&Enabled, &Visible}) use->addView([this] { leaveUnlessUsable(); });
}

void Control::leaveUnlessUsable() {
  if (hasFocus_ && !(Enabled() && Visible())) loseFocus();
}

void Control::getFocus() {
  if (hasFocus_) return;
  if (form_ != nullptr)
    if (Control* other = form_->ActiveControl()) other->loseFocus();
  hasFocus_ = true;
  if (gotFocus_) gotFocus_();
}

void Control::loseFocus() {
  hasFocus_ = false;
  if (lostFocus_) lostFocus_();
}

void Control::keyDown(int keyCode, int shift) {
  if (form_ != nullptr && form_->KeyPreview()) form_->Form_KeyDown(keyCode, shift);
  if (keyDown_) keyDown_(keyCode, shift);
}

std::string ComboBox::Text() const {
  const int index = ListIndex();
  if (index < 0 || static_cast<std::size_t>(index) >= Items().size()) return {};
  return Items()[static_cast<std::size_t>(index)].text;
}

void ComboBox::addItem(std::string text, int data) {
  auto items = Items();
  items.push_back({std::move(text), data});
  Items(std::move(items));
}

void ComboBox::clear() {
  ListIndex.setQuietly(-1);
  Items({});
}

int ComboBox::indexOf(std::string_view text) const {
  const auto& items = Items();
  const auto found = std::find_if(items.begin(), items.end(),
                                  [text](const Item& item) { return item.text == text; });
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

Picture::Place Picture::placeAt(float percentX, float percentY) const {
  if (percentRule_) return percentRule_(percentX, percentY);
  return {percentX * ScaleWidth / 100, percentY * ScaleHeight / 100};
}

std::string Table::content() const {
  std::string all;
  for (const Row& row : Rows()) {
    if (!all.empty()) all += '\n';
    for (const std::string& cell : row) all += (&cell == &row.front() ? "" : ", ") + cell;
  }
  return all;
}

void StatusBar::panelText(int panel, const std::string& text) {
  panels_.at(static_cast<std::size_t>(panel - 1)) = text;
  for (const auto& view : views_) view(panel);
}

std::string StatusBar::content() const {
  std::string all;
  for (const auto& panel : panels_) all += (&panel == &panels_.front() ? "" : " | ") + panel;
  return all;
}

void Form::add(Control& control) {
  control.form_ = this;
  controls_.push_back(&control);
}

Control* Form::ActiveControl() const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [](const Control* control) { return control->hasFocus(); });
  return found == controls_.end() ? nullptr : *found;
}

Control* Form::control(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [name](const Control* c) {
    return equalIgnoringCase(c->name(), name);
  });
  return found == controls_.end() ? nullptr : *found;
}

}  // namespace vorlent
