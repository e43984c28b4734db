#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/wall/WiringPlan.h"
#include "platform/Controls.h"
#include "platform/Layout.h"

namespace korvane {

/// The controls of a path: where it starts, along what, and whether it snakes.
class PathControls {
 public:
  /// Their names begin with `stem`; `what` is what the path goes through, as in "lamp".
  PathControls(const std::string& stem, const std::string& what);

  WirePath path() const;
  void show(const WirePath& path);

  ListBox corner, along;
  CheckBox snake;
};

/// The controls of a wiring plan, in three groups.
class PlanPanel {
 public:
  PlanPanel();

  /// What the controls say.
  WiringPlan plan() const;
  /// Sets the controls; onChange stays silent. A size that no entry stands for is left open.
  void show(const WiringPlan& plan);

  /// All of them, in tab order.
  std::vector<Control*> controls();
  Layout layout();

  std::function<void()> onChange;  ///< a person set one of them

  Group wallGroup;
  ListBox cols, rows, universe, channel;
  Group wireGroup;
  PathControls lamps;
  ListBox order, fill, lampsPerUniverse, skipped;
  Group panelGroup;
  CheckBox panels;
  ListBox panelCols, panelRows, across, down;
  PathControls chain;
  ListBox turn;

 private:
  void bind();
  void changed();
  /// What is of no account can't be reached; with panels, the size is theirs.
  void follow();

  bool filling_ = false;
};

}  // namespace korvane
