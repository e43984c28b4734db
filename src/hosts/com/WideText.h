#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

namespace korvane {

/// UTF-8 to UTF-16 and back; what is no valid text becomes the replacement character.
std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

/// A null BSTR is the empty text.
std::string fromBstr(BSTR text);
/// A new BSTR, which the caller frees.
BSTR toBstr(std::string_view utf8);

}  // namespace korvane
