#include "commands/Tokens.h"

#include "commands/CommandError.h"
#include "commands/Json.h"

namespace korvane {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// Where the JSON string that begins at `start` ends: the place of its closing quote.
std::size_t closingQuote(std::string_view line, std::size_t start) {
  for (std::size_t at = start + 1; at < line.size(); ++at) {
    if (line[at] == '\\') {
      ++at;
    } else if (line[at] == '"') {
      return at;
    }
  }
  throw CommandError("The text " + inQuotes(line.substr(start)) + " has no closing quote.");
}

std::string unquote(std::string_view token) {
  const Json value = Json::parse(token, nullptr, false);
  if (!value.is_string()) throw CommandError(inQuotes(token) + " is not a valid JSON string.");
  return value.get<std::string>();
}

void requireText(const std::string& token) {
  if (token.find('\0') != std::string::npos)
    throw CommandError("The command holds a zero character.");
  try {
    (void)Json(token).dump();
  } catch (const Json::type_error&) {
    throw CommandError("The command is not valid UTF-8.");
  }
}

}  // namespace

std::vector<std::string> tokens(std::string_view line) {
  std::vector<std::string> all;
  if (line.starts_with('#')) return all;
  std::size_t at = 0;
  while ((at = line.find_first_not_of(kBlanks, at)) != std::string_view::npos) {
    const bool isString = line[at] == '"';
    const std::size_t from = isString ? closingQuote(line, at) : at;
    const std::size_t end = std::min(line.find_first_of(kBlanks, from), line.size());
    const std::string_view token = line.substr(at, end - at);
    all.push_back(isString ? unquote(token) : std::string(token));
    requireText(all.back());
    at = end;
  }
  return all;
}

}  // namespace korvane
