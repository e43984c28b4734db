#pragma once

#include <string>

#include "Stage.h"
#include "persistence/ProjectFile.h"
#include "shell/Plugin.h"

namespace korvane {

/// The show that whole programs are measured with: both decks at full speed with one effect, Fluid
/// or Fire, every step mixed and sent, the fader where both decks are seen. Needs the main window
/// on the desktop.
inline void playAtFullSpeed(Plugin& plugin, int side, std::int16_t type) {
  Engine& engine = plugin.engine;
  wire(engine, side);
  plugin.matrixForm.active.setValue(1);
  for (Deck* deck : {&engine.v.A, &engine.v.B}) {
    deck->type.setIndex(type);
    Effect& effect = deck->effect();
    effect.color1 = rgb(10, 20, 30);  // the neighbours in Fluid differ, so every cell is published
    effect.color2 = rgb(200, 200, 200);
    effect.amount = 100;
    effect.speed = 100;
    effect.direction = 7;
    deck->efxEdited[0] = true;  // so that it is saved
    deck->efxList.click(0, 0);
  }
  engine.master.faderM.setValue(20);
}

/// A step of an effect at full speed, in milliseconds.
inline constexpr int kFullSpeedStep = 50;

/// Saves that show with its grid as STEM.Korvane and STEM.korvaneconf.
inline void saveFullSpeed(const std::string& stem, int side, std::int16_t type) {
  HeadlessPlatform platform;
  CountingHost host;
  Plugin plugin(platform);
  plugin.plugIn.ITharnPlugin_Init("", "", host);
  plugin.engine.desktop.show(plugin.matrixForm);
  playAtFullSpeed(plugin, side, type);
  plugin.engine.master.efxXList.select(0);
  platform.answers = {stem + ".Korvane"};
  saveProject(plugin.engine);
  writeDefinition(plugin.engine, stem + ".korvaneconf", "bench");
}

}  // namespace korvane
