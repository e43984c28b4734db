#include "views/win32/windows/Box.h"

#include <algorithm>
#include <numeric>

namespace korvane::win32 {
namespace {

constexpr int kGap = 7;
constexpr int kMargin = 9;      // of a group
constexpr int kTitleGap = 5;    // below the title of a group
constexpr int kLabelRight = 2;  // of a label beyond the gap

int least(const Wish& wish, bool upright) {
  return static_cast<int>(upright ? wish.least.cy : wish.least.cx);
}
int natural(const Wish& wish, bool upright) {
  return static_cast<int>(upright ? wish.natural.cy : wish.natural.cx);
}
Grow grow(const Wish& wish, bool upright) { return upright ? wish.growY : wish.growX; }

Share shareOf(const Wish& wish, int stretch, bool upright) {
  return {least(wish, upright), natural(wish, upright), stretch, grow(wish, upright)};
}

// A wish from the needs in both directions.
Wish wishOf(const Share& x, const Share& y) {
  return {{x.least, y.least}, {x.natural, y.natural}, x.grow, y.grow};
}

// All one after the other, with gaps.
Share sum(const std::vector<Share>& shares, int gap) {
  Share all;
  for (const Share& share : shares) {
    all.least += share.least;
    all.natural += share.natural;
    all.grow = std::max(all.grow, share.grow);
  }
  const int gaps = shares.empty() ? 0 : gap * (static_cast<int>(shares.size()) - 1);
  all.least += gaps;
  all.natural += gaps;
  return all;
}

// All in the same place.
Share largest(const Share& one, const Share& other) {
  return {std::max(one.least, other.least), std::max(one.natural, other.natural),
          std::max(one.stretch, other.stretch), std::max(one.grow, other.grow)};
}

// Spreads an amount by weights, to the last pixel.
void spread(std::vector<int>& lengths, const std::vector<int>& weights, int amount) {
  std::int64_t all = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});
  for (std::size_t i = 0; i < lengths.size() && all > 0; ++i) {
    const auto part = static_cast<int>(std::int64_t{amount} * weights[i] / all);
    lengths[i] += part;
    amount -= part;
    all -= weights[i];
  }
}

int weightOf(const Share& share, bool stretched, Grow most) {
  if (stretched) return share.stretch;
  return most != Grow::No && share.grow == most ? 1 : 0;
}

}  // namespace

std::vector<int> lengths(const std::vector<Share>& shares, int room) {
  std::vector<int> lengths;
  std::vector<int> weights;
  Share all = sum(shares, 0);
  const bool stretched = std::any_of(shares.begin(), shares.end(),
                                     [](const Share& share) { return share.stretch > 0; });
  const int spare = room - all.natural;
  for (const Share& share : shares) {
    lengths.push_back(share.natural);
    weights.push_back(spare >= 0 ? weightOf(share, stretched, all.grow)
                                 : share.natural - share.least);
  }
  spread(lengths, weights, std::max(spare, all.least - all.natural));
  return lengths;
}

void ControlBox::place(const RECT& place) {
  const Wish wish = widget_.wish();
  RECT own = place;
  if (wish.growX == Grow::No) own.right = std::min(own.right, own.left + wish.natural.cx);
  if (wish.growY == Grow::No && own.bottom - own.top > wish.natural.cy) {
    own.top += (own.bottom - own.top - wish.natural.cy) / 2;
    own.bottom = own.top + wish.natural.cy;
  }
  widget_.place(own);
}

Wish LabelBox::wish() const {
  SIZE size = scale_.textSize(windowText(label_));
  size.cx += scale_.px(kLabelRight);
  return {size, size};
}

void LabelBox::place(const RECT& place) {
  ShowWindow(label_, widget_.control().look().visible ? SW_SHOWNA : SW_HIDE);
  RECT own = place;
  const int height = scale_.lineHeight();
  own.top += (own.bottom - own.top - height) / 2;
  own.bottom = own.top + height;
  moveWindow(label_, own);
}

std::vector<Box*> LineBox::shown() const {
  std::vector<Box*> boxes;
  for (const auto& child : children_) {
    if (child->present()) boxes.push_back(child.get());
  }
  return boxes;
}

