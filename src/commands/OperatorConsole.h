#pragma once

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "commands/ConsoleHost.h"
#include "commands/ConsolePlatform.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"

namespace korvane {

/// A show was lost; the text says how.
struct ShowLost : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A plug-in in a console, for as long as a test plays with it.
struct OperatorConsole {
  OperatorConsole(const std::string& base, std::uint64_t seed) : host({"show", base}, 512) {
    platform.clock = [this] { return plugin.engine.timers.now(); };
    platform.pictures = [](const std::string& path) {
      if (!std::filesystem::exists(path)) throw Failure(kInvalidPicture, path);
      return Raster(9, 7, rgb(200, 100, 50));
    };
    plugin.engine.random.seed(seed);
    plugin.plugIn.ITharnPlugin_Init("", "", host);
    answer("open");
  }
  Json answer(const std::string& line) {
    host.calls.clear();
    return Json::parse(interpreter.answer(line).value_or("{}"));
  }
  Engine& engine() { return plugin.engine; }
  /// Whether the last command says that a show is saved.
  bool saved() const {
    return std::find(platform.boxes.begin(), platform.boxes.end(), "Matrix Project saved") !=
           platform.boxes.end();
  }
  /// There is nothing left to act on.
  bool over() const { return false; }

  ConsolePlatform platform;
  ConsoleHost host;
  Plugin plugin{platform};
  Interpreter interpreter{{plugin.engine, platform, host.calls, operationsOf(plugin, host),
                           [this](std::int64_t time, const TimerQueue::Gate& gate) {
                             plugin.engine.timers.advanceTo(plugin.engine.timers.now() + time,
                                                            gate);
                           }}};
};

}  // namespace korvane
