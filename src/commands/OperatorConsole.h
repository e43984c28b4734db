#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>

#include "commands/ConsoleHost.h"
#include "commands/ConsolePlatform.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"
#include "platform/TextFile.h"

namespace korvane {

/// A show was lost; the text says how.
struct ShowLost : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A plug-in in a console, for as long as a test plays with it.
struct OperatorConsole {
  OperatorConsole(Disk& disk, const std::string& base, std::uint64_t seed)
      : host({"show", base}, kUniverseChannels) {
    platform.files = &disk;
    platform.clock = [this] { return plugin.engine.timers.now(); };
    platform.pictures = [&disk](const std::string& path) { return pictureOn(disk, path); };
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
  /// Whether it still holds the show that was saved to the path.
  bool holds(const std::string&) const { return true; }
  /// There is nothing left to act on.
  bool over() const { return false; }

  /// Any file that is there is a picture.
  static Raster pictureOn(Disk& disk, const std::string& path) {
    if (!fileExists(path, disk)) throw Failure(kInvalidPicture, path);
    return {9, 7, rgb(200, 100, 50)};
  }

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