bool LineBox::present() const { return children_.empty() || !shown().empty(); }

Wish LineBox::wish() const {
  std::vector<Share> along;
  Share across;
  for (const Box* child : shown()) {
    const Wish wish = child->wish();
    along.push_back(shareOf(wish, child->stretch, upright_));
    across = largest(across, shareOf(wish, 0, !upright_));
  }
  const Share line = sum(along, scale_.px(kGap));
  return upright_ ? wishOf(across, line) : wishOf(line, across);
}

void LineBox::place(const RECT& place) {
  const std::vector<Box*> boxes = shown();
  if (boxes.empty()) return;
  std::vector<Share> along;
  along.reserve(boxes.size());
  for (const Box* child : boxes) along.push_back(shareOf(child->wish(), child->stretch, upright_));
  const int gap = scale_.px(kGap);
  const LONG room = upright_ ? place.bottom - place.top : place.right - place.left;
  const std::vector<int> sizes =
      lengths(along, static_cast<int>(room) - gap * (static_cast<int>(boxes.size()) - 1));
  RECT next = place;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    LONG& from = upright_ ? next.top : next.left;
    LONG& to = upright_ ? next.bottom : next.right;
    to = from + sizes[i];
    boxes[i]->place(next);
    from = to + gap;
  }
}

GridBox::Needs GridBox::needs() const {
  const auto width = static_cast<std::size_t>(columns_);
  Needs needs{std::vector<Share>(width), std::vector<Share>((cells_.size() + width - 1) / width)};
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (!cells_[i]) continue;
    const Wish wish = cells_[i]->wish();
    Share& column = needs.columns[i % width];
    Share& line = needs.lines[i / width];
    column = largest(column, shareOf(wish, 0, false));
    line = largest(line, shareOf(wish, cells_[i]->stretch, true));
  }
  for (std::size_t i = 0; i < width; ++i)
    needs.columns[i].grow = static_cast<int>(i) == growing_ ? Grow::Wants : Grow::No;
  return needs;
}

Wish GridBox::wish() const {
  const int gap = scale_.px(kGap);
  const Needs needs = this->needs();
  return wishOf(sum(needs.columns, gap), sum(needs.lines, gap));
}

void GridBox::place(const RECT& place) {
  const Needs needs = this->needs();
  const int gap = scale_.px(kGap);
  const auto fit = [gap](const std::vector<Share>& shares, LONG room) {
    const int gaps = gap * (static_cast<int>(shares.size()) - 1);
    return lengths(shares, static_cast<int>(room) - gaps);
  };
  const std::vector<int> widths = fit(needs.columns, place.right - place.left);
  const std::vector<int> heights = fit(needs.lines, place.bottom - place.top);
  LONG top = place.top;
  for (std::size_t line = 0; line < heights.size(); ++line) {
    LONG left = place.left;
    for (std::size_t column = 0; column < widths.size(); ++column) {
      const std::size_t cell = line * widths.size() + column;
      if (cell < cells_.size() && cells_[cell])
        cells_[cell]->place({left, top, left + widths[column], top + heights[line]});
      left += widths[column] + gap;
    }
    top += heights[line] + gap;
  }
}

RECT GroupBox::margins() const {
  const LONG side = scale_.px(kMargin);
  return {side, scale_.lineHeight() + scale_.px(kTitleGap), side, side};
}

Wish GroupBox::wish() const {
  const RECT edge = margins();
  const LONG title = group_.wish().least.cx;
  Wish wish = inside_->wish();
  for (SIZE* size : {&wish.least, &wish.natural}) {
    size->cx = std::max(title, size->cx + edge.left + edge.right);
    size->cy += edge.top + edge.bottom;
  }
  wish.growX = std::max(wish.growX, Grow::May);
  return wish;
}

void GroupBox::place(const RECT& place) {
  const RECT edge = margins();
  group_.place(place);
  inside_->place({edge.left, edge.top, place.right - place.left - edge.right,
                  place.bottom - place.top - edge.bottom});
}

}  // namespace korvane::win32
