#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "commands/Arguments.h"
#include "commands/HostCalls.h"
#include "commands/Json.h"
#include "platform/HeadlessPlatform.h"
#include "state/Engine.h"

namespace korvane {

/// The operation that `message` and `beat` call.
inline constexpr const char* kMessageHandle = "ITharnPlugin_MessageHandle";

/// An operation that the desk may call on the plug-in class or on the tool window.
struct Operation {
  const char* name;                           ///< in full, as in "ITharnTool_ViewMode"
  const char* arguments;                      ///< their names, as in "MSG ARG1 ARG2"
  std::function<Json(const Arguments&)> run;  ///< null for an operation without a result
};

/// What the commands act on: a plug-in, the desk that it runs in, and its time.
struct Console {
  Engine& engine;
  HeadlessPlatform& platform;
  HostCalls& calls;
  std::vector<Operation> operations;
  /// Lets milliseconds pass; every tick runs through the gate.
  std::function<void(std::int64_t milliseconds, const TimerQueue::Gate&)> advance;
  bool ended = false;  ///< `quit` was given
};

/// One row of a table of commands.
struct Command {
  const char* name;
  const char* arguments;  ///< their names; those in square brackets may be left out
  /// Carries the command out and adds the fields of its reply.
  void (*run)(Console&, const Arguments&, Json& reply);
};

std::span<const Command> personCommands();
std::span<const Command> deskCommands();
std::span<const Command> lookCommands();

/// The deck "A" or "B"; CommandError for any other name.
Deck& deckOf(Engine& engine, const std::string& name);

/// Raises CommandError unless so many arguments fit the declared ones.
void requireCount(const std::string& name, const char* arguments, std::size_t count);

}  // namespace korvane
