#include "desk/cues/ShowRun.h"

#include <algorithm>
#include <map>

#include "desk/cues/Rehearsal.h"

namespace korvane {
namespace {

const ShowStage::Row* rowNamed(const std::vector<ShowStage::Row>& rows, const std::string& name) {
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [&name](const ShowStage::Row& row) { return row.name == name; });
  return found == rows.end() ? nullptr : &*found;
}

void runGo(ShowRun& show, int) {
  show.automatic.setOn(false);
  show.cues.go();
}
void runBack(ShowRun& show, int) {
  show.automatic.setOn(false);
  show.cues.back();
}
void runPause(ShowRun& show, int) { show.cues.pause(); }
void runJump(ShowRun& show, int cue) {
  show.automatic.setOn(false);
  show.cues.jump(cue - 1);
}
void runNext(ShowRun& show, int cue) { show.cues.setNext(cue - 1); }
void runStop(ShowRun& show, int) { show.cues.stop(); }
void runRecord(ShowRun& show, int) { show.record(); }
void runAutoPlay(ShowRun& show, int) { show.startAutoPlay(!show.automatic.on()); }
void runTap(ShowRun& show, int) { show.tempo.tap(); }

constexpr ShowCommand kCommands[] = {
    {"cueGo", "Go", "start the next cue", "Space", false, runGo},
    {"cueBack", "Back", "start the cue before", "Backspace", false, runBack},
    {"cuePause", "Pause", "hold the time of the cue that is on, until pressed again", "Shift+Space",
     false, runPause},
    {"cueStop", "Stop", "no cue is on any more; what is on stays", "Ctrl+Space", false, runStop},
    {"cueJump", "Start", "start the selected cue", "", true, runJump},
    {"cueNext", "Make next", "let Go start the selected cue", "", true, runNext},
    {"cueRecord", "Record", "make a cue of what is on", "Ctrl+R", false, runRecord},
    {"autoPlay", "Automatic play", "change effects by itself, until pressed again", "Ctrl+Shift+A",
     false, runAutoPlay},
    {"tap", "Tap", "a beat by hand; several set the tempo", "Ctrl+T", false, runTap},
};

}  // namespace

std::span<const ShowCommand> showCommands() { return kCommands; }

const ShowCommand* showCommand(const std::string& name) {
  const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                  [&name](const ShowCommand& one) { return name == one.name; });
  return found == std::end(kCommands) ? nullptr : found;
}

bool runCommand(ShowRun& show, const std::string& name, int argument) {
  const ShowCommand* command = showCommand(name);
  if (command != nullptr) command->run(show, argument);
  return command != nullptr;
}

ShowRun::ShowRun(TimerQueue& timers, ShowStage& on)
    : stage(on), cues(timers, on, list), automatic(timers, on), tempo(timers) {
  tempo.onBeat = [this] { beat(); };
}

void ShowRun::clear() {
  automatic.setOn(false);
  automatic.set({});
  tempo.setBpm(0);
  list = {};
  cues.stop();
}

void ShowRun::followNames() {
  for (const ShowList which : kShowLists) {
    std::map<std::int16_t, std::string> names;
    for (ShowStage::Row& row : stage.rows(which)) names[row.slot] = std::move(row.name);
    for (Cue& cue : list.cues) {
      RowRef& ref = cue.row(which);
      const auto found = names.find(ref.slot);
      if (found != names.end()) ref.name = found->second;
    }
  }
}

void ShowRun::findRows() {
  for (const ShowList which : kShowLists) {
    const std::vector<ShowStage::Row> rows = stage.rows(which);
    for (Cue& cue : list.cues) {
      RowRef& ref = cue.row(which);
      if (ref.leaves()) continue;
      const bool stays = std::any_of(rows.begin(), rows.end(), [&ref](const ShowStage::Row& row) {
        return row.slot == ref.slot && row.name == ref.name;
      });
      if (stays) continue;
      const ShowStage::Row* found = rowNamed(rows, ref.name);
      ref.slot = found == nullptr ? RowRef::kGone : found->slot;
    }
  }
}

Cue ShowRun::recorded() const {
  Cue cue;
  for (const ShowList which : kShowLists) {
    const std::int16_t slot = stage.selected(which);
    for (const ShowStage::Row& row : stage.rows(which)) {
      if (row.slot == slot) cue.row(which) = {slot, row.name};
    }
  }
  const Side seen = stage.seen();
  cue.move = seen == Side::A ? Cue::Move::FadeLeft : Cue::Move::FadeRight;
  cue.master = stage.master();
  cue.name = cue.row(listOf(seen)).name;
  return cue;
}

int ShowRun::record() {
  const int at = cues.on() < 0 ? list.count() : cues.on() + 1;
  list.cues.insert(list.cues.begin() + at, recorded());
  cues.inserted(at);
  return at;
}

void ShowRun::startAutoPlay(bool on) {
  if (on && cues.on() >= 0 && !cues.paused()) cues.pause();
  automatic.setOn(on);
}

void ShowRun::beat() {
  cues.beat();
  automatic.beat();
}

void ShowRun::catchUp(std::int64_t milliseconds, bool automaticPlay) {
  Rehearsal rehearsal(stage);
  ShowRun run(rehearsal.timers, rehearsal);
  run.list = list;
  run.automatic.set(automatic.settings());
  run.tempo.setBpm(tempo.bpm());
  automaticPlay ? run.startAutoPlay(true) : run.cues.go();
  rehearsal.timers.advanceTo(milliseconds, [](const std::function<void()>& tick) { tick(); });
  rehearsal.bringTo(stage);
  automatic.setOn(false);
  cues.goOnFrom(run.cues.position());
  if (automaticPlay) automatic.goOnFrom(run.automatic.elapsed(), run.automatic.chance());
}

}  // namespace korvane
