#include "desk/windows/ChannelMonitor.h"

#include <algorithm>
#include <utility>

namespace korvane {
namespace {

constexpr PictureBox::Size kSize{LevelPicture::kCols * 24, LevelPicture::kRows * 22,
                                 PictureBox::Sizing::Grow};
constexpr Color kGround = rgb(0x16, 0x18, 0x1c);
constexpr const char* kHint =
    "Channel 1 is at the upper left, 32 to a row. Point at one for its level.";

constexpr std::int64_t kLeastGap = 80;     // ms between two paintings of the levels
constexpr std::size_t kLampsOfView = 170;  // of an output without universes

std::string number(std::size_t value) { return std::to_string(value); }

}  // namespace

ChannelMonitor::ChannelMonitor(Desktop& desktop)
    : Form("DeskChannels", "Channels"),
      universe("universe",
               {.toolTip = "the wall's universes as they leave the desk, behind grand "
                           "master, blackout and freeze; or, behind its curve and white "
                           "balance too, the bytes that an output sends",
                .label = "Shows : "}),
      levels("levels", kSize, {.toolTip = "the levels of the universe"}, kGround),
      channel("channel", {.caption = kHint}),
      picture_(levels) {
  add({&universe, &levels, &channel});
  setLayout(column({row({Layout(universe, 1), space()}), Layout(levels, 1), channel}));
  levels.onMouseMove = [this](int x, int y) { tell(x, y); };
  setViews({{"wall, universe 1"}});
  viewed_ = views_.front();
  desktop.add(*this);
}

std::vector<ChannelMonitor::View> ChannelMonitor::viewsOf(const LampFeed& feed, int universes) {
  std::vector<View> views;
  for (int part = 0; part < std::max(1, universes); ++part)
    views.push_back({"wall, universe " + std::to_string(part + 1), -1, part});
  for (std::size_t at = 0; at < feed.outputs.size(); ++at) {
    const Output& output = feed.outputs.at(at);
    const OutputConfig& config = output.config();
    const std::string whose =
        number(at + 1) + ". " +
        (config.name.empty() ? std::string(rowOf(config.kind).name) : config.name);
    int part = 0;
    for (const Route& route : config.routes)
      views.push_back(
          {whose + ", universe " + std::to_string(route.universe), static_cast<int>(at), part++});
    const std::size_t lamps = output.newest().lamps.size();
    for (std::size_t first = 0; first < lamps; first += kLampsOfView)
      views.push_back({whose + ", lamps " + number(first + 1) + " to " +
                           number(std::min(lamps, first + kLampsOfView)),
                       static_cast<int>(at), part++});
  }
  return views;
}

Slots ChannelMonitor::slotsOf(const LampFeed& feed, const View& view) {
  if (view.output < 0) return feed.leaving().universe(view.part + 1);
  const OutputPicture& picture = feed.outputs.at(static_cast<std::size_t>(view.output)).newest();
  const auto part = static_cast<std::size_t>(view.part);
  if (part < picture.universes.size()) return picture.universes[part];
  Slots slots{};
  const std::size_t first = part * kLampsOfView;
  for (std::size_t lamp = first; lamp < std::min(picture.lamps.size(), first + kLampsOfView);
       ++lamp)
    std::ranges::copy(picture.lamps[lamp],
                      slots.begin() + static_cast<std::ptrdiff_t>(3 * (lamp - first)));
  return slots;
}

// The entry that is shown stays so while it is there.
void ChannelMonitor::setViews(std::vector<View> views) {
  if (views == views_) return;
  const std::string shown = universe.text();
  views_ = std::move(views);
  std::vector<std::string> names;
  for (const View& view : views_) names.push_back(view.name);
  const auto found = std::ranges::find(names, shown);
  const auto index = found == names.end() ? 0 : found - names.begin();
  universe.setItems(std::move(names));
  universe.setIndex(static_cast<int>(index));
}

void ChannelMonitor::take(const LampFeed& feed, int universes) {
  setViews(viewsOf(feed, universes));
  const View& view = views_[static_cast<std::size_t>(universe.index())];
  const bool same = view == viewed_;
  viewed_ = view;
  const Slots fresh = slotsOf(feed, view);
  for (std::size_t at = 0; at < fresh.size(); ++at) {
    if (fresh[at] == taken_[at]) continue;
    const int number = static_cast<int>(at) + 1;
    picture_.setLevel(number, fresh[at]);
    if (same) picture_.mark(number);
  }
  taken_ = fresh;
}

void ChannelMonitor::refresh(std::int64_t now) {
  if (painted_ && now >= *painted_ && now - *painted_ < kLeastGap) return;
  painted_ = now;
  picture_.refresh(now);
}

void ChannelMonitor::tell(int x, int y) {
  const int at = picture_.channelAt(x, y);
  channel.setCaption(at == 0 ? kHint
                             : "Channel " + std::to_string(at) + ": " +
                                   std::to_string(taken_[static_cast<std::size_t>(at - 1)]));
}

}  // namespace korvane
