#pragma once

#include "desk/show/DeskSession.h"

namespace korvane {

// What the desk adds to the plug-in's own windows.

/// In each dialog Enter presses OK. Escape closes it as its frame does: Cancel of an effect's
/// dialog takes back more than what was typed.
void bindKeysOfDialogs(Plugin& plugin);

/// What a field lacks is said in words, and a time may be typed with a point or a comma.
void bindFields(DeskSession& session);

}  // namespace korvane
