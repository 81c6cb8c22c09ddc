// What a person presses while the program is blocked would take effect afterwards, on controls that were locked when it
// was pressed.
#pragma once

namespace korvanel {

/// Throws away keys, clicks and requests to close that are waiting. Called before locked controls are enabled again.
void DropPendingInput();

} // namespace korvanel
