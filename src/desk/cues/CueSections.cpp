#include "desk/cues/CueSections.h"

#include <algorithm>
#include <array>
#include <optional>

namespace korvane {
namespace {

constexpr std::array<const char*, 3> kListNames = {"left", "right", "fade"};
constexpr std::array<const char*, 5> kMoves = {"none", "fade left", "fade right", "cut left",
                                               "cut right"};
constexpr std::array<const char*, 4> kEnds = {"by hand", "seconds", "beats", "fade done"};
constexpr std::array<const char*, 2> kUnits = {"seconds", "beats"};
constexpr std::array<const char*, 2> kSides = {"left", "right"};
constexpr int kMostRow = 255;
constexpr int kMostCues = 100000;

using ShowRows = std::array<std::vector<ShowStage::Row>, 3>;

ShowRows rowsOf(const ShowStage& stage) {
  ShowRows all;
  for (const ShowList list : kShowLists) all[static_cast<std::size_t>(list)] = stage.rows(list);
  return all;
}

Json toJson(const RowRef& ref, const std::vector<ShowStage::Row>& rows) {
  if (ref.leaves()) return {};
  const auto found = std::find_if(
      rows.begin(), rows.end(), [&ref](const ShowStage::Row& row) { return row.slot == ref.slot; });
  Json json;
  json["row"] = found == rows.end() ? Json() : Json(found - rows.begin());
  json["name"] = found == rows.end() ? ref.name : found->name;
  return json;
}

RowRef rowOf(const Member& member, const std::vector<ShowStage::Row>& rows) {
  if (!member.given()) return {};
  RowRef ref{RowRef::kGone};
  int row = -1;
  member["name"].take(ref.name);
  member["row"].take(row, 0, kMostRow);
  const auto named = [&ref](const ShowStage::Row& one) { return one.name == ref.name; };
  auto found = rows.end();
  if (row >= 0 && std::cmp_less(row, rows.size()) && named(rows[static_cast<std::size_t>(row)]))
    found = rows.begin() + row;
  if (found == rows.end()) found = std::find_if(rows.begin(), rows.end(), named);
  if (found != rows.end()) ref.slot = found->slot;
  return ref;
}

Json toJson(const Cue& cue, const ShowRows& rows) {
  Json json = {{"name", cue.name}};
  for (std::size_t list = 0; list < rows.size(); ++list)
    json[kListNames[list]] = toJson(cue.rows[list], rows[list]);
  json["move"] = wordOf(kMoves, cue.move);
  json["master"] = cue.master ? Json(*cue.master) : Json();
  json["end"] = wordOf(kEnds, cue.end);
  json["after"] = cue.after;
  return json;
}

Cue cueOf(const Member& member, const ShowRows& rows) {
  Cue cue;
  member["name"].take(cue.name);
  for (std::size_t list = 0; list < rows.size(); ++list)
    cue.rows[list] = rowOf(member[kListNames[list]], rows[list]);
  takeEnum(member["move"], cue.move, kMoves);
  int master = 0;
  if (member["master"].take(master, 0, 100)) cue.master = master;
  takeEnum(member["end"], cue.end, kEnds);
  const bool beats = cue.end == Cue::End::Beats;
  member["after"].take(cue.after, beats ? 1 : kShortestCue, beats ? kMostBeats : kLongestCue);
  return cue;
}

Json toJson(const CueList& list, const ShowStage& stage) {
  Json cues = Json::array();
  const ShowRows rows = rowsOf(stage);
  for (const Cue& cue : list.cues) cues.push_back(toJson(cue, rows));
  return {{"loop", list.loop}, {"random", list.random}, {"guard", list.guard}, {"list", cues}};
}

void read(const Member& member, ShowRun& run) {
  CueList list;
  member["loop"].take(list.loop);
  member["random"].take(list.random);
  member["guard"].take(list.guard, 0, kMostGuard);
  const ShowRows rows = rowsOf(run.stage);
  member["list"].each([&](const Member& one) { list.cues.push_back(cueOf(one, rows)); });
  run.list = list;
  run.cues.stop();
}

Json toJson(const AutoPlaySettings& settings) {
  return {{"every", settings.every},
          {"unit", wordOf(kUnits, settings.unit)},
          {"random", settings.random}};
}

void read(const Member& member, AutoPlay& automatic) {
  AutoPlaySettings settings;
  takeEnum(member["unit"], settings.unit, kUnits);
  const bool beats = settings.unit == AutoPlaySettings::Unit::Beats;
  member["every"].take(settings.every, beats ? 1 : kShortestCue, beats ? kMostBeats : kLongestCue);
  member["random"].take(settings.random);
  automatic.setOn(false);
  automatic.set(settings);
}

void read(const Member& member, Tempo& tempo) {
  double bpm = 0;
  if (member["bpm"].given() && member["bpm"].take(bpm, 0, Tempo::kFastest) && bpm > 0 &&
      bpm < Tempo::kSlowest)
    member["bpm"].wrong("0, or a number from 20 to 300");
  tempo.setBpm(bpm);
}

}  // namespace

std::vector<Section> cueSections(ShowRun& run) {
  return {{"cues", [&run] { return toJson(run.list, run.stage); },
           [&run](const Member& member) { read(member, run); }},
          {"automatic", [&run] { return toJson(run.automatic.settings()); },
           [&run](const Member& member) { read(member, run.automatic); }},
          {"tempo",
           [&run] {
             return Json{{"bpm", run.tempo.bpm()}};
           },
           [&run](const Member& member) { read(member, run.tempo); }}};
}

namespace {

// The deck that is seen alone, or will be when the fade of the cue is done.
std::optional<Side> sideOf(const ShowRun& run) {
  const int on = run.cues.on();
  if (run.stage.fading() && on >= 0 && run.list.at(on).move != Cue::Move::None)
    return run.list.at(on).towards();
  const Side seen = run.stage.seen();
  return run.stage.standsAt(seen) ? std::optional(seen) : std::nullopt;
}

}  // namespace

Json toJson(const ShowRun& run) {
  const CuePosition at = run.cues.position();
  const ShowRows rows = rowsOf(run.stage);
  Json json = {{"on", at.on},
               {"next", at.next},
               {"elapsed", at.elapsed},
               {"beats", at.beats},
               {"paused", at.paused},
               {"round", at.round},
               {"chance", at.chance},
               {"automatic", run.automatic.on()},
               {"automaticElapsed", run.automatic.elapsed()},
               {"automaticChance", run.automatic.chance()}};
  for (const ShowList list : kShowLists) {
    const auto index = static_cast<std::size_t>(list);
    json[kListNames[index]] = toJson(RowRef{run.stage.selected(list)}, rows[index]);
  }
  const std::optional<Side> side = sideOf(run);
  json["seen"] = side ? Json(wordOf(kSides, *side)) : Json();
  json["master"] = run.stage.master();
  return json;
}

bool goOnFrom(ShowRun& run, const Member& member) {
  if (!member.given()) return false;
  CuePosition at;
  int elapsed = 0, chance = 1, automaticElapsed = 0, automaticChance = 1, master = 100;
  const int most = std::max(run.list.count() - 1, -1);
  member["on"].take(at.on, -1, most);
  bool automatic = false;
  member["automatic"].take(automatic);
  if (at.on < 0 && !automatic) return false;
  member["next"].take(at.next, -1, most);
  constexpr int kMostElapsed = static_cast<int>(kLongestCue) * 1000;
  member["elapsed"].take(elapsed, 0, kMostElapsed);
  member["beats"].take(at.beats, 0, kMostBeats);
  member["paused"].take(at.paused);
  member["round"].each([&](const Member& one) {
    int cue = 0;
    if (one.take(cue, 0, kMostCues)) at.round.push_back(cue);
  });
  member["chance"].take(chance, 0, std::numeric_limits<int>::max());
  at.elapsed = elapsed;
  at.chance = static_cast<std::uint64_t>(chance);
  const ShowRows rows = rowsOf(run.stage);
  for (const ShowList list : kShowLists) {
    const auto index = static_cast<std::size_t>(list);
    const RowRef row = rowOf(member[kListNames[index]], rows[index]);
    if (run.stage.has(list, row.slot)) run.stage.press(list, row.slot);
  }
  int side = 0;
  if (member["seen"].takeWord(side, kSides)) run.stage.cutTo(side == 0 ? Side::A : Side::B);
  if (member["master"].take(master, 0, 100)) run.stage.setMaster(master);
  run.automatic.setOn(false);
  run.cues.goOnFrom(at);
  member["automaticElapsed"].take(automaticElapsed, 0, kMostElapsed);
  member["automaticChance"].take(automaticChance, 0, std::numeric_limits<int>::max());
  if (automatic)
    run.automatic.goOnFrom(automaticElapsed, static_cast<std::uint64_t>(automaticChance));
  return true;
}

}  // namespace korvane
