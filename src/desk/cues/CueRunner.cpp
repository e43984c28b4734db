#include "desk/cues/CueRunner.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvane {
namespace {

constexpr std::size_t kMostPlayed = 10000;  // that Back goes through in random order
constexpr std::int64_t kLongAgo = std::numeric_limits<std::int64_t>::min() / 2;

// Where each cue of a list stands in another one, -1 for nowhere. One that was edited is told by
// its place.
std::vector<int> placesIn(const std::vector<Cue>& list, const std::vector<Cue>& other) {
  const auto count = list.size();
  std::vector<int> places(count, -1);
  std::vector<bool> taken(other.size());
  const auto take = [&](std::size_t cue, std::size_t place) {
    places[cue] = static_cast<int>(place);
    taken[place] = true;
  };
  std::size_t first = 0;
  for (; first < count && first < other.size() && list[first] == other[first]; ++first)
    take(first, first);
  for (std::size_t back = 1; back <= std::min(count, other.size()) - first; ++back) {
    if (list[count - back] != other[other.size() - back]) break;
    take(count - back, other.size() - back);
  }
  std::size_t near = first;  // rows that were moved together still follow each other
  for (std::size_t cue = first; cue < count; ++cue) {
    for (std::size_t i = 0; places[cue] < 0 && i < other.size(); ++i, ++near) {
      if (near >= other.size()) near = 0;
      if (!taken[near] && list[cue] == other[near]) take(cue, near);
    }
  }
  for (std::size_t cue = first; count == other.size() && cue < count; ++cue) {
    if (places[cue] < 0 && !taken[cue]) take(cue, cue);
  }
  return places;
}

}  // namespace

CueRunner::CueRunner(TimerQueue& timers, ShowStage& stage, CueList& list)
    : timers_(timers), stage_(stage), list_(list), timer_(timers, "timerCue"), lastGo_(kLongAgo) {
  timer_.onTimer = [this] { tick(); };
}

std::int64_t CueRunner::now() const {
  return timers_.clock ? std::max(timers_.now(), timers_.clock()) : timers_.now();
}

std::int64_t CueRunner::elapsed() const { return at_.paused ? at_.elapsed : now() - begin_; }

bool CueRunner::playable(int cue) const {
  if (cue < 0 || cue >= list_.count()) return false;
  const Cue& one = list_.at(cue);
  return std::all_of(kShowLists.begin(), kShowLists.end(), [&](ShowList list) {
    const RowRef& row = one.row(list);
    if (row.leaves() || (list == ShowList::Fades && !one.fades())) return true;
    return stage_.has(list, row.slot);
  });
}

int CueRunner::after(int cue) const {
  for (int step = 1; step <= list_.count(); ++step) {
    int next = cue + step;
    if (next >= list_.count()) {
      if (!list_.loop) return -1;
      next %= list_.count();
    }
    if (playable(next)) return next;
  }
  return -1;
}

int CueRunner::before(int cue) const {
  for (int step = 1; step <= list_.count(); ++step) {
    int previous = cue - step;
    if (previous < 0) {
      if (!list_.loop) return -1;
      previous += list_.count();
    }
    if (playable(previous)) return previous;
  }
  return -1;
}

// A round has each cue once, and doesn't begin with the one that ended the round before.
void CueRunner::deal() {
  Random random;
  random.seed(at_.chance++);
  const std::vector<std::int32_t> order = shuffled(random, list_.count());
  at_.round.assign(order.begin(), order.begin() + list_.count());
  if (!at_.round.empty() && at_.round.back() == at_.on)
    std::swap(at_.round.front(), at_.round.back());
}

int CueRunner::drawn() {
  while (!at_.round.empty()) {
    const int cue = at_.round.back();
    at_.round.pop_back();
    if (playable(cue)) return cue;
  }
  return -1;
}

int CueRunner::found() {
  if (!list_.random) return after(at_.on);
  const int cue = drawn();
  if (cue >= 0 || !list_.loop) return cue;
  deal();
  return drawn();
}

