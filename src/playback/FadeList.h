#pragma once

#include "state/Engine.h"

namespace korvane {

// The handlers of the fade list and of the selected fade's fields.

void addX_Click(Engine& engine);
void removeX_Click(Engine& engine);
void upX_Click(Engine& engine);
void downX_Click(Engine& engine);
/// A row was selected: the fade becomes the one that the mixer obeys. Ends a running fade.
void efxXList_Click(Engine& engine);
/// The kind of the fade was chosen. Ends a running fade.
void fadeType_Click(Engine& engine);
/// Validates and stores the time, 0 - 800 seconds.
void fadeTimeText_Change(Engine& engine);
void fadeName_Change(Engine& engine);
/// Opens the colour mixer for "ColorFade".
void MFadeColor_Click(Engine& engine);

/// The fade of the slot `selX`; kSubscript if there is none.
FadeEntry& selectedFade(Engine& engine);
/// Shows the fade of `selX` in its controls: type, time, name, colour.
void showSelectedFade(Engine& engine);

}  // namespace korvane
