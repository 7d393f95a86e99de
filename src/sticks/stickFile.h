#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
/// that is missing or malformed leaves the default, or what was there before; an assignment is kept
/// as it stands, and a line without a comma is one.
void readStickFile(std::string_view text, frmCStick& stick, frmCMore& more);

/// What of the file's assignments is no number, or no code of the kind that the control sends, and
/// from where on lines are missing, a text each with the number of the line. `stick`: as the file
/// left it, initialised.
std::vector<std::string> stickFileFaults(std::string_view text, const frmCStick& stick);

/// The whole file, each line ended by CR LF, decimals with a point.
std::string stickFileText(frmCStick& stick, const frmCMore& more);

}  // namespace vorlent
