#pragma once

#include <functional>
#include <optional>

#include "desk/wall/PlanPanel.h"
#include "desk/wall/TestPanel.h"
#include "persistence/MatrixConf.h"
#include "platform/Form.h"
#include "platform/PictureBox.h"

namespace korvane {

/// The window that says how the wall is wired, in a few choices, and shows it: a picture with the
/// lamps' numbers and the wire. Apply writes the grid's definition. The lamp test lights what the
/// picture shows, applied or not.
class Wiring : public Form {
 public:
  Wiring(Engine& engine, MatrixConf& conf);

  /// What the controls say, applied or not.
  WiringPlan plan() const { return planPanel.plan(); }
  /// Shows a plan, as a person's choices do.
  void setPlan(const WiringPlan& plan);

  PlanPanel planPanel;
  TestPanel testPanel;
  PictureBox wall;
  Label lamp, words;
  Button revert, apply, save, closeWindow;

  /// For the desk: what the lamp test sends instead of the show; nothing when it ends.
  std::function<void(const std::optional<WallPicture>&)> onTest;
  /// For the desk: the lamps have other channels; what the old ones hold is of no lamp.
  std::function<void()> onRewired;

 private:
  void bind();
  /// Shows the grid as it is, and the plan that gives it if there is one.
  void takeGrid();
  void planChanged();
  void testChanged();
  void show(const ChannelMap& map);
  void draw();
  void pointAt(int x, int y);
  void wall_Click();
  void apply_Click();
  void takeSize(int cols, int rows);

  Engine& engine_;
  MatrixConf& conf_;
  Patch patch_;          // what the picture shows
  bool edited_ = false;  // it is a plan that was not applied
  bool testing_ = false;
  std::optional<LampAt> pressed_;
};

/// The lamps of a wall in words: how many there are, up to which channel, and how many share one or
/// stay dark.
std::string describe(const Patch& patch);

}  // namespace korvane
