#include "desk/whole/DeskChoices.h"

#include <utility>
#include <vector>

#include "platform/Text.h"

namespace korvane {
namespace {

constexpr const char* kRecentColors = "recent-colours";

}  // namespace

DeskChoices::DeskChoices(const std::string& file, Disk& disk, MixerParts& mixer)
    : kept_(file, disk), mixer_(mixer) {
  bindColors();
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
