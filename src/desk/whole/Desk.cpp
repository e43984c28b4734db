#include "desk/whole/Desk.h"

#include <algorithm>

#include "desk/cues/CueSections.h"
#include "desk/project/WindowSection.h"
#include "desk/whole/ToolWindows.h"
#include "output/Preview.h"
#include "platform/Events.h"

namespace korvane {
namespace {

constexpr int kMonitorMilliseconds = 100;
constexpr int kCountdownMilliseconds = 100;
constexpr int kStateMilliseconds = 500;
constexpr std::size_t kMostChanges = 5;  // that are told of a show that was kept aside

constexpr int kMasterStep = 5;      // per cent a key
constexpr double kCurveStep = 0.1;  // gamma a key
constexpr int kShareStep = 5;       // per cent of a colour a key

// First argument of a view change.
constexpr std::int32_t kNarrowView = 1;
constexpr std::int32_t kFullView = 0;

void setCaption(Control& control, const std::string& caption) {
  if (control.look().caption != caption) control.setCaption(caption);
}

}  // namespace

Desk::Desk(Platform& machine, LampFeed& feed, const DeskPlaces& places)
    : session(machine, places.project),
      form(session.plugin.matrixForm, places.examples),
      question(engine().desktop),
      setup(engine().desktop, feed.outputs, [this] { return universesOfWall(); }),
      wiring(engine(), session.plugin.matrixConf),
      monitor(engine().desktop),
      helpWindow(engine().desktop, form.items()),
      mixer(session.plugin.dialogs.mixer),
      pictures(session),
      choices(places.choices, machine.disk(), form, mixer, pictures),
      files(session, form, question, places.recentShows, places.kept),
      cues(session.plugin, form),
      history(session.plugin, cues.run),
      keys(session.plugin, form, places.keys, machine.disk()),
      effectRows(session),
      fadeRows(session),
      feed_(feed),
      kept_(places.outputs, machine.disk()),
      refresh_(engine().timers, "timerDesk"),
      grid_{engine().v.matrixCols, engine().v.matrixRows} {
  engine().desktop.add(form);
  bindProject();
  bindHistory();
  bindWindows();
  bindPlay();
  bindLevels();
  takeOutputs();
  for (const auto& [button, command] : cues.form.commands()) keys.tellKey(*button, command);
  keys.tellKey(cues.form.autoPlay, "autoPlay");
  bindKeysOfDialogs(session.plugin);
  bindFields(session);
  bindExamples(places.examples);
  session.host.onPass = [this] { feed_.announce(); };
  refresh_.onTimer = [] {};
  files.keepAsIs();
}

void Desk::bindExamples(const std::vector<Example>& examples) {
  auto item = form.examples.begin();
  for (const Example& example : examples)
    (*item++)->onClick = [this, path = example.path] { files.open(path); };
}

void Desk::show() {
  engine().desktop.show(form);
  settle();
}

// What the desk keeps beside the show and its grid, a row each.
void Desk::bindProject() {
  for (Section& section : cueSections(cues.run)) files.project.add(std::move(section));
  form.quit.onClick = [this] { engine().desktop.close(form); };
  form.mayClose = [this] { return mayClose(); };
  files.project.add({"outputs", [this] { return toJson(setup.entries()); },
                     [this](const Member& member) {
                       if (member.given()) setup.takeAll(outputsOf(member));
                     },
                     Counts::OfItsOwn});
  files.project.add({"levels",
                     [this] { return toJson(WallLevels{.master = form.grandMaster.value()}); },
                     [this](const Member& member) {
                       if (member.given()) form.grandMaster.setValue(levelsOf(member).master);
                     },
                     Counts::Never});
  files.project.add({"wiring", [this] { return toJson(wiring.plan()); },
                     [this](const Member& member) {
                       if (member.given()) wiring.planPanel.show(wiringOf(member));
                     },
                     Counts::Never});
  files.project.add({"remote", [this] { return toJson(remote_); },
                     [this](const Member& member) { remote_ = remoteOf(member); }, Counts::Never});
  files.project.add(
      windowSection(engine().desktop, {&form, &cues.form, &setup, &monitor, &wiring, &helpWindow}));
}

void Desk::bindHistory() {
  files.version = [this] { return history.version(); };
  files.whatChanged = [this] { return history.newest(kMostChanges); };
  form.undo.onClick = [this] { history.undo(); };
  form.redo.onClick = [this] { history.redo(); };
  history.onGrid = [this] {
    grid_ = {engine().v.matrixCols, engine().v.matrixRows};  // its effects start anew by the step
    session.host.clearLevels();
    session.showGrid();
  };
}

void Desk::bindWindows() {
  Desktop& desktop = engine().desktop;
  form.tool.onClick = [this] { session.openTool(); };
  form.front.onClick = [this, &desktop] { desktop.show(form); };
  form.configure.onClick = [this] { session.plugin.plugIn.ITharnPlugin_Configure(); };
  form.wiring.onClick = [this, &desktop] { desktop.show(wiring); };
  wiring.onEscape = [this, &desktop] { desktop.close(wiring); };
  wiring.onTest = [this](const std::optional<WallPicture>& test) {
    testing_ = test.has_value();
    feed_.setTest(test);
  };
  wiring.onRewired = [this] {
    session.host.clearLevels();
    feed_.clear();
  };
  form.output.onClick = [this, &desktop] { desktop.show(setup); };
  form.channels.onClick = [this, &desktop] { desktop.show(monitor); };
  form.help.onClick = [this, &desktop] { desktop.show(helpWindow); };
  session.plugin.matrixForm.help.onClick = form.help.onClick;
  session.platform.onHelp = form.help.onClick;
}

void Desk::bindPlay() {
  form.beat.onClick = cues.run.tempo.onBeat = [this] { message(kMessageBeat); };
  form.narrow.onClick = [this] { message(kMessageViewChange, kNarrowView); };
  form.full.onClick = [this] { message(kMessageViewChange, kFullView); };
  form.blackout.onClick = [this] {
    levels_.blackout = !levels_.blackout;
    message(kMessageBlackout);
  };
  form.freeze.onClick = [this] {
    levels_.freeze = !levels_.freeze;
    message(kMessageFreeze);
  };
  form.dmx.onClick = [this] {
    CheckBox& active = session.plugin.matrixForm.active;
    if (!active.checked()) session.openTool();
    active.setValue(active.checked() ? 0 : 1);
  };
}

void Desk::bindLevels() {
  Slider& master = form.grandMaster;
  master.onChange = [this] { levels_.master = form.grandMaster.value(); };
  form.masterUp.onClick = [&master] { master.setValue(master.value() + kMasterStep); };
  form.masterDown.onClick = [&master] { master.setValue(master.value() - kMasterStep); };
  const auto bend = [this](double by) {
    setup.changeLook([by](OutputLook& look) { look.bendCurve(by); });
  };
  form.steeper.onClick = [bend] { bend(kCurveStep); };
  form.flatter.onClick = [bend] { bend(-kCurveStep); };
  std::size_t color = 0;
  for (CommandItem* less : {&form.lessRed, &form.lessGreen, &form.lessBlue})
    less->onClick = [this, at = color++] {
      setup.changeLook([at](OutputLook& look) { look.shiftShare(at, -kShareStep); });
    };
  form.whiteBack.onClick = [this] {
    setup.changeLook([](OutputLook& look) { look.balance = OutputLook().balance; });
  };
}

// The outputs of the last time.
void Desk::takeOutputs() {
  for (const OutputEntry& entry : kept_.entries()) setup.take(entry);
  setup.off.setIndex(kept_.whenOff());
  setup.onKept = [this] { kept_.keep(setup.entries(), setup.off.index()); };
}

bool Desk::command(const std::string& name, int argument) {
  const auto* item = dynamic_cast<CommandItem*>(form.find(name));
  if (item == nullptr || !item->look().enabled) return false;
  if (argument > 0 && runCommand(cues.run, name, argument)) return true;
  item->onClick();
  return true;
}

// The plug-in answers some messages with a box; what they mean is done here, so nobody needs it.
void Desk::message(std::int32_t number, std::int32_t argument) {
  session.platform.quietly(
      [&] { session.plugin.plugIn.ITharnPlugin_MessageHandle(number, argument, 0); });
  if (number == kMessageBeat) cues.run.beat();
}

// The lamps would lose their light with the desk, so a running output is not ended by the way.
bool Desk::mayClose() {
  if (closing_) return true;
  if (!sending()) {
    files.leave([this] { close(); });
    return closing_;
  }
  question.ask("The matrix is sending to the lamps. Close the desk all the same?",
               {"Close", "Close, lamps hold", "Cancel"}, [this](std::size_t answer) {
                 if (answer == 2) return;
                 files.leave([this, answer] {
                   close(answer == 1 ? std::optional(AtEnd::Hold) : std::nullopt);
                 });
               });
  return false;
}

void Desk::close(std::optional<AtEnd> how) {
  closing_ = true;
  files.end();
  finish(how);
  if (onQuit) onQuit();
}

void Desk::finish(std::optional<AtEnd> how) {
  feed_.setTest({});
  feed_.outputs.switchAllOff(how);
}

void Desk::settle() {
  if (noted_ == session.loads()) history.played();
  showAll();
}

void Desk::showAll() {
  followGrid();
  followDmx();
  send();
  cues.settle();
  pictures.settle(engine().timers.now());
  keepTime();
  showState();
  files.keepAside(engine().timers.now());
}

void Desk::refresh() {
  cues.refresh();
  keys.refresh();
  effectRows.refresh();
  fadeRows.refresh();
  showAll();
  followShow();
  files.noteEvent(engine().timers.now());
  files.showTitle();
  setCaption(form.wrong, whatIsWrong());
}

// DMX that goes off, by its check box or with the tool, leaves nothing lit by accident.
void Desk::followDmx() {
  const bool active = engine().v.outputActive;
  if (active == wasActive_) return;
  wasActive_ = active;
  dark_ = !active && setup.whenOff() == OutputSetup::WhenOff::Dark;
  if (active || setup.whenOff() != OutputSetup::WhenOff::Ask || !setup.sending()) return;
  question.ask("DMX is off. What shall the lamps do?", {"Go dark", "Hold"},
               [this](std::size_t answer) { dark_ = answer == 0; });
}

// A grid that gets another size, or is left by OK, has empty pictures.
void Desk::followGrid() {
  if (session.loading()) return;
  const Variablen& v = engine().v;
  const std::pair<int, int> now{v.matrixCols, v.matrixRows};
  const bool open = session.plugin.matrixConf.visible();
  const bool left = gridOpen_ && !open;
  gridOpen_ = open;
  const bool loaded = loads_ != session.loads();  // a show starts its effects by itself
  if (now == grid_ && !left && !loaded) return;
  const bool size = now != grid_;
  grid_ = now;
  loads_ = session.loads();
  if (!session.plugin.matrixForm.loaded()) return;
  if (loaded) {
    if (size) fitPreviews(engine());
    return;
  }
  if (size) fitPictures(engine());
  session.selectRowsAgain();
}

// What an event has changed is a step that can be taken back.
void Desk::followShow() {
  noted_ == session.loads() ? history.note() : history.begin();
  noted_ = session.loads();
  const auto show = [](MenuItem& item, const std::string& word, const std::string& step) {
    setCaption(item, step.empty() ? word : word + ": " + step);
    if (item.look().enabled == step.empty()) item.setEnabled(!step.empty());
  };
  show(form.undo, "Undo", history.undoName());
  show(form.redo, "Redo", history.redoName());
}

void Desk::send() {
  WallLevels now = levels_;
  now.blackout = now.blackout || dark_;
  if (now != feed_.levels()) feed_.setLevels(now);
  feed_.endOfPass(engine().v);
  if (monitor.visible()) monitor.take(feed_, universesOfWall());
}

int Desk::universesOfWall() {
  const Variablen& v = engine().v;
  std::int32_t last = 1;
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) {
      for (const std::int32_t code : v.channelMap.at(col, row))
        last = std::max(last, std::min(code, kLastWallCode));
    }
  }
  return (last - 1) / kUniverseChannels + 1;
}

