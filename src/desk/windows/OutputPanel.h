#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/output/OutputConfig.h"
#include "platform/Controls.h"
#include "platform/Layout.h"

namespace korvane {

/// The settings of one output, in the field's own words. What they say is a text that parseOutput
/// reads, so a wrong entry is told as on the command line.
class OutputPanel {
 public:
  OutputPanel();

  /// What the controls say.
  std::string text() const;
  /// Sets the controls; onChange stays silent.
  void show(const OutputConfig& config);
  /// Nothing can be set while there is no output.
  void setUsable(bool usable);

  /// All of them, in tab order.
  std::vector<Control*> controls();
  /// `nodes` stands with what is Art-Net's.
  Layout layout(Control& nodes);

  std::function<void()> onChange;  ///< a person set one of them
  /// How many universes the wall has: those of an output whose kind a person chooses.
  std::function<int()> universesOfWall;

  Group outputGroup;
  TextBox name;
  ListBox kind;
  TextBox universes;
  ListBox way;
  TextBox address, interface, rate;
  ListBox end;
  Group lookGroup;
  TextBox gamma;
  CheckBox smooth;
  TextBox red, green, blue;
  Group sacnGroup;
  TextBox priority, source, synchronisation;
  Group artnetGroup;
  CheckBox artSync;

 private:
  void bind();
  void kindChosen();
  void changed();
  OutputKind chosenKind() const;
  /// The entries of `way`, and what is of no account can't be reached.
  void follow();
  void setWays();

  bool filling_ = false;
  bool usable_ = true;
};

/// The usual universes of a kind for so many of the wall: "1-4", "0-3"; empty for none.
std::string usualUniverses(OutputKind kind, int count);

}  // namespace korvane
