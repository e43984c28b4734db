#include "desk/output/LampFeed.h"

#include <utility>

namespace korvane {

void LampFeed::endOfPass(const Variablen& v) {
  if (!std::exchange(announced_, false)) return;
  if (!patch_.madeFrom(v.channelMap)) patch_ = Patch(v.channelMap);
  // A frame of another size was left behind when dimensioning failed.
  if (v.frameM.cols() == v.channelMap.codes().cols() &&
      v.frameM.rows() == v.channelMap.codes().rows())
    taken_ = patch_.take(v.frameM);
  send();
}

// A test has no layout, so no output's look acts on it.
void LampFeed::send() {
  const LevelledPicture show = stage_.pass(taken_, levels_);
  leaving_ = test_ ? LevelledPicture{*test_, 100} : show;
  outputs.show(leaving_);
}

void LampFeed::clear() {
  taken_ = {};
  stage_ = {};
  send();
}

WallPicture LampFeed::leaving() const { return OutputStage().pass(leaving_); }

void LampFeed::setTest(const std::optional<WallPicture>& test) {
  test_ = test;
  if (test_) test_->layout = nullptr;
  send();
}

void LampFeed::setLevels(const WallLevels& levels) {
  levels_ = levels;
  if (!announced_) send();
}

std::vector<std::string> LampFeed::news() {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    if (auto line = outputs.at(i).news()) lines.push_back(std::move(*line));
  }
  return lines;
}

}  // namespace korvane
