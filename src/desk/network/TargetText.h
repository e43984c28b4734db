// Pieces of the texts that say where to send. Errors are std::invalid_argument, for people to read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

[[noreturn]] void failTarget(const std::string& what);
std::string quotedTarget(std::string_view text);

/// Takes the mark and what follows it off the text; none when the mark is absent.
std::optional<std::string_view> cutOff(std::string_view& text, char mark);

/// A whole number in the range; `what` names it in the error.
int readTargetNumber(std::string_view text, const std::string& what, int min, int max);

/// Port, 1 - 65535.
int readPort(std::string_view text);
/// The text of an IPv4 address.
std::string readAddress(std::string_view text);
std::string readInterface(std::string_view text);

}  // namespace korvane
