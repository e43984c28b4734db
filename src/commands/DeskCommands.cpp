#include <algorithm>

#include "commands/CommandError.h"
#include "commands/Console.h"
#include "platform/Events.h"

namespace korvane {
namespace {

constexpr const char* kBeat = "9";
constexpr Range kMilliseconds{0, std::numeric_limits<std::int32_t>::max()};

Json callOperation(Console& console, const std::string& name, const Arguments& arguments) {
  const auto found =
      std::find_if(console.operations.begin(), console.operations.end(),
                   [&](const Operation& operation) { return name == operation.name; });
  if (found == console.operations.end())
    throw CommandError("There is no operation " + inQuotes(name) + ".");
  requireCount(name, found->arguments, arguments.count());
  return found->run(arguments);
}

void open(Console& console, const Arguments&, Json&) {
  console.engine.desktop.show(*console.engine.mainWindow);
}

void call(Console& console, const Arguments& arguments, Json& reply) {
  reply["result"] = callOperation(console, arguments.text(0), arguments.from(1));
}

void message(Console& console, const Arguments& arguments, Json& reply) {
  std::vector<std::string> values = {"0", "0", "0"};
  for (std::size_t i = 0; i < arguments.count(); ++i) values[i] = arguments.text(i);
  reply["result"] = callOperation(console, kMessageHandle, Arguments(values));
}

void beat(Console& console, const Arguments&, Json& reply) {
  message(console, Arguments({kBeat}), reply);
}

void advance(Console& console, const Arguments& arguments, Json& reply) {
  const int milliseconds = arguments.integer(0, "MS", kMilliseconds);
  Json failures = Json::array();
  console.advance(milliseconds, [&](const std::function<void()>& tick) {
    if (!runEvent(console.platform, tick))
      failures.push_back(toJson(console.platform.failures.back()));
  });
  reply["now"] = console.engine.timers.now();
  if (!failures.empty()) reply["failures"] = std::move(failures);
}

void quit(Console& console, const Arguments&, Json&) { console.ended = true; }

void put(Console& console, const Arguments& arguments, Json&) {
  Frame& frame = deckOf(console.engine, arguments.text(0)).frame;
  const int col = arguments.index(1, "COL", static_cast<std::size_t>(std::max(frame.cols(), 0)));
  const int row = arguments.index(2, "ROW", static_cast<std::size_t>(std::max(frame.rows(), 0)));
  frame.at(col, row) = colorParts(arguments.color(3, "COLOR"));
}

constexpr Command kDeskCommands[] = {
    {"open", "", open},
    {"call", "OPERATION [ARG...]", call},
    {"message", "MSG [ARG1 ARG2]", message},
    {"beat", "", beat},
    {"advance", "MS", advance},
    {"put", "DECK COL ROW COLOR", put},
    {"quit", "", quit},
};

}  // namespace

std::span<const Command> deskCommands() { return kDeskCommands; }

}  // namespace korvane
