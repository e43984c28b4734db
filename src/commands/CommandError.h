#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane {

/// A command that can't be carried out; the text is a sentence that says why.
struct CommandError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A piece of a command for use in a sentence: in single quotes, cut short if it is long.
std::string inQuotes(std::string_view text);

}  // namespace korvane
