#pragma once

#include <functional>

#include "desk/cues/ShowStage.h"
#include "shell/Plugin.h"

namespace korvane {

/// A plug-in, worked by the same rows, fades and buttons that a person presses.
class PlugInStage : public ShowStage {
 public:
  explicit PlugInStage(Plugin& plugin) : plugin_(plugin) {}

  std::vector<Row> rows(ShowList list) const override;
  bool has(ShowList list, std::int16_t slot) const override;
  std::int16_t selected(ShowList list) const override;
  void press(ShowList list, std::int16_t slot) override;
  bool standsAt(Side side) const override;
  Side seen() const override;
  void fadeTo(Side side) override;
  void cutTo(Side side) override;
  bool fading() const override;
  double fadeLeft() const override;
  std::int64_t fadeLength(std::int16_t slot) const override;
  int master() const override { return getMaster ? getMaster() : 100; }
  void setMaster(int percent) override {
    if (putMaster) putMaster(percent);
  }

  // The grand master stands behind the plug-in: it is its owner's.
  std::function<int()> getMaster;
  std::function<void(int)> putMaster;

 private:
  const ListView& listView(ShowList list) const;
  ListView& listView(ShowList list);
  void breakOffFade();

  Plugin& plugin_;
};

}  // namespace korvane
