#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorlent {

class Keyboard;

/// A key with its modifiers as one number, so that it fits where a command code fits: the state of
/// the modifiers plus 1, times 1000, plus the virtual key code of Windows. Codes above 1000 are
/// keystrokes, all others commands.
namespace Modifier {
constexpr int Shift = 1;
constexpr int Ctrl = 2;
constexpr int Alt = 4;
}  // namespace Modifier

/// Lower codes are commands. This one itself is a key that no keyboard has.
constexpr std::int16_t FirstKeystroke = 1000;

/// `keyCode` 0 .. 999, `modifiers` a sum of Modifier. Raises Overflow beyond 16 bits.
std::int16_t keystrokeCode(int keyCode, int modifiers);

/// The name of a virtual key code, 0 .. 255; a code without a name of its own gives the character
/// of that number. Raises InvalidCall outside.
std::string KeyName(int keyCode);
/// What a builder reads of a keystroke code: "Shft-A". Raises as KeyName().
std::string KeyLabel(std::int16_t code);
/// What SendKeys() takes for a keystroke code: "+{A}". Raises as KeyName().
std::string KeyString(std::int16_t code);

/// Presses one key: "^" (Ctrl), "%" (Alt) and "+" (Shift) in any order, then a name in braces. A
/// letter stands for its key alone, without Shift; any other character for what types it.
/// Of KeyName()'s names only BACKSPACE, CAPSLOCK, CLEAR, DELETE, END, ENTER, ESCAPE, HELP, HOME,
/// INSERT, NUMLOCK, TAB and F1 to F16 are known here, as they are to SendKeys on Windows. Raises
/// InvalidCall for another name or another form of text, and what Keyboard::press() raises.
void SendKeys(Keyboard& keyboard, std::string_view keys);

}  // namespace vorlent
