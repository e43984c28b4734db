#include "desk/whole/DeskChoices.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/Text.h"

namespace korvane {
namespace {

constexpr const char* kRecentColors = "recent-colours";
constexpr const char* kPictures = "pictures";
constexpr const char* kOn = "on";
constexpr const char* kOff = "off";
constexpr const char* kLook = "look";
constexpr std::array<const char*, 3> kLooks = {"system", "light", "dark"};

}  // namespace

DeskChoices::DeskChoices(const std::string& file, Disk& disk, DeskForm& form, MixerParts& mixer,
                         RowPictures& pictures)
    : kept_(file, disk), form_(form), mixer_(mixer), pictures_(pictures) {
  bindColors();
  bindLooks();
  bindPictures();
}

void DeskChoices::bindPictures() {
  const auto show = [this](bool on) {
    pictures_.setOn(on);
    form_.pictures.setLit(on);
  };
  show(kept_.get(kPictures) != kOff);
  form_.pictures.onClick = [this, show] {
    show(!pictures_.on());
    kept_.set(kPictures, pictures_.on() ? kOn : kOff);
  };
}

void DeskChoices::bindLooks() {
  const std::string kept = kept_.get(kLook);
  take(WindowLook::System);
  for (std::size_t i = 0; i < kLooks.size(); ++i) {
    const auto look = static_cast<WindowLook>(i);
    if (kept == kLooks[i]) take(look);
    form_.looks[i].onClick = [this, look, i] {
      take(look);
      kept_.set(kLook, kLooks[i]);
      if (onLook) onLook();
    };
  }
}

void DeskChoices::take(WindowLook look) {
  look_ = look;
  for (std::size_t i = 0; i < kLooks.size(); ++i)
    form_.looks[i].setLit(look == static_cast<WindowLook>(i));
}

void DeskChoices::bindColors() {
  std::vector<Color> colors;
  for (const std::string& word : split(kept_.get(kRecentColors), ' ')) {
    if (const auto color = parseHex(word)) colors.push_back(*color);
  }
  mixer_.setRecentColors(std::move(colors));
  mixer_.onRecent = [this] {
    std::string words;
    for (const Color color : mixer_.recentColors())
      words += (words.empty() ? "" : " ") + hexText(color);
    kept_.set(kRecentColors, words);
  };
}

}  // namespace korvane
