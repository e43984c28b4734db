#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/output/Outputs.h"
#include "desk/windows/OutputPanel.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/ListView.h"

namespace korvane {

/// The outputs of the desk as a list: any number, on or off while it runs, their settings, how they
/// fare, and what the lamps do when DMX goes off.
class OutputSetup : public Form {
 public:
  /// What the lamps do when DMX goes off, in the order of the list.
  enum class WhenOff { Dark, Hold, Ask };

  OutputSetup(Desktop& desktop, Outputs& outputs, std::function<int()> universesOfWall);

  /// Adds an output that is on.
  void use(const OutputConfig& config) { take({config, true}); }
  /// Adds an output as it was remembered.
  void take(const OutputEntry& entry);
  /// These in the place of all; nothing happens if they are there already.
  void takeAll(const std::vector<OutputEntry>& entries);
  /// What is to be remembered.
  std::vector<OutputEntry> entries() const;
  /// Gives the chosen output another curve or white balance.
  void changeLook(const std::function<void(OutputLook&)>& change);
  /// Whether an output is on.
  bool sending() const;
  /// Which universes of the wall the outputs that are on carry, by number; empty if none is on or
  /// one carries all lamps.
  std::vector<bool> universesSent() const;
  WhenOff whenOff() const { return static_cast<WhenOff>(off.index()); }
  /// For people: where the levels go, empty for nowhere.
  std::string target() const;
  /// For people: what is wrong with the fields or with the network; empty for nothing.
  std::string fault() const;
  /// Shows it in the window.
  void refresh();

  std::function<void()> onKept;  ///< a person changed what is to be remembered

  ListView list;
  Button addOutput, removeOutput;
  CheckBox on;
  OutputPanel panel;
  Label figures;
  TextBox receivers;
  ListBox off;
  Label state;
  Button OK;

 private:
  void bind();
  void declareLayout();
  int chosen() const { return list.current(); }
  Output& output() { return outputs_.at(static_cast<std::size_t>(chosen())); }
  void choose(int row);
  void showChosen();
  void apply();
  void addOne();
  void removeChosen();
  void kept();

  Outputs& outputs_;
  std::function<int()> universesOfWall_;
  std::string complaint_;
  bool filling_ = false;
};

}  // namespace korvane
