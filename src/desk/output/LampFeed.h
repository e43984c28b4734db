#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "desk/output/Outputs.h"
#include "desk/wall/WallLevels.h"
#include "state/Variablen.h"

namespace korvane {

/// The way from the plug-in's picture to the lamps: every lamp of the mixed picture by the channel
/// map into the wall's universes, and on to the outputs. For every program that owns a plug-in;
/// none of it touches the plug-in's own frames.
///
///     LampFeed feed("korvane-play");
///     feed.outputs.add(parseOutput("sacn:1-15")).switchOn();
///     // the plug-in calls UserInteraction:
///     feed.announce();
///     // the event that made the pass is done:
///     feed.endOfPass(engine.v);
class LampFeed {
 public:
  explicit LampFeed(std::string_view program, Network& network = machineNetwork())
      : outputs(program, network) {}

  /// A pass begins: its picture is to be taken when its event is done.
  void announce() { announced_ = true; }
  /// Takes the picture of a pass that was announced, and hands it on.
  void endOfPass(const Variablen& v);

  const WallLevels& levels() const { return levels_; }
  /// Grand master, blackout and freeze, on what stands on the wall at once, or on the picture of a
  /// pass that was announced.
  void setLevels(const WallLevels& levels);
  /// Forgets what stands on the wall: its lamps have got other channels.
  void clear();
  /// What goes out now, before the outputs' curves and white balance.
  WallPicture leaving() const;

  /// Sends a lamp test's picture instead of the show, byte for byte: past levels, curves and white
  /// balance. No picture ends the test: what the show has become goes out again.
  void setTest(const std::optional<WallPicture>& test);

  /// What is to be told of the outputs now: each problem once, and once that it works again.
  std::vector<std::string> news();

  Outputs outputs;

 private:
  void send();

  bool announced_ = false;
  Patch patch_;
  WallPicture taken_;
  WallLevels levels_;
  LevelStage stage_;
  LevelledPicture leaving_;
  std::optional<WallPicture> test_;
};

}  // namespace korvane
