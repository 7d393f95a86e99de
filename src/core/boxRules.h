#pragma once

namespace vorlent {

class frmMainClient;
struct modPublic;

/// Gives the main window's boxes the rules by which they complain about a text that could not be
/// used: as a number in Vorlent.ini, as a port, as a line of Flaps.cfg. What a box does with such a
/// text is its own affair. The number of sticks has no rule, as its box takes no wrong one.
void setBoxRules(frmMainClient& form, const modPublic& store);

}  // namespace vorlent
