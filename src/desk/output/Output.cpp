#include "desk/output/Output.h"

#include <utility>

namespace korvane {
namespace {

using std::chrono::steady_clock;

constexpr auto kLookAgain = std::chrono::seconds(1);  // for another program that sends there

TimePoint clockNow() { return steady_clock::now(); }

/// Names of what an output sends to: equal for programs that meet there.
std::vector<std::string> placesOf(const OutputConfig& config) {
  const std::string to = std::string(rowOf(config.kind).word) + "/" +
                         (config.toNodes ? "nodes" : config.address) + ":" +
                         std::to_string(config.port) + "%" + config.interface + "/";
  if (config.routes.empty()) return {to};
  std::vector<std::string> places;
  for (const Route& route : config.routes) places.push_back(to + std::to_string(route.universe));
  return places;
}

/// Whether they differ in nothing that the thread of an output knows.
bool sendsAlike(OutputConfig one, const OutputConfig& other) {
  one.name = other.name;
  one.look = other.look;
  one.atEnd = other.atEnd;
  return one == other;
}

}  // namespace

Output::Output(OutputConfig config, const SenderIdentity& identity, Network& network)
    : config_(std::move(config)), identity_(identity), network_(network), news_(title()) {
  stage_.setLook(config_.look);
  newest_ = pictureFor(config_, {});
}

void Output::configure(const OutputConfig& config) {
  if (config == config_) return;
  const OutputConfig old = std::exchange(config_, config);
  const bool wasOn = on();
  const bool restarts = wasOn && !sendsAlike(old, config);
  news_ = ErrorNews(title());
  stage_.setLook(config_.look);
  if (!restarts) return show(LevelledPicture(wall_));
  if (placesOf(old) == placesOf(config)) {
    {
      const std::lock_guard lock(mutex_);
      leaving_ = true;
    }
    stop();
  } else {
    beginEnd(old.atEnd);
    stop();
  }
  newest_ = pictureFor(config_, stage_.pass(wall_));
  switchOn();
}

void Output::switchOn() {
  if (on()) return;
  for (const std::string& place : placesOf(config_)) claims_.emplace_back(place, Claim(place));
  next_.reset();
  ending_.reset();
  leaving_ = false;
  figures_ = {};
  figures_.concern = rival();
  // The thread has settings of its own from the start: these may change before it runs.
  Sender sender(config_, makeCarrier(config_, identity_, network_), newest_);
  thread_ = std::thread([this, own = std::move(sender)]() mutable { run(std::move(own)); });
}

void Output::beginEnd(std::optional<AtEnd> how) {
  {
    const std::lock_guard lock(mutex_);
    if (!ending_) ending_ = how.value_or(config_.atEnd);
  }
  wake_.notify_one();
}

void Output::switchOff() {
  if (!on()) return;
  beginEnd();
  stop();
}

void Output::stop() {
  wake_.notify_one();
  thread_.join();
  claims_.clear();
}

void Output::show(const LevelledPicture& wall) {
  wall_ = wall;
  OutputPicture picture = pictureFor(config_, stage_.pass(wall));
  if (picture == newest_) return;
  newest_ = picture;
  if (!on()) return;
  {
    const std::lock_guard lock(mutex_);
    if (!next_) shownAt_ = clockNow();
    next_ = std::move(picture);
  }
  wake_.notify_one();
}

/// The sender's thread. The lock is not held while anything is sent.
void Output::run(Sender sender) {
  std::string rival = this->rival();
  TimePoint lookedAt = clockNow();
  std::unique_lock lock(mutex_);
  while (!sender.ended() && !leaving_) {
    if (auto picture = std::exchange(next_, std::nullopt))
      sender.show(std::move(*picture), shownAt_);
    if (ending_) sender.end(*ending_);
    const TimePoint due = sender.due();
    if (!sender.ended() && clockNow() >= due) {
      lock.unlock();
      sender.step(clockNow(), clockNow);
      OutputFigures figures = sender.figures(clockNow());
      if (!rival.empty() && clockNow() - lookedAt >= kLookAgain) {
        claimAgain();  // the other one may have ended
        rival = this->rival();
        lookedAt = clockNow();
      }
      if (figures.concern.empty()) figures.concern = rival;
      lock.lock();
      figures_ = std::move(figures);
    } else if (!sender.ended() && !next_) {
      wake_.wait_until(lock, due);
    }
  }
}

void Output::claimAgain() {
  for (auto& [place, claim] : claims_) {
    if (claim.held()) continue;
    Claim again(place);
    if (again.held()) claim = std::move(again);  // else the name that was told stays
  }
}

/// Another program of this machine that sends to the same place, in words.
std::string Output::rival() const {
  for (const auto& [place, claim] : claims_) {
    if (!claim.held() && !claim.holder().empty())
      return claim.holder() + " sends there already: the lamps may flicker";
  }
  return {};
}

OutputFigures Output::figures() const {
  const std::lock_guard lock(mutex_);
  return figures_;
}

std::string Output::status() const {
  if (!on()) return "off";
  const std::string problem = figures().problem();
  return title() + (problem.empty() ? "" : ": " + problem);
}

// What its last packets met is told of an output that has ended, too.
std::optional<std::string> Output::news() { return news_.of(figures().problem()); }

}  // namespace korvane
