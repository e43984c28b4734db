#pragma once

#include "platform/Text.h"

namespace korvane {

/// The separators of the environment's LC_NUMERIC: decimal comma or point, the thousands separator
/// is the other one.
NumberFormat localeFormat();

}  // namespace korvane
