#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Forms without a window: the model that the system works with, whether or not a window shows it.
namespace vorlent {

/// A value that tells when it changes. Setting a new value runs the form's handler and then every
/// view; setting the value it already has runs nothing.
template <class T>
class Property {
 public:
  Property() = default;
  explicit Property(T value) : value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  const T& operator()() const { return value_; }
  void operator()(T value) {
    if (value == value_) return;
    value_ = std::move(value);
    if (handler_) handler_();
    notifyViews();
  }

  /// Sets without running the form's handler, as for a value that the form itself puts right.
  void setQuietly(T value) {
    if (value == value_) return;
    value_ = std::move(value);
    notifyViews();
  }

  /// The form's own handler; there is one.
  void onChange(std::function<void()> handler) { handler_ = std::move(handler); }
  /// A window or a console that follows the value.
  void addView(std::function<void()> view) { views_.push_back(std::move(view)); }
  void runHandler() const {
    if (handler_) handler_();
  }

 private:
  void notifyViews() const {
    for (const auto& view : views_) view();
  }

  T value_{};
  std::function<void()> handler_;
  std::vector<std::function<void()>> views_;
};

class Form;

/// The modifiers that are held with a key or a button of the mouse, as bits.
namespace Held {
constexpr int Shift = 1;
constexpr int Ctrl = 2;
constexpr int Alt = 4;
}  // namespace Held

/// What every control has. `name` is as the operator's console says it, "Settings(0)" for an
/// element of a control array. A control that is disabled or goes out of sight loses the focus.
class Control {
 public:
  explicit Control(std::string name);
  virtual ~Control() = default;

  const std::string& name() const { return name_; }
  /// The one that it has been added to, or nullptr.
  const Form* form() const { return form_; }
  Property<bool> Enabled{true};
  Property<bool> Visible{true};
  Property<std::string> ToolTipText;
  Property<std::string> Tag;

  /// What the control holds, as text.
  virtual std::string content() const = 0;

  void onGotFocus(std::function<void()> handler) { gotFocus_ = std::move(handler); }
  void onLostFocus(std::function<void()> handler) { lostFocus_ = std::move(handler); }
  /// `handler` gets the virtual key code and a sum of Held.
  void onKeyDown(std::function<void(int keyCode, int shift)> handler) {
    keyDown_ = std::move(handler);
  }
  /// The operator comes to the control; the one of its form that had the focus is left first.
  void getFocus();
  /// He moves on to another control.
  void loseFocus();
  bool hasFocus() const { return hasFocus_; }
  /// A key is pressed on the control; its form sees it first while it previews keys.
  void keyDown(int keyCode, int shift);

 private:
  friend class Form;
  void leaveUnlessUsable();

  std::string name_;
  Form* form_ = nullptr;
  bool hasFocus_ = false;
  std::function<void()> gotFocus_;
  std::function<void()> lostFocus_;
  std::function<void(int, int)> keyDown_;
};

class TextBox : public Control {
 public:
  using Control::Control;
  /// The platform's own colour of boxes, light or dark.
  static constexpr int WindowBackground = -2147483643;

  Property<std::string> Text;
  /// To read only: the operator cannot type into it.
  Property<bool> Locked;
  /// Red + 256 * green + 65536 * blue of 0..255 each, or WindowBackground.
  Property<int> BackColor{WindowBackground};
  /// What is wrong with the text, by the box's rule; empty when nothing is, and without a rule.
  Property<std::string> Complaint;
  std::string content() const override { return Text(); }

  /// `complaintAbout` judges every text that is put into the box from now on.
  void rule(std::function<std::string(const std::string&)> complaintAbout) {
    Text.addView(
        [this, complaintAbout = std::move(complaintAbout)] { Complaint(complaintAbout(Text())); });
  }
};

/// Value is 1 when checked, else 0.
class CheckBox : public Control {
 public:
  CheckBox(std::string name, std::string caption)
      : Control(std::move(name)), Caption(std::move(caption)) {}
  Property<std::string> Caption;
  Property<int> Value;
  std::string content() const override { return std::to_string(Value()); }
};

class OptionButton : public Control {
 public:
  OptionButton(std::string name, std::string caption)
      : Control(std::move(name)), Caption(std::move(caption)) {}
  Property<std::string> Caption;
  Property<bool> Value;
  std::string content() const override { return Value() ? "True" : "False"; }
};

class ComboBox : public Control {
 public:
  using Control::Control;
  struct Item {
    std::string text;
    int data = 0;
    bool operator==(const Item&) const = default;
  };

  Property<std::vector<Item>> Items;
  /// Index of the selected item, -1 when none is.
  Property<int> ListIndex{-1};
  /// The selected item's text, empty when none is.
  std::string Text() const;
  std::string content() const override { return Text(); }

  void addItem(std::string text, int data = 0);
  /// Removes all items; nothing is selected then.
  void clear();
  /// Index of the item with this text, -1 when there is none.
  int indexOf(std::string_view text) const;
};

/// Pages of controls, of which one is in sight: its number is ListIndex, from 0.
class TabStrip : public ComboBox {
 public:
  using ComboBox::ComboBox;
};

class Button : public Control {
 public:
  /// The platform's own colour of buttons, light or dark.
  static constexpr int ButtonFace = -2147483633;

