#include "commands/Console.h"

#include <algorithm>

#include "commands/CommandError.h"
#include "platform/Text.h"

namespace korvane {

Deck& deckOf(Engine& engine, const std::string& name) {
  if (name == "A") return engine.v.A;
  if (name == "B") return engine.v.B;
  throw CommandError("The deck must be A or B, not " + inQuotes(name) + ".");
}

void requireCount(const std::string& name, const char* arguments, std::size_t count) {
  const std::vector<std::string> names =
      *arguments == 0 ? std::vector<std::string>() : split(arguments, ' ');
  const auto optional = std::find_if(names.begin(), names.end(),
                                     [](const std::string& word) { return word.front() == '['; });
  const auto least = static_cast<std::size_t>(optional - names.begin());
  const bool open = !names.empty() && names.back().ends_with("...]");
  if (count >= least && (open || count <= names.size())) return;
  throw CommandError(names.empty() ? "'" + name + "' takes no argument."
                                   : "'" + name + "' takes " + arguments + ".");
}

}  // namespace korvane
