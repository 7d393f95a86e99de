#pragma once

class QKeyEvent;

namespace vorlent {

/// The virtual key code of Windows for the key of an event, 0 for one that has none. Signs are
/// those of a keyboard with the layout of the United States.
int virtualKeyOf(const QKeyEvent& event);

/// The modifiers that are held, as a sum of Held. A modifier that is pressed itself counts.
int heldOf(const QKeyEvent& event);

}  // namespace vorlent
