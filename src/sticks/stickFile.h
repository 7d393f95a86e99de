#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The file of a stick: 19 lines, four axes, four lines, eleven extra buttons.
namespace vorlent {

class frmCMore;
class frmCStick;
struct modPublic;

/// "stick<n>.cfg" in the folder "stick" of the cockpit.
std::string stickFilePath(const modPublic& store, std::int16_t stick);

/// "X-Axis" and so on, 0..3.
const char* axisLabel(int axis);

/// Takes the file's first 8 lines into the stick and the others into its extra buttons. A field
/// that is missing or malformed leaves the default, or what was there before.
void readStickFile(std::string_view text, frmCStick& stick, frmCMore& more);

/// The whole file, each line ended by CR LF, decimals with a point.
std::string stickFileText(frmCStick& stick, const frmCMore& more);

}  // namespace vorlent
