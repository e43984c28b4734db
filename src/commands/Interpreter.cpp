#include "commands/Interpreter.h"

#include <algorithm>

#include "commands/CommandError.h"
#include "commands/Tokens.h"
#include "platform/Events.h"

namespace korvane {
namespace {

const Command& findCommand(const std::string& name) {
  for (const auto table : {personCommands(), deskCommands(), lookCommands()}) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const Command& command) { return name == command.name; });
    if (found != table.end()) return *found;
  }
  throw CommandError("There is no command " + inQuotes(name) + ".");
}

Json errorReply(const char* sentence) { return {{"ok", false}, {"error", sentence}}; }

Json failureReply(const Failure& failure) { return {{"ok", false}, {"failure", toJson(failure)}}; }

std::vector<const Form*> modalForms(const Desktop& desktop) {
  std::vector<const Form*> open;
  for (const Form* form : desktop.forms()) {
    if (form->modal()) open.push_back(form);
  }
  return open;
}

}  // namespace

Json Interpreter::perform(const std::vector<std::string>& words) {
  const Command& command = findCommand(words.front());
  const Arguments arguments({words.begin() + 1, words.end()});
  requireCount(words.front(), command.arguments, arguments.count());

  console_.platform.failures.clear();
  const std::vector<const Form*> before = modalForms(console_.engine.desktop);
  Json reply = {{"ok", true}};
  const bool ended = runEvent(console_.platform, [&] {
    try {
      command.run(console_, arguments, reply);
    } catch (const CommandError& error) {
      reply = errorReply(error.what());
    }
  });
  if (!ended) reply = failureReply(console_.platform.failures.back());
  const Form* modal = console_.engine.desktop.modal();
  if (modal != nullptr && std::find(before.begin(), before.end(), modal) == before.end())
    reply["modal"] = modal->name();
  return reply;
}

std::optional<std::string> Interpreter::answer(std::string_view line) {
  Json reply;
  try {
    const std::vector<std::string> words = tokens(line);
    if (words.empty()) return std::nullopt;
    reply = perform(words);
  } catch (const CommandError& error) {
    reply = errorReply(error.what());
  }
  if (reply["ok"] != true) allOk_ = false;
  return reply.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace korvane
