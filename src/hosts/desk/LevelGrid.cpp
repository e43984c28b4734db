#include "hosts/desk/LevelGrid.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolTip>

#include "views/qt/kinds/Binder.h"
#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

constexpr int kNumbers = 34;  // room for the row's first channel
constexpr int kRefreshMilliseconds = 50;
constexpr Color kGround = rgb(0x16, 0x18, 0x1c);

}  // namespace

LevelGrid::LevelGrid(Platform& platform, QWidget* parent)
    : QWidget(parent),
      gate_(platform, timers_),
      box_("levels", {LevelPicture::kCols * 28, LevelPicture::kRows * 26, PictureBox::Sizing::Grow},
           {}, kGround) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(10);
  layout->setVerticalSpacing(0);
  QPalette quiet = palette();
  quiet.setColor(QPalette::WindowText, QColor(qt::theme::kQuiet));
  for (int row = 0; row < LevelPicture::kRows; ++row) {
    auto* number = new QLabel(QString::number(row * LevelPicture::kCols + 1), this);
    number->setPalette(quiet);
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    number->setFixedWidth(kNumbers);
    layout->addWidget(number, row, 0);
    layout->setRowStretch(row, 1);
  }
  shown_.reset(qt::makeWidget(box_, {this, gate_}));
  layout->addWidget(shown_.get(), 0, 1, LevelPicture::kRows, 1);
  box_.onMouseMove = [this](int x, int y) { tellLevel(x, y); };
  refresh_.setInterval(kRefreshMilliseconds);
  refresh_.onTimer = [this] { refresh(); };
}

void LevelGrid::watch(DeskHost& host) {
  host_ = &host;
  host.onLevel = [this](std::int32_t channel) { mark(channel); };
  refresh();
}

// A picture sets many channels; they are shown together.
void LevelGrid::mark(std::int32_t channel) {
  picture_.mark(channel);
  if (!refresh_.enabled()) gate_.run([this] { refresh_.enable(); });
}

void LevelGrid::refresh() {
  for (std::int32_t channel = 1; channel <= DeskHost::kChannels; ++channel)
    picture_.setLevel(channel, host_->level(channel));
  if (!picture_.refresh(timers_.now())) refresh_.disable();
}

void LevelGrid::tellLevel(int x, int y) {
  const int channel = picture_.channelAt(x, y);
  if (channel == 0) return QToolTip::hideText();
  const QString tip = QString("channel %1: %2").arg(channel).arg(host_->level(channel));
  QToolTip::showText(QCursor::pos(), tip, this);
}

}  // namespace korvane