int CueRunner::next() const {
  return at_.next < 0 || playable(at_.next) ? at_.next : after(at_.next);
}

void CueRunner::go() {
  const std::int64_t time = now();
  if (time - lastGo_ < list_.guard) return;
  lastGo_ = time;
  if (at_.on < 0 && at_.next < 0) findNext();
  if (next() >= 0) start(next(), time);
}

void CueRunner::back() {
  if (list_.random) {
    if (played_.empty()) return;
    const int cue = played_.back();
    played_.pop_back();
    if (!playable(cue)) return back();
    start(cue, now());
    played_.pop_back();  // where it came from
    return;
  }
  const int cue = before(at_.on);
  if (at_.on >= 0 && cue >= 0) start(cue, now());
}

void CueRunner::jump(int cue) {
  if (playable(cue)) start(cue, now());
}

void CueRunner::setNext(int cue) {
  if (playable(cue)) at_.next = cue;
}

void CueRunner::stop() {
  timer_.disable();
  at_.on = at_.next = -1;
  at_.elapsed = at_.beats = 0;
  at_.paused = false;
  at_.round.clear();
  played_.clear();
  findNext();
}

void CueRunner::start(int cue, std::int64_t begin) {
  remember(cue);
  at_.on = cue;
  begin_ = begin;
  at_.elapsed = at_.beats = 0;
  at_.paused = false;
  at_.next = found();
  timer_.disable();
  wait();  // first, so that a failure on the stage doesn't end the run
  play(list_.at(cue));
}

// In random order: what comes to its turn by hand has had it, and what was passed by has not.
void CueRunner::remember(int cue) {
  if (!list_.random) return;
  if (at_.on < 0)
    deal();
  else
    played_.push_back(at_.on);
  if (played_.size() > kMostPlayed) played_.erase(played_.begin());
  if (at_.on >= 0 && at_.next >= 0) at_.round.push_back(at_.next);
  std::erase(at_.round, cue);
}

// An effect that is seen goes on; on the hidden deck it begins anew.
void CueRunner::play(const Cue& cue) {
  for (const Side side : {Side::A, Side::B}) {
    const RowRef& row = cue.row(listOf(side));
    if (row.leaves()) continue;
    const bool isOn = stage_.selected(listOf(side)) == row.slot;
    if (!isOn || stage_.standsAt(otherSide(side))) stage_.press(listOf(side), row.slot);
  }
  if (cue.master) stage_.setMaster(*cue.master);
  if (cue.move == Cue::Move::None) return;
  if (!cue.fades()) return stage_.cutTo(cue.towards());
  const RowRef& fade = cue.row(ShowList::Fades);
  if (!fade.leaves()) stage_.press(ShowList::Fades, fade.slot);
  stage_.fadeTo(cue.towards());
}

std::int64_t CueRunner::wholeTime() const {
  return static_cast<std::int64_t>(std::llround(list_.at(at_.on).after * 1000));
}

void CueRunner::wait() {
  if (at_.on < 0 || at_.on >= list_.count() || at_.paused) return;
  const Cue::End end = list_.at(at_.on).end;
  if (end != Cue::End::Seconds && end != Cue::End::FadeDone) return;
  const std::int64_t left = end == Cue::End::FadeDone ? kLookAtFade : wholeTime() - elapsed();
  timer_.setInterval(static_cast<std::int32_t>(std::max<std::int64_t>(left, kShortestStep)));
  timer_.enable();
}

// What it finds over at last follows at once; without a next cue it stays until there is one.
void CueRunner::tick() {
  timer_.disable();
  if (at_.on < 0 || at_.on >= list_.count()) return;
  const Cue::End end = list_.at(at_.on).end;
  if (end == Cue::End::Seconds) {
    if (elapsed() < wholeTime()) return wait();
    const std::int64_t planned = begin_ + wholeTime();
    return follow(now() - planned > kMostLate ? now() : planned);
  }
  if (end == Cue::End::FadeDone) stage_.fading() ? wait() : follow(now());
}

