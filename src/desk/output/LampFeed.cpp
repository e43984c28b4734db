#include "desk/output/LampFeed.h"

#include <utility>

namespace korvane {

void LampFeed::endOfPass(const Variablen& v) {
  if (!std::exchange(announced_, false)) return;
  if (!patch_.madeFrom(v.channelMap)) patch_ = Patch(v.channelMap);
  // A frame of another size was left behind when dimensioning failed.
  if (v.frameM.cols() != v.channelMap.codes().cols() ||
      v.frameM.rows() != v.channelMap.codes().rows())
    return;
  taken_ = patch_.take(v.frameM);
  send();
}

// A test has no layout, so no output's look acts on it.
void LampFeed::send() {
  const LevelledPicture show = stage_.pass(taken_, levels_);
  outputs.show(test_ ? LevelledPicture{*test_, 100} : show);
}

void LampFeed::setTest(const std::optional<WallPicture>& test) {
  test_ = test;
  if (test_) test_->layout = nullptr;
  send();
}

void LampFeed::setLevels(const WallLevels& levels) {
  levels_ = levels;
  send();
}

std::vector<std::string> LampFeed::news() {
  for (std::size_t i = news_.size(); i < outputs.size(); ++i) {
    const OutputConfig& config = outputs.at(i).config();
    news_.emplace_back(config.name.empty() ? describe(config) : config.name);
  }
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    if (!outputs.at(i).on()) continue;
    if (auto line = news_[i].of(outputs.at(i).figures().problem()))
      lines.push_back(std::move(*line));
  }
  return lines;
}

}  // namespace korvane
