#pragma once

#include <optional>
#include <string>

#include "platform/Control.h"

namespace korvane {

// A key of the keyboard with what is held beside it has a name, as in "Left", "Ctrl+Shift+S", "F4".

/// A key's name in the one form in which it is compared: what is held stands in the order Ctrl,
/// Alt, Shift, letters are large. Nothing for a text that names no key.
std::optional<std::string> keyNamed(const std::string& text);

/// Whether a control that has the focus wants a key for itself, before any command that has it.
/// One that got the focus by a click of the mouse leaves space alone: what it means was done by the
/// click.
bool wantsKey(const Control& control, const std::string& key, bool clicked);

}  // namespace korvane
