#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <array>

#include "hosts/desk/DeskHost.h"

namespace korvane {

/// The 512 channels as a grid of 32 by 16 levels. A channel that was set lately carries a mark that
/// fades away.
class LevelGrid : public QWidget {
 public:
  explicit LevelGrid(QWidget* parent = nullptr);

  /// Shows the levels of a host, which must stay until another one is given.
  void watch(DeskHost& host);
  QSize sizeHint() const override { return {960, 420}; }
  QSize minimumSizeHint() const override { return {640, 280}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void mark(std::int32_t channel);
  QRectF cell(std::int32_t channel) const;
  /// What is left of a channel's mark, 1 fresh - 0 gone.
  double freshness(std::int32_t channel) const;
  void paintCell(QPainter& painter, std::int32_t channel) const;
  void paintRowNumber(QPainter& painter, int row) const;

  const DeskHost* host_ = nullptr;
  QElapsedTimer clock_;
  QTimer refresh_;
  qint64 lastMark_;
  std::array<qint64, DeskHost::kChannels + 1> marked_;  // time of the mark, in milliseconds
};

}  // namespace korvane
