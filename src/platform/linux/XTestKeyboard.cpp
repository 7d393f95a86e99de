#include "platform/linux/XTestKeyboard.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

struct NamedSymbol {
  NamedKey key;
  KeySym symbol;
};

/// CLEAR is the middle key of the numeric pad on the keyboards of PCs, which X calls KP_Begin.
constexpr std::array<NamedSymbol, 12> NamedSymbols{{
    {NamedKey::Backspace, XK_BackSpace},
    {NamedKey::CapsLock, XK_Caps_Lock},
    {NamedKey::Clear, XK_KP_Begin},
    {NamedKey::Delete, XK_Delete},
    {NamedKey::End, XK_End},
    {NamedKey::Enter, XK_Return},
    {NamedKey::Escape, XK_Escape},
    {NamedKey::Help, XK_Help},
    {NamedKey::Home, XK_Home},
    {NamedKey::Insert, XK_Insert},
    {NamedKey::NumLock, XK_Num_Lock},
    {NamedKey::Tab, XK_Tab},
}};

KeySym symbolOf(NamedKey key) {
  for (const auto& named : NamedSymbols)
    if (named.key == key) return named.symbol;
  return XK_F1 + (static_cast<KeySym>(key) - static_cast<KeySym>(NamedKey::F1));
}

/// X Window System Protocol, appendix A: Latin-1 has its own numbers, other characters those of
/// Unicode from 0x01000000 on.
KeySym symbolOf(char32_t character) {
  const bool latin1 =
      (character >= 0x20 && character <= 0x7E) || (character >= 0xA0 && character <= 0xFF);
  return latin1 ? character : 0x01000000 + character;
}

/// Level 0 is a key by itself, 1 with Shift, 2 with the third-level key (AltGr), 3 with both.
struct KeyPlace {
  KeyCode key;
  int level;
};

/// The key is looked for in all of the keyboard's layouts, in their order: it stays the same key
/// whichever of them is in use.
std::optional<KeyPlace> placeOf(Display* display, KeySym symbol) {
  int first = 0;
  int last = 0;
  XDisplayKeycodes(display, &first, &last);
  for (int layout = 0; layout < XkbNumKbdGroups; ++layout)
    for (int level = 0; level < 4; ++level)
      for (int key = first; key <= last; ++key)
        if (XkbKeycodeToKeysym(display, static_cast<KeyCode>(key), layout, level) == symbol)
          return KeyPlace{static_cast<KeyCode>(key), level};
  return std::nullopt;
}

KeyPlace existingPlaceOf(Display* display, KeySym symbol) {
  const auto place = placeOf(display, symbol);
  if (!place) throw RuntimeError(RuntimeError::InvalidCall);
  return *place;
}

/// The keys of a combination in the order in which they go down.
std::vector<KeyCode> keysOf(Display* display, const KeyCombination& combination) {
  const KeySym symbol = std::visit([](auto key) { return symbolOf(key); }, combination.key);
  const KeyPlace place = existingPlaceOf(display, symbol);
  std::vector<KeyCode> keys;
  const auto hold = [&](bool held, KeySym modifier) {
    if (held) keys.push_back(existingPlaceOf(display, modifier).key);
  };
  hold(combination.Ctrl, XK_Control_L);
  hold(combination.Alt, XK_Alt_L);
  hold(combination.Shift || (place.level & 1) != 0, XK_Shift_L);
  hold((place.level & 2) != 0, XK_ISO_Level3_Shift);
  keys.push_back(place.key);
  return keys;
}

}  // namespace

/// An open display. When it goes, Xlib ends the process, in a handler of all displays and in one of
/// each: the first is replaced by one that returns, the second, for this display only, by one that
/// takes a note.
class XTestKeyboard::Connection {
 public:
  Connection() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr)
      throw RuntimeError(RuntimeError::InternalError, "There is no display to send keys to");
    XSetIOErrorHandler([](::Display*) { return 0; });
    XSetIOErrorExitHandler(display_, &Connection::markBroken, this);
    int ignored = 0;
    if (XTestQueryExtension(display_, &ignored, &ignored, &ignored, &ignored) == 0) {
      XCloseDisplay(display_);
      throw RuntimeError(RuntimeError::InternalError, "The display takes no keys from programs");
    }
  }
  ~Connection() { XCloseDisplay(display_); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// False when the display has gone. Takes over changes of its keyboard.
  bool update() {
    while (!broken_ && XPending(display_) > 0) {
      XEvent event;
      XNextEvent(display_, &event);
      if (event.type == MappingNotify) XRefreshKeyboardMapping(&event.xmapping);
    }
    return !broken_;
  }

  void press(const KeyCombination& combination) {
    auto keys = keysOf(display_, combination);
    for (const KeyCode key : keys) XTestFakeKeyEvent(display_, key, True, CurrentTime);
    std::reverse(keys.begin(), keys.end());
    for (const KeyCode key : keys) XTestFakeKeyEvent(display_, key, False, CurrentTime);
    XFlush(display_);
  }

 private:
  static void markBroken(::Display*, void* self) { static_cast<Connection*>(self)->broken_ = true; }

  ::Display* display_;
  bool broken_ = false;
};

XTestKeyboard::XTestKeyboard() = default;
XTestKeyboard::~XTestKeyboard() = default;

void XTestKeyboard::press(const KeyCombination& combination) {
  if (connection_ && !connection_->update()) connection_.reset();
  if (!connection_) connection_ = std::make_unique<Connection>();
  connection_->press(combination);
}

}  // namespace vorlent