// A load of the tool's window stops all timers and gives them its own interval.
void Desk::keepTime() {
  const int wanted = monitor.visible() ? kMonitorMilliseconds
                     : cues.counting() ? kCountdownMilliseconds
                                       : pictures.wanted().value_or(kStateMilliseconds);
  if (refresh_.enabled() && refresh_.interval() == wanted) return;
  refresh_.setInterval(wanted);
  refresh_.enable();
}

void Desk::showState() {
  if (monitor.visible()) monitor.refresh(engine().timers.now());
  if (setup.visible()) setup.refresh();
  form.blackout.setLit(levels_.blackout);
  form.freeze.setLit(levels_.freeze);
  form.dmx.setLit(engine().v.outputActive);
  const bool open = session.plugin.matrixForm.visible();
  if (form.begin.look().visible == open) form.begin.setVisible(!open);
  setCaption(form.sent, whatIsSent());
}

std::string Desk::whatIsSent() {
  if (!setup.sending()) return "Nothing is sent: no output is on.";
  const auto state = [this]() -> std::string {
    if (testing_) return "The lamp test is on";
    if (levels_.blackout) return "Blackout: all lamps are dark";
    if (levels_.freeze) return "Freeze: the lamps hold what they show";
    if (engine().v.outputActive)
      return levels_.master == kFullMaster
                 ? ""
                 : "grand master at " + std::to_string(levels_.master) + " %";
    return dark_ ? "DMX is off, the lamps are dark" : "DMX is off";
  }();
  return setup.target() + (state.empty() ? "" : ". " + state);
}

// Lamps with a channel that no output carries.
std::string Desk::darkLamps() {
  const std::vector<bool> lit = setup.universesSent();
  if (lit.empty()) return {};
  const Variablen& v = engine().v;
  int dark = 0;
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) {
      const ChannelMap::Codes& codes = v.channelMap.at(col, row);
      dark += std::any_of(codes.begin(), codes.end(), [&lit](std::int32_t code) {
        const auto channel = wallChannel(code);
        return code > kLastWallCode ||
               (channel && !lit[static_cast<std::size_t>(channel->universe)]);
      });
    }
  }
  if (dark == 0) return {};
  return std::to_string(dark) + " of " + std::to_string(v.matrixCols * v.matrixRows) +
         " lamps stay dark: no output carries their universe.";
}

std::string Desk::whatIsWrong() {
  std::string text = kept_.fault();
  for (const std::string& one :
       {files.fault(), keys.bindings.fault(), setup.fault(), darkLamps()}) {
    if (one.empty()) continue;
    if (!text.empty()) text += text.back() == '.' ? " " : ". ";
    text += one;
  }
  return text;
}

}  // namespace korvane
