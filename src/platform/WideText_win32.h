#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// UTF-8 to UTF-16 and back; what is no valid text becomes the replacement character.
std::wstring toWide(std::string_view utf8);
std::string toUtf8(std::wstring_view wide);

}  // namespace korvane
