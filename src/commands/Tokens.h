#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The tokens of a command line: parts between blanks, or JSON strings. None for a line that is
/// passed over (nothing but blanks, or `#` at its start). Raises CommandError for a JSON string
/// that is not well formed, and for text that no control or file name can hold: broken UTF-8, or
/// a zero character.
std::vector<std::string> tokens(std::string_view line);

}  // namespace korvane
