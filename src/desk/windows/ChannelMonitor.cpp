#include "desk/windows/ChannelMonitor.h"

namespace korvane {
namespace {

constexpr PictureBox::Size kSize{LevelPicture::kCols * 24, LevelPicture::kRows * 22,
                                 PictureBox::Sizing::Grow};
constexpr Color kGround = rgb(0x16, 0x18, 0x1c);
constexpr const char* kHint =
    "Channel 1 is at the upper left, 32 to a row. Point at one for its level.";

}  // namespace

ChannelMonitor::ChannelMonitor(Desktop& desktop)
    : Form("DeskChannels", "Channels"),
      levels("levels", kSize, {.toolTip = "the levels that leave the desk"}, kGround),
      channel("channel", {.caption = kHint}),
      picture_(levels) {
  add({&levels, &channel});
  setLayout(column({Layout(levels, 1), channel}));
  levels.onMouseMove = [this](int x, int y) { tell(x, y); };
  desktop.add(*this);
}

void ChannelMonitor::take(const Levels& fresh) {
  for (int at = 1; at <= LevelPicture::kChannels; ++at) {
    const auto index = static_cast<std::size_t>(at);
    if (fresh[index] == taken_[index]) continue;
    picture_.setLevel(at, fresh[index]);
    picture_.mark(at);
  }
  taken_ = fresh;
}

bool ChannelMonitor::refresh(std::int64_t now) { return picture_.refresh(now); }

void ChannelMonitor::tell(int x, int y) {
  const int at = picture_.channelAt(x, y);
  channel.setCaption(at == 0 ? kHint
                             : "Channel " + std::to_string(at) + ": " +
                                   std::to_string(taken_[static_cast<std::size_t>(at)]));
}

}  // namespace korvane
