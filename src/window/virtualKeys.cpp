#include "window/virtualKeys.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

#include "base/controls.h"

namespace vorlent {
namespace {

struct KeyRow {
  int key;
  int code;
};

constexpr std::array Keys{
    KeyRow{Qt::Key_Backspace, 8},    KeyRow{Qt::Key_Tab, 9},
    KeyRow{Qt::Key_Backtab, 9},      KeyRow{Qt::Key_Clear, 12},
    KeyRow{Qt::Key_Return, 13},      KeyRow{Qt::Key_Enter, 13},
    KeyRow{Qt::Key_Shift, 16},       KeyRow{Qt::Key_Control, 17},
    KeyRow{Qt::Key_Alt, 18},         KeyRow{Qt::Key_Pause, 19},
    KeyRow{Qt::Key_CapsLock, 20},    KeyRow{Qt::Key_Escape, 27},
    KeyRow{Qt::Key_Space, 32},       KeyRow{Qt::Key_PageUp, 33},
    KeyRow{Qt::Key_PageDown, 34},    KeyRow{Qt::Key_End, 35},
    KeyRow{Qt::Key_Home, 36},        KeyRow{Qt::Key_Left, 37},
    KeyRow{Qt::Key_Up, 38},          KeyRow{Qt::Key_Right, 39},
    KeyRow{Qt::Key_Down, 40},        KeyRow{Qt::Key_Select, 41},
    KeyRow{Qt::Key_Execute, 43},     KeyRow{Qt::Key_Print, 44},
    KeyRow{Qt::Key_Insert, 45},      KeyRow{Qt::Key_Delete, 46},
    KeyRow{Qt::Key_Help, 47},        KeyRow{Qt::Key_NumLock, 144},
    KeyRow{Qt::Key_ScrollLock, 145}, KeyRow{Qt::Key_Semicolon, 186},
    KeyRow{Qt::Key_Colon, 186},      KeyRow{Qt::Key_Equal, 187},
    KeyRow{Qt::Key_Plus, 187},       KeyRow{Qt::Key_Comma, 188},
    KeyRow{Qt::Key_Less, 188},       KeyRow{Qt::Key_Minus, 189},
    KeyRow{Qt::Key_Underscore, 189}, KeyRow{Qt::Key_Period, 190},
    KeyRow{Qt::Key_Greater, 190},    KeyRow{Qt::Key_Slash, 191},
    KeyRow{Qt::Key_Question, 191},   KeyRow{Qt::Key_QuoteLeft, 192},
    KeyRow{Qt::Key_AsciiTilde, 192}, KeyRow{Qt::Key_BracketLeft, 219},
    KeyRow{Qt::Key_BraceLeft, 219},  KeyRow{Qt::Key_Backslash, 220},
    KeyRow{Qt::Key_Bar, 220},        KeyRow{Qt::Key_BracketRight, 221},
    KeyRow{Qt::Key_BraceRight, 221}, KeyRow{Qt::Key_Apostrophe, 222},
    KeyRow{Qt::Key_QuoteDbl, 222},   KeyRow{Qt::Key_ParenRight, '0'},
    KeyRow{Qt::Key_Exclam, '1'},     KeyRow{Qt::Key_At, '2'},
    KeyRow{Qt::Key_NumberSign, '3'}, KeyRow{Qt::Key_Dollar, '4'},
    KeyRow{Qt::Key_Percent, '5'},    KeyRow{Qt::Key_AsciiCircum, '6'},
    KeyRow{Qt::Key_Ampersand, '7'},  KeyRow{Qt::Key_Asterisk, '8'},
    KeyRow{Qt::Key_ParenLeft, '9'},
};

/// The keys of the pad that have a code of their own.
constexpr std::array PadKeys{
    KeyRow{Qt::Key_Asterisk, 106}, KeyRow{Qt::Key_Plus, 107},  KeyRow{Qt::Key_Minus, 109},
    KeyRow{Qt::Key_Period, 110},   KeyRow{Qt::Key_Comma, 110}, KeyRow{Qt::Key_Slash, 111},
};

template <std::size_t Count>
int codeIn(const std::array<KeyRow, Count>& rows, int key) {
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [key](const KeyRow& candidate) { return candidate.key == key; });
  return row == rows.end() ? 0 : row->code;
}

int padKeyOf(int key) {
  constexpr int FirstPadDigit = 96;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return FirstPadDigit + key - Qt::Key_0;
  return codeIn(PadKeys, key);
}

}  // namespace

int virtualKeyOf(const QKeyEvent& event) {
  constexpr int F1 = 112;
  const int key = event.key();
  if (event.modifiers().testFlag(Qt::KeypadModifier))
    if (const int code = padKeyOf(key)) return code;
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return F1 + key - Qt::Key_F1;
  return codeIn(Keys, key);
}

int heldOf(const QKeyEvent& event) {
  const auto held = [&event](Qt::KeyboardModifier modifier, int key) {
    return event.modifiers().testFlag(modifier) || event.key() == key;
  };
  return (held(Qt::ShiftModifier, Qt::Key_Shift) ? Held::Shift : 0) +
         (held(Qt::ControlModifier, Qt::Key_Control) ? Held::Ctrl : 0) +
         (held(Qt::AltModifier, Qt::Key_Alt) ? Held::Alt : 0);
}

}  // namespace vorlent
