#include "hosts/desk/LevelGrid.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

constexpr int kCols = 32;
constexpr int kRows = 16;
constexpr int kNumbers = 44;  // room for the row's first channel
constexpr int kGap = 2;
constexpr int kFadeMilliseconds = 700;
constexpr int kRefreshMilliseconds = 40;
constexpr int kFullLevel = 255;

}  // namespace

LevelGrid::LevelGrid(QWidget* parent) : QWidget(parent), lastMark_(-kFadeMilliseconds) {
  marked_.fill(-kFadeMilliseconds);
  clock_.start();
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  refresh_.setInterval(kRefreshMilliseconds);
  connect(&refresh_, &QTimer::timeout, this, [this] {
    update();
    if (clock_.elapsed() - lastMark_ > kFadeMilliseconds) refresh_.stop();
  });
}

void LevelGrid::watch(DeskHost& host) {
  host_ = &host;
  host.onLevel = [this](std::int32_t channel) { mark(channel); };
  update();
}

void LevelGrid::mark(std::int32_t channel) {
  lastMark_ = marked_.at(static_cast<std::size_t>(channel)) = clock_.elapsed();
  if (!refresh_.isActive()) refresh_.start();
}

QRectF LevelGrid::cell(std::int32_t channel) const {
  const int col = (channel - 1) % kCols;
  const int row = (channel - 1) / kCols;
  const double w = (width() - kNumbers) / static_cast<double>(kCols);
  const double h = height() / static_cast<double>(kRows);
  return {kNumbers + w * col, h * row, w - kGap, h - kGap};
}

double LevelGrid::freshness(std::int32_t channel) const {
  const qint64 age = clock_.elapsed() - marked_.at(static_cast<std::size_t>(channel));
  return std::clamp(1.0 - static_cast<double>(age) / kFadeMilliseconds, 0.0, 1.0);
}

void LevelGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (int row = 0; row < kRows; ++row) paintRowNumber(painter, row);
  for (std::int32_t channel = 1; channel <= DeskHost::kChannels; ++channel)
    paintCell(painter, channel);
}

void LevelGrid::paintRowNumber(QPainter& painter, int row) const {
  const std::int32_t first = row * kCols + 1;
  const QRectF beside = cell(first);
  painter.setPen(QColor(theme::kQuiet));
  painter.drawText(QRectF(0, beside.y(), kNumbers - 10, beside.height()),
                   Qt::AlignRight | Qt::AlignVCenter, QString::number(first));
}

// The level is a bar from the bottom; a fresh mark is a frame.
void LevelGrid::paintCell(QPainter& painter, std::int32_t channel) const {
  const QRectF box = cell(channel);
  painter.fillRect(box, QColor(theme::kWell));
  const double level = host_->level(channel) / static_cast<double>(kFullLevel);
  QRectF bar = box;
  bar.setTop(box.bottom() - box.height() * level);
  painter.fillRect(bar, QColor(theme::kAccent));
  const double fresh = freshness(channel);
  if (fresh <= 0) return;
  QColor ink(theme::kLive);
  ink.setAlphaF(static_cast<float>(fresh));
  painter.setPen(QPen(ink, 2));
  painter.drawRect(box.adjusted(1, 1, -1, -1));
}

void LevelGrid::mouseMoveEvent(QMouseEvent* event) {
  for (std::int32_t channel = 1; channel <= DeskHost::kChannels; ++channel) {
    const QRectF box = cell(channel);
    if (!box.contains(event->position())) continue;
    const QString tip = QString("channel %1: %2").arg(channel).arg(host_->level(channel));
    return QToolTip::showText(event->globalPosition().toPoint(), tip, this, box.toAlignedRect());
  }
}

}  // namespace korvane
