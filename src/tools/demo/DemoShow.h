#pragma once

#include <cstdint>
#include <string>

#include "shell/Plugin.h"

namespace korvane {

/// A desk with nothing behind it.
struct SilentHost : Host {
  std::int32_t ChannelMAXCHANNELS() override { return kUniverseChannels; }
  std::string ProjectName() override { return "show"; }
  std::string ProjectBaseFilename() override { return "show"; }
  void UserInteraction() override {}
  void SetChannel(std::int32_t, std::int32_t, bool) override {}
};

/// The show that stands in the pictures of the documentation, made through the windows. Each step
/// is one event, run through the gate. Its pictures are in examples/slides, below the folder in
/// which the program runs.
class DemoShow {
 public:
  DemoShow(Plugin& plugin, TimerQueue::Gate gate) : plugin_(plugin), gate_(std::move(gate)) {}

  /// An effect of each type on the left deck, a few on the right, and lamps that are sent to.
  void make();
  /// Opens the dialog of an effect of the left deck, by its row; nullptr if its type has none.
  Form* openDialog(int row);
  /// Opens the list of pictures from the open dialog of an image effect, its second row selected.
  Form& openImageList();
  /// Moves the sliders of the colour mixer to a colour that shows all three.
  void mixOrange();

 private:
  struct Row;
  void wireLamps();
  void fill(Deck& deck, DeckPanel& panel, const std::vector<Row>& rows);
  static const std::vector<Row>& leftRows();
  static const std::vector<Row>& rightRows();
  static void setEffect(Effect& effect, const Row& row);

  Plugin& plugin_;
  TimerQueue::Gate gate_;
};

}  // namespace korvane