  Button(std::string name, std::string caption)
      : Control(std::move(name)), Caption(std::move(caption)) {}
  Property<std::string> Caption;
  /// Red + 256 * green + 65536 * blue of 0..255 each, or ButtonFace.
  Property<int> BackColor{ButtonFace};
  std::string content() const override { return Caption(); }

  void onClick(std::function<void()> handler) { click_ = std::move(handler); }
  void press() const {
    if (click_) click_();
  }

 private:
  std::function<void()> click_;
};

/// A menu entry; an "&" in the caption stands before the access key.
class MenuItem : public Button {
 public:
  using Button::Button;
  Property<bool> Checked;
  std::string content() const override { return Checked() ? "True" : "False"; }
};

/// A lamp: filled with a colour, red + 256 * green + 65536 * blue of 0..255 each.
class Shape : public Control {
 public:
  using Control::Control;
  static constexpr int Red = 255;
  static constexpr int White = 16777215;
  Property<int> FillColor{White};
  std::string content() const override { return std::to_string(FillColor()); }
};

/// How far something is along its way, 0..Max.
class Bar : public Control {
 public:
  Bar(std::string name, int max) : Control(std::move(name)), Max(max) {}
  const int Max;
  Property<int> Value;
  std::string content() const override { return std::to_string(Value()); }
};

/// An area that is painted, and worked with the mouse. Places in it are in units of its own, from
/// the upper left corner to the right and down.
class Picture : public Control {
 public:
  struct Place {
    float x = 0;
    float y = 0;
  };
  enum MouseButton : int { LeftButton = 1, RightButton = 2, MiddleButton = 4 };
  /// `shift` is a sum of Held.
  using Pressed = std::function<void(int button, int shift, Place place)>;
  using Moved = std::function<void(Place place)>;

  Picture(std::string name, float scaleWidth, float scaleHeight)
      : Control(std::move(name)), ScaleWidth(scaleWidth), ScaleHeight(scaleHeight) {}
  const float ScaleWidth;
  const float ScaleHeight;
  /// What is painted, in words: for the console, and for who cannot see it.
  Property<std::string> Description;
  std::string content() const override { return Description(); }

  void onMouseDown(Pressed handler) { mouseDown_ = std::move(handler); }
  void onMouseMove(Moved handler) { mouseMove_ = std::move(handler); }
  void onMouseUp(Moved handler) { mouseUp_ = std::move(handler); }
  void mouseDown(int button, int shift, Place place) const {
    if (mouseDown_) mouseDown_(button, shift, place);
  }
  void mouseMove(Place place) const {
    if (mouseMove_) mouseMove_(place);
  }
  void mouseUp(Place place) const {
    if (mouseUp_) mouseUp_(place);
  }

  /// Where a place in percent of what is painted lies; without a rule, in percent of the area.
  Place placeAt(float percentX, float percentY) const;
  void percentRule(std::function<Place(float, float)> rule) { percentRule_ = std::move(rule); }

  /// To be painted anew.
  void Refresh() { Paintings(Paintings() + 1); }
  /// Counts up with each painting.
  Property<unsigned> Paintings;

 private:
  Pressed mouseDown_;
  Moved mouseMove_;
  Moved mouseUp_;
  std::function<Place(float, float)> percentRule_;
};

/// A text to read.
class Label : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption;
  /// What it says needs the operator's eye.
  Property<bool> Alarm;
  std::string content() const override { return Caption(); }
};

/// Rows of cells to read, as many cells as there are columns.
class Table : public Control {
 public:
  using Row = std::vector<std::string>;
  Table(std::string name, Row columns) : Control(std::move(name)), columns_(std::move(columns)) {}

  const Row& columns() const { return columns_; }
  Property<std::vector<Row>> Rows;
  /// A line for each row, ", " between its cells.
  std::string content() const override;

 private:
  Row columns_;
};

/// Panels are numbered from 1.
class StatusBar : public Control {
 public:
  explicit StatusBar(std::string name, int panelCount)
      : Control(std::move(name)), panels_(static_cast<std::size_t>(panelCount)) {}

  const std::string& panelText(int panel) const {
    return panels_.at(static_cast<std::size_t>(panel - 1));
  }
  void panelText(int panel, const std::string& text);
  /// Called for every text that is put into a panel, the one it already shows included.
  void addView(std::function<void(int panel)> view) { views_.push_back(std::move(view)); }
  int panelCount() const { return static_cast<int>(panels_.size()); }
  std::string content() const override;

 private:
  std::vector<std::string> panels_;
  std::vector<std::function<void(int)>> views_;
};

/// A window's model: a name, a caption, and controls that register themselves in tab order.
class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  Property<std::string> Caption;
  Property<bool> Visible{false};

  /// The window that shows the form. A form that may go before the program does lets go of it
  /// first, while its controls are still there.
  std::shared_ptr<void> View;

  /// What the close box does; by itself a form just goes out of sight.
  virtual void close() { Visible(false); }

  const std::vector<Control*>& controls() const { return controls_; }
  /// Nothing of that name: nullptr.
  Control* control(std::string_view name) const;

  /// While it is set, each key that is pressed on a control runs Form_KeyDown first.
  Property<bool> KeyPreview{false};
  /// The control that has the focus; none has: nullptr.
  Control* ActiveControl() const;

 protected:
  void add(Control& control);
  /// `shift` is a sum of Held.
  virtual void Form_KeyDown(int /*keyCode*/, int /*shift*/) {}

 private:
  friend class Control;
  std::string name_;
  std::vector<Control*> controls_;
};

}  // namespace vorlent
