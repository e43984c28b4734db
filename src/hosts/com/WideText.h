#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

#include "platform/WideText_win32.h"

namespace korvane {

/// A null BSTR is the empty text.
std::string fromBstr(BSTR text);
/// A new BSTR, which the caller frees.
BSTR toBstr(std::string_view utf8);

}  // namespace korvane
