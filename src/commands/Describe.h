#pragma once

#include "commands/Json.h"
#include "platform/Form.h"

namespace korvane {

/// What `get` tells of a window, and of a control by its kind.
Json describe(const Form& form);
Json describe(const Control& control);

}  // namespace korvane
