#include "desk/windows/LevelPicture.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr int kGap = 2;    // between levels
constexpr int kFrame = 2;  // thickness of a mark
constexpr int kFullLevel = 255;

constexpr Rgb kWell = {0x0e, 0x10, 0x13};
constexpr Rgb kBar = {0x3d, 0x8f, 0xd9};
constexpr Rgb kMark = {0xf2, 0xb3, 0x40};

// The ground with a mark over it that covers `part` of `whole`.
Color covered(const Rgb& ground, int part, int whole) {
  const auto component = [&](std::size_t i) {
    return (ground[i] * (whole - part) + kMark[i] * part) / whole;
  };
  return rgb(component(0), component(1), component(2));
}

}  // namespace

LevelPicture::LevelPicture(PictureBox& box) : box_(box) {
  box_.onResize = [this] { paintAll(); };
  paintAll();
}

void LevelPicture::setLevel(int channel, std::uint8_t level) { cell(channel).now.level = level; }

void LevelPicture::mark(int channel) { cell(channel).set = true; }

bool LevelPicture::refresh(std::int64_t now) {
  bool fading = false;
  for (int channel = 1; channel <= kChannels; ++channel) {
    Cell& cell = this->cell(channel);
    if (cell.set) cell.marked = now;
    if (cell.set || cell.now.mark != 0) {
      const std::int64_t left = kFadeMilliseconds - (now - cell.marked);
      const std::int64_t steps = (left * kSteps + kFadeMilliseconds - 1) / kFadeMilliseconds;
      cell.now.mark = static_cast<std::uint8_t>(std::clamp<std::int64_t>(steps, 0, kSteps));
    }
    cell.set = false;
    fading = fading || cell.now.mark != 0;
    if (cell.now != cell.drawn) paint(channel);
  }
  return fading;
}

int LevelPicture::channelAt(int x, int y) const {
  if (x < 0 || y < 0 || x >= box_.width() || y >= box_.height()) return 0;
  const int channel = y * kRows / box_.height() * kCols + x * kCols / box_.width() + 1;
  const Box at = place(channel);
  return x <= at.right && y <= at.bottom ? channel : 0;
}

LevelPicture::Box LevelPicture::place(int channel) const {
  const int col = (channel - 1) % kCols;
  const int row = (channel - 1) / kCols;
  const auto edge = [](int length, int at, int of) { return (length * at + of - 1) / of; };
  return {edge(box_.width(), col, kCols), edge(box_.height(), row, kRows),
          edge(box_.width(), col + 1, kCols) - kGap - 1,
          edge(box_.height(), row + 1, kRows) - kGap - 1};
}

// The level is a bar from the bottom; a mark is a frame over it.
void LevelPicture::paint(int channel) {
  Cell& cell = this->cell(channel);
  cell.drawn = cell.now;
  const Box at = place(channel);
  if (at.left > at.right || at.top > at.bottom) return;
  const int bar = (at.bottom - at.top + 1) * cell.now.level / kFullLevel;
  const int line = at.bottom - bar;  // the last one above the bar
  const auto both = [&](int inset, int mark) {
    const int left = at.left + inset;
    const int right = at.right - inset;
    const int top = at.top + inset;
    const int bottom = at.bottom - inset;
    if (left > right || top > bottom) return;
    const int split = std::clamp(line, top - 1, bottom);
    if (split >= top) box_.fillRect(left, top, right, split, covered(kWell, mark, kSteps));
    if (split < bottom) box_.fillRect(left, split + 1, right, bottom, covered(kBar, mark, kSteps));
  };
  both(0, cell.now.mark);
  if (cell.now.mark != 0) both(kFrame, 0);
}

void LevelPicture::paintAll() {
  for (int channel = 1; channel <= kChannels; ++channel) paint(channel);
}

}  // namespace korvane