void CueRunner::follow(std::int64_t begin) {
  if (next() >= 0) start(next(), begin);
}

void CueRunner::beat() {
  if (at_.on < 0 || at_.paused || at_.on >= list_.count()) return;
  ++at_.beats;
  const Cue& cue = list_.at(at_.on);
  if (cue.end == Cue::End::Beats && at_.beats >= cue.after) follow(now());
}

void CueRunner::pause() {
  if (at_.on < 0) return;
  if (!at_.paused) {
    at_.elapsed = elapsed();
    at_.paused = true;
    return timer_.disable();
  }
  begin_ = now() - at_.elapsed;
  at_.paused = false;
  tick();
}

double CueRunner::remaining() const {
  if (at_.on < 0 || at_.on >= list_.count()) return -1;
  const Cue& cue = list_.at(at_.on);
  if (cue.end == Cue::End::FadeDone) return stage_.fadeLeft();
  if (cue.end == Cue::End::Seconds)
    return std::max(0.0, cue.after - static_cast<double>(elapsed()) / 1000);
  return cue.end == Cue::End::Beats ? std::max(0.0, cue.after - at_.beats) : -1;
}

CuePosition CueRunner::position() const {
  CuePosition position = at_;
  position.elapsed = at_.on < 0 ? 0 : elapsed();
  return position;
}

void CueRunner::goOnFrom(const CuePosition& position) {
  timer_.disable();
  at_ = position;
  if (at_.on >= list_.count()) at_.on = -1;
  if (at_.next >= list_.count()) at_.next = -1;
  std::erase_if(at_.round, [this](int cue) { return cue < 0 || cue >= list_.count(); });
  played_.clear();
  begin_ = now() - at_.elapsed;
  wait();
}

void CueRunner::changed(int cue) {
  if (cue != at_.on) return;
  timer_.disable();
  wait();
}

void CueRunner::mapped(const std::function<int(int)>& place) {
  for (int* cue : {&at_.on, &at_.next}) *cue = *cue < 0 ? -1 : place(*cue);
  for (std::vector<int>* cues : {&at_.round, &played_}) {
    for (int& cue : *cues) cue = place(cue);
    std::erase(*cues, -1);
  }
}

void CueRunner::inserted(int at) {
  const bool last = at == list_.count() - 1 && at_.on == at - 1;
  mapped([at](int cue) { return cue >= at ? cue + 1 : cue; });
  if (list_.random) {
    at_.round.insert(at_.round.begin(), at);
  } else if (last || at_.next == at + 1) {
    findNext();
  }
}

void CueRunner::removed(int at) {
  const int next = at_.next;
  mapped([at](int cue) {
    if (cue == at) return -1;
    return cue > at ? cue - 1 : cue;
  });
  if (at_.on < 0) timer_.disable();
  if (next == at) at_.next = list_.random ? found() : after(at - 1);
}

void CueRunner::exchanged(int one, int other) {
  mapped([one, other](int cue) {
    if (cue == one) return other;
    return cue == other ? one : cue;
  });
  if (!list_.random && at_.on >= 0) at_.next = after(at_.on);
}

void CueRunner::replaced(const CueList& before) {
  const std::vector<int> places = placesIn(before.cues, list_.cues);
  mapped([&places](int cue) { return places.at(static_cast<std::size_t>(cue)); });
  if (!list_.random || !before.random) {
    findNext();
  } else {
    for (int cue = 0; cue < list_.count(); ++cue) {
      if (std::ranges::find(places, cue) == places.end()) at_.round.insert(at_.round.begin(), cue);
    }
    if (at_.next < 0) at_.next = found();
  }
  timer_.disable();
  wait();
}

void CueRunner::findNext() {
  at_.round.clear();
  if (list_.random) {
    deal();
    std::erase(at_.round, at_.on);
  }
  at_.next = found();
}

void CueRunner::reordered() {
  findNext();
  if (!at_.paused) tick();
}

}  // namespace korvane
