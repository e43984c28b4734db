#pragma once

#include <QWidget>
#include <memory>

#include "hosts/desk/DeskHost.h"
#include "hosts/desk/LevelPicture.h"
#include "views/qt/machine/LoopGate.h"

namespace korvane {

/// The 512 channels of a host on the screen, with the number of each row's first one.
class LevelGrid : public QWidget {
 public:
  LevelGrid(Platform& platform, QWidget* parent);

  /// Shows the levels of a host, which must stay until another one is given.
  void watch(DeskHost& host);
  QSize sizeHint() const override { return {960, 420}; }
  QSize minimumSizeHint() const override { return {640, 280}; }

 private:
  void mark(std::int32_t channel);
  void refresh();
  void tellLevel(int x, int y);

  const DeskHost* host_ = nullptr;
  TimerQueue timers_;
  Timer refresh_{timers_, "levels"};
  qt::LoopGate gate_;
  PictureBox box_;
  LevelPicture picture_{box_};
  std::unique_ptr<QWidget> shown_;  // goes before what it shows
};

}  // namespace korvane
