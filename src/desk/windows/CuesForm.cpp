#include "desk/windows/CuesForm.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"

namespace korvane {
namespace {

constexpr Color kOnColor = rgb(0, 150, 60);
constexpr Color kNextColor = rgb(215, 120, 0);
constexpr Color kLostColor = rgb(130, 130, 130);
constexpr int kMostRowsOfList = 10000;

Look lookOf(const char* command) {
  const ShowCommand& one = *showCommand(command);
  return {.caption = one.caption, .toolTip = one.toolTip};
}

std::string moveText(const Cue& cue, bool there) {
  constexpr const char* kWays[] = {"", "fade left", "fade right", "cut left", "cut right"};
  std::string text = kWays[static_cast<std::size_t>(cue.move)];
  const RowRef& fade = cue.row(ShowList::Fades);
  if (cue.fades() && !fade.leaves()) text += ", " + rowText(fade, there);
  if (cue.master) text += (text.empty() ? "" : "; ") + std::to_string(*cue.master) + " %";
  return text;
}

// Minutes and seconds, the last ten seconds with their tenths.
std::string timeText(double seconds) {
  if (seconds < 10) {
    const int tenths = static_cast<int>(std::ceil(seconds * 10 - 1e-6));
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
  }
  const int whole = static_cast<int>(std::ceil(seconds - 1e-6));
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + ":" + (rest.size() < 2 ? "0" : "") + rest;
}

void showText(Control& control, const std::string& caption) {
  if (control.look().caption != caption) control.setCaption(caption);
}

}  // namespace

CuesForm::CuesForm(Engine& engine, ShowRun& run)
    : Form("Cues", "Cues"),
      now("now", {.caption = " ", .toolTip = "what is on, and how long it still takes"}),
      then("then", {.caption = " ", .toolTip = "what Go starts"}),
      list("cueList", {.toolTip = "the cues: a click selects one for editing, a double click "
                                  "starts it"}),
      go("go", lookOf("cueGo")),
      back("back", lookOf("cueBack")),
      pause("pause", lookOf("cuePause")),
      stop("stop", lookOf("cueStop")),
      jump("jump", lookOf("cueJump")),
      next("next", lookOf("cueNext")),
      record("record", lookOf("cueRecord")),
      add("addCue", Icon::Add, {.toolTip = "add a cue behind the selected one"}),
      remove("removeCue", Icon::Remove, {.toolTip = "remove the selected cue"}),
      up("upCue", Icon::Up, {.toolTip = "move the selected cue up"}),
      down("downCue", Icon::Down, {.toolTip = "move the selected cue down"}),
      duplicate("duplicateCue", {.caption = "Duplicate", .toolTip = "the selected cue once more"}),
      loop("loop", {.caption = "Loop", .toolTip = "the first cue follows the last"}),
      random("random", {.caption = "Random order",
                        .toolTip = "each cue once, in an order drawn anew for each round"}),
      guard("guard",
            {.toolTip = "a second Go within so many milliseconds is none, 0 to 5000",
             .label = "Go again after ms : "},
            "100", kTakenAtTheEnd),
      cueGroup("cueGroup", {.caption = "Selected cue"}),
      listGroup("listGroup", {.caption = "Order"}),
      autoGroup("autoGroup", {.caption = "Automatic play"}),
      tempoGroup("tempoGroup", {.caption = "Tempo"}),
      autoPlay("autoPlay", {.caption = "On",
                            .toolTip = "the hidden deck takes its next effect, and the next "
                                       "fade brings it up, again and again"}),
      every("every", {.toolTip = "time between two changes", .label = "Every : "}, "30",
            kTakenAtTheEnd),
      unit("unit", {.toolTip = "what is counted"}),
      autoRandom("autoRandom",
                 {.caption = "Random effect", .toolTip = "any other effect, not the next one"}),
      bpm("bpm",
          {.toolTip = "beats per minute, 20 to 300; 0: none by themselves",
           .label = "Beats per minute : "},
          "0", kTakenAtTheEnd),
      tap("tap", lookOf("tap")),
      engine_(engine),
      run_(run) {
  Form::add({&now, &then, &list, &add, &remove, &up, &down, &duplicate, &record, &cueGroup});
  Form::add(fields.controls());
  Form::add({&listGroup, &loop, &random, &guard, &autoGroup, &autoPlay, &autoRandom, &every, &unit,
             &tempoGroup, &bpm, &tap, &go, &back, &pause, &stop, &jump, &next});
  unit.setItems({"seconds", "beats"});
  list.setColumns({{.title = "", .width = 0.09, .colored = true},
                   {.title = "Cue", .width = 0.23, .editable = true},
                   {.title = "Left", .width = 0.17},
                   {.title = "Right", .width = 0.17},
                   {.title = "Fader", .width = 0.2},
                   {.title = "Ends", .width = 0.14}});
  declareLayout();
  bindCommands();
  bindEditing();
  bindRows();
  bindOptions();
  bindAutomatic();
  onActivate = [this] { refresh(); };
  engine.desktop.add(*this);
}

void CuesForm::declareLayout() {
  const Layout order = boxed(listGroup, row({loop, random, Layout(guard, 1)}), 1);
  const Layout cues =
      column({Layout(list, 1), row({add, remove, up, down, duplicate, space(), record}),
              row({order, boxed(tempoGroup, row({bpm, tap}))})},
             1);
  const Layout automatic =
      boxed(autoGroup, column({row({autoPlay, autoRandom}), row({Layout(every, 1), unit})}));
  const Layout editing = column({boxed(cueGroup, fields.layout()), automatic, space()});
  setLayout(column({row({now, space(), then}), row({cues, editing}, 1),
                    row({Layout(go, 1), back, pause, stop, space(), jump, next})}));
}

bool CuesForm::selectedCue(int& cue) const {
  cue = list.current();
  return cue >= 0 && cue < run_.list.count();
}

std::vector<std::pair<Button*, const char*>> CuesForm::commands() {
  return {{&go, "cueGo"},     {&back, "cueBack"}, {&pause, "cuePause"},   {&stop, "cueStop"},
          {&jump, "cueJump"}, {&next, "cueNext"}, {&record, "cueRecord"}, {&tap, "tap"}};
}

void CuesForm::bindCommands() {
  for (const auto& [button, command] : commands()) {
    button->onClick = [this, name = command] {
      runCommand(run_, name, list.current() + 1);
      refresh();
    };
  }
  record.onClick = [this] {
    const int at = run_.record();
    refresh();
    list.select(at);
    refresh();
  };
  list.onDoubleClick = [this](int row) {
    runCommand(run_, "cueJump", row + 1);
    refresh();
  };
}

void CuesForm::insert(int at, Cue cue) {
  if (run_.list.count() >= kMostRowsOfList)
    return engine_.platform.messageBox("A list has at most 10000 cues.");
  run_.list.cues.insert(run_.list.cues.begin() + at, std::move(cue));
  run_.cues.inserted(at);
  refresh();
  list.select(at);
  refresh();
}

void CuesForm::remove_Click() {
  int cue = 0;
  if (!selectedCue(cue)) return;
  run_.list.cues.erase(run_.list.cues.begin() + cue);
  run_.cues.removed(cue);
  refresh();
}

void CuesForm::move(int by) {
  int cue = 0;
  if (!selectedCue(cue)) return;
  const int other = cue + by;
  if (other < 0 || other >= run_.list.count()) return;
  std::swap(run_.list.cues[static_cast<std::size_t>(cue)],
            run_.list.cues[static_cast<std::size_t>(other)]);
  run_.cues.exchanged(cue, other);
  list.select(other);
  refresh();
}

void CuesForm::bindEditing() {
  list.onClick = [this](int, int) { refresh(); };
  add.onClick = [this] {
    int cue = 0;
    const bool any = selectedCue(cue);
    insert(any ? cue + 1 : 0, {.name = "new cue"});
  };
  duplicate.onClick = [this] {
    int cue = 0;
    if (selectedCue(cue)) insert(cue + 1, run_.list.at(cue));
  };
  remove.onClick = [this] { remove_Click(); };
  up.onClick = [this] { move(-1); };
  down.onClick = [this] { move(1); };
  fields.onWrong = [this](const std::string& text) { engine_.platform.messageBox(text); };
  fields.onChange = [this](const Cue& edited) {
    int cue = 0;
    if (!selectedCue(cue)) return;
    run_.list.cues[static_cast<std::size_t>(cue)] = edited;
    run_.cues.changed(cue);
    refresh();
  };
}

void CuesForm::takeNumber(TextBox& box, double least, double most, const std::string& what,
                          const std::function<void(double)>& take) {
  if (filling_) return;
  const std::optional<double> number = parseEitherDecimal(box.text());
  if (number && *number >= least && *number <= most) {
    take(*number);
  } else {
    engine_.platform.messageBox(what + " is " + plainNumber(least) + " to " + plainNumber(most) +
                                ".");
  }
  refresh();
}

void CuesForm::bindOptions() {
  const auto order = [this] {
    if (filling_) return;
    run_.list.loop = loop.checked();
    run_.list.random = random.checked();
    run_.cues.reordered();
    refresh();
  };
  loop.onClick = random.onClick = order;
  guard.onChange = [this] {
    takeNumber(guard, 0, kMostGuard, "The time until Go counts again",
               [this](double ms) { run_.list.guard = static_cast<int>(ms); });
  };
}

void CuesForm::bindAutomatic() {
  autoPlay.onClick = [this] {
    if (filling_) return;
    run_.startAutoPlay(autoPlay.checked());
    refresh();
  };
  const auto set = [this](const auto& change) {
    if (filling_) return;
    AutoPlaySettings settings = run_.automatic.settings();
    change(settings);
    run_.automatic.set(settings);
    refresh();
  };
  autoRandom.onClick = [this, set] {
    set([this](AutoPlaySettings& settings) { settings.random = autoRandom.checked(); });
  };
  unit.onClick = [this, set] {
    set([this](AutoPlaySettings& settings) {
      settings.unit = static_cast<AutoPlaySettings::Unit>(std::max(unit.index(), 0));
      if (settings.unit == AutoPlaySettings::Unit::Beats)
        settings.every = std::clamp(std::round(settings.every), 1.0, double{kMostBeats});
    });
  };
  every.onChange = [this, set] {
    const bool beats = unit.index() == 1;
    takeNumber(every, beats ? 1 : kShortestCue, beats ? kMostBeats : kLongestCue,
               "The time between two changes", [&set](double time) {
                 set([time](AutoPlaySettings& settings) { settings.every = time; });
               });
  };
  bpm.onChange = [this] {
    takeNumber(bpm, 0, Tempo::kFastest, "The tempo",
               [this](double beats) { run_.tempo.setBpm(beats); });
  };
}

bool CuesForm::counting() const { return run_.cues.remaining() >= 0 || run_.automatic.on(); }

std::string CuesForm::left() const {
  const int on = run_.cues.on();
  const double remaining = run_.cues.remaining();
  if (remaining < 0) return "";
  const bool beats = run_.list.at(on).end == Cue::End::Beats;
  const std::string time = beats ? plainNumber(remaining) + " beats" : timeText(remaining);
  return (run_.cues.paused() ? "paused, " : "") + time;
}

std::string CuesForm::whatIsOn() const {
  if (run_.automatic.on()) {
    const bool beats = run_.automatic.settings().unit == AutoPlaySettings::Unit::Beats;
    const double remaining = run_.automatic.remaining();
    return "Automatic play: next effect in " +
           (beats ? plainNumber(remaining) + " beats" : timeText(remaining));
  }
  const int on = run_.cues.on();
  if (on < 0 || on >= run_.list.count()) return "No cue is on.";
  const std::string rest = left();
  return "On: " + std::to_string(on + 1) + "  " + run_.list.at(on).name +
         (rest.empty() ? "" : ", " + rest) + (rest.empty() && run_.cues.paused() ? ", paused" : "");
}

std::string CuesForm::whatIsNext() const {
  const int cue = run_.cues.next();
  if (cue < 0) return run_.list.count() == 0 ? "Record makes a cue of what is on." : "No next cue.";
  return "Next: " + std::to_string(cue + 1) + "  " + run_.list.at(cue).name;
}

void CuesForm::showRows() {
  std::vector<ListView::Row> rows;
  rows.reserve(run_.list.cues.size());
  const int on = run_.cues.on(), nextCue = run_.cues.next(), marked = list.selected();
  for (int i = 0; i < run_.list.count(); ++i) {
    const Cue& cue = run_.list.at(i);
    const auto text = [&](ShowList which) {
      const RowRef& row = cue.row(which);
      return rowText(row, row.leaves() || run_.stage.has(which, row.slot));
    };
    const RowRef& fade = cue.row(ShowList::Fades);
    const bool hasFade = fade.leaves() || run_.stage.has(ShowList::Fades, fade.slot);
    const bool lost = !run_.cues.playable(i);
    const std::string mark = i == on ? "\u25b6 on" : i == nextCue ? "next" : lost ? "lost" : "";
    ListView::Row row{mark,
                      {std::to_string(i + 1) + "  " + cue.name, text(ShowList::Left),
                       text(ShowList::Right), moveText(cue, hasFade), endText(cue)}};
    row.color = i == on ? kOnColor : i == nextCue ? kNextColor : kLostColor;
    row.selected = i == marked;
    rows.push_back(std::move(row));
  }
  list.setRows(std::move(rows));
  list.center(on);
  shownOn_ = on;
  shownNext_ = nextCue;
}

void CuesForm::showOptions() {
  filling_ = true;
  loop.setValue(run_.list.loop ? 1 : 0);
  random.setValue(run_.list.random ? 1 : 0);
  guard.setText(std::to_string(run_.list.guard));
  const AutoPlaySettings& settings = run_.automatic.settings();
  autoPlay.setValue(run_.automatic.on() ? 1 : 0);
  autoRandom.setValue(settings.random ? 1 : 0);
  every.setText(plainNumber(settings.every));
  unit.setIndex(static_cast<int>(settings.unit));
  bpm.setText(plainNumber(std::round(run_.tempo.bpm() * 10) / 10));
  filling_ = false;
  showText(pause, run_.cues.paused() ? "Go on" : showCommand("cuePause")->caption);
  int cue = 0;
  const bool any = selectedCue(cue);
  fields.show(any ? &run_.list.at(cue) : nullptr, run_.stage);
}

void CuesForm::refresh() {
  showRows();
  showOptions();
  keepTime();
}

void CuesForm::keepTime() {
  if (run_.cues.on() != shownOn_ || run_.cues.next() != shownNext_) return refresh();
  showText(now, whatIsOn());
  showText(then, whatIsNext());
  const int on = run_.cues.on();
  if (on < 0 || on >= list.count()) return;
  const std::string rest = left();
  const std::string text = rest.empty() ? endText(run_.list.at(on)) : rest;
  if (list.cell(on, 5) != text) list.setCell(on, 5, text);
}

}  // namespace korvane
