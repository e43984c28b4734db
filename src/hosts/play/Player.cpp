#include "hosts/play/Player.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <utility>

#include "desk/cues/CueSections.h"
#include "desk/project/DeskProject.h"
#include "desk/project/Parts.h"
#include "desk/project/ShowPath.h"
#include "persistence/ProjectFile.h"
#include "platform/Events.h"
#include "platform/Signals.h"

#ifdef KORVANE_PICTURES
#include "views/shared/pictures/PictureFile.h"
#endif

namespace korvane {
namespace {

constexpr int kMasterStep = 5;        // per cent a key
constexpr double kCurveStep = 0.1;    // gamma a key
constexpr int kShareStep = 5;         // per cent a key
constexpr int kPictureInterval = 40;  // ms between two pictures in the terminal

std::int64_t universalTime() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::string cut(const std::string& text, int columns) {
  std::string line;
  const std::vector<std::string> all = characters(text);
  for (std::size_t at = 0; at < all.size() && std::cmp_less(at, columns); ++at) line += all[at];
  return line;
}

}  // namespace

Raster PlayerPlatform::loadPicture(const std::string& path) {
#ifdef KORVANE_PICTURES
  return readPicture(path);
#else  // without Qt no picture can be read
  return HeadlessPlatform::loadPicture(path);
#endif
}

Player::Player(const PlayOptions& options) : options_(options), host_(showPath(), feed_) {
  platform_.tell = [this](const std::string& text) { tell(text); };
  Variablen& v = plugin_.engine.v;
  for (PictureBox* preview : {&v.A.picture, &v.B.picture, &plugin_.engine.master.picture})
    preview->leaveBlank();
  bindRun();
}

void Player::bindRun() {
  stage_.getMaster = [this] { return feed_.levels().master; };
  stage_.putMaster = [this](int percent) {
    WallLevels levels = feed_.levels();
    levels.master = percent;
    feed_.setLevels(levels);
  };
  run_.tempo.onBeat = [this] {
    plugin_.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0);
    run_.beat();
  };
}

bool Player::hasCues() {
  if (options_.evening.what != EveningPlan::What::Cues || run_.list.count() > 0) return true;
  tell("there are no cues in " + projectOf(showPath().string()) + kDeskProjectEnding);
  return false;
}

std::filesystem::path Player::showPath() const {
  return std::filesystem::absolute(showOfProject(options_.show));
}

void Player::tell(const std::string& text) {
  messages_.tell(text, terminal_ && terminal_->hasPictures());
}

bool Player::event(const std::function<void()>& what) {
  const bool well = runEvent(platform_, what);
  feed_.endOfPass(plugin_.engine.v);
  return well;
}

// The lamps must not flash in the colours of a new list, so nothing is sent before all is there.
void Player::openShow() {
  plugin_.engine.desktop.show(plugin_.matrixForm);
  plugin_.matrixForm.panelA.clear.click();
  plugin_.matrixForm.panelB.clear.click();
  openProject(plugin_.engine, showPath().string());
}

// What the command line says is stronger than the project, and so are the outputs of a run that
// goes on.
void Player::takeProject() {
  const std::string own = projectOf(showPath().string()) + kDeskProjectEnding;
  const std::string path = options_.show.ends_with(kDeskProjectEnding) ? options_.show : own;
  DeskProject project;
  project.add({"levels", [] { return Json(); },
               [this](const Member& member) {
                 if (!options_.masterGiven) options_.levels.master = levelsOf(member).master;
               }});
  project.add({"outputs", [] { return Json(); },
               [this](const Member& member) {
                 if (!options_.outputs.empty() || options_.lastShow) return;
                 for (const OutputEntry& output : outputsOf(member)) {
                   if (output.on) options_.outputs.push_back(output.config);
                 }
               }});
  for (Section& section : cueSections(run_)) project.add(std::move(section));
  const std::string where = path + ": ";
  for (const std::string& fault : project.open(path)) tell(where + fault);
  if (options_.automatic) run_.automatic.set(*options_.automatic);
}

// What plays, and how: a row each.
void Player::bindState() {
  Variablen& v = plugin_.engine.v;
  Master& master = plugin_.engine.master;
  state_.add({"show", [this] { return Json(showPath().string()); }, [](const Member&) {}});
  state_.add({"outputs",
              [this] {
                std::vector<OutputEntry> entries;
                for (const OutputConfig& output : options_.outputs) entries.push_back({output});
                return toJson(entries);
              },
              [this](const Member& member) {
                if (!options_.outputs.empty()) return;
                for (const OutputEntry& entry : outputsOf(member))
                  options_.outputs.push_back(entry.config);
              }});
  state_.add(
      {"levels",
       [this] {
         return Json{{"master", feed_.levels().master}, {"blackout", feed_.levels().blackout}};
       },
       [this](const Member& member) {
         if (!options_.masterGiven) member["master"].take(options_.levels.master, 0, 100);
         member["blackout"].take(options_.levels.blackout);
       }});
  for (const auto& [name, list] :
       {std::pair("left", &v.A.efxList), std::pair("right", &v.B.efxList),
        std::pair("fade", &master.efxXList)})
    state_.add({name, [list = list] { return Json(list->current()); },
                [this, list = list](const Member& member) {
                  int row = 0;
                  if (member.take(row, 0, list->count() - 1)) event([&] { list->click(row, 0); });
                }});
  state_.add({"fader", [&master] { return Json(master.faderM.value()); },
              [this, &master](const Member& member) {
                int place = 0;
                if (member.take(place, master.faderM.min(), master.faderM.max()))
                  event([&] { master.faderM.setValue(place); });
              },
              Counts::Never});
  state_.add({"run", [this] { return runState(); },
              [this](const Member& member) {
                event([&] { goOnFrom(run_, member); });
                resumed_ = run_.cues.on() >= 0 || run_.automatic.on();
              }});
}

// What goes on all the time is kept in steps: each is a write to the disk.
Json Player::runState() const {
  constexpr std::int64_t kStep = 5000;  // ms
  constexpr int kBeats = 8;
  Json state = toJson(run_);
  for (const char* time : {"elapsed", "automaticElapsed"})
    state[time] = state[time].get<std::int64_t>() / kStep * kStep;
  state["beats"] = state["beats"].get<int>() / kBeats * kBeats;
  return state;
}

// Another show than that of the last run begins from its start.
void Player::resume() {
  if (!options_.resume) return;
  bindState();
  if (PlayState::showOf(playStateFile()) != showPath().string()) return;
  for (const std::string& fault : state_.resume()) tell(playStateFile() + ": " + fault);
}

void Player::keepState() {
  if (!options_.resume) return;
  try {
    state_.keep(!plugin_.engine.v.fadeRunning);
  } catch (const std::exception& error) {
    tell(std::string("where the show is can't be kept: ") + error.what());
  }
}

bool Player::open() {
  const bool opened = event([this] {
    plugin_.plugIn.ITharnPlugin_Init("korvane-play", options_.show, host_);
    openShow();
  });
  if (!opened) return false;
  takeProject();
  resume();
  if (!hasCues()) return false;
  if (!event([this] { plugin_.matrixForm.active.setValue(1); })) return false;
  feed_.setLevels(options_.levels);
  evening_.emplace(run_, options_.evening, universalTime);
  if (resumed_) evening_->goOn();
  attend();
  // The first packet holds the first picture.
  for (const OutputConfig& output : options_.outputs) feed_.outputs.add(output).switchOn();
  return true;
}

/// False to end.
bool Player::press(char key) {
  Master& master = plugin_.engine.master;
  if (key != 0) messages_.forgetNewest();
  if (key == 'a') event([&] { master.AutoFadeA.click(); });
  if (key == 'b') event([&] { master.AutoFadeB.click(); });
  if (key == ' ') event([&] { run_.tempo.onBeat(); });
  pressLevel(key);
  pressLook(key);
  pressRun(key);
  return key != 'q';
}

/// The keys of what runs by itself.
void Player::pressRun(char key) {
  constexpr std::pair<char, const char*> kKeys[] = {
      {'n', "cueGo"}, {'z', "cueBack"}, {'p', "cuePause"}, {'t', "tap"}};
  for (const auto& row : kKeys) {
    if (key == row.first) event([&] { runCommand(run_, row.second); });
  }
}

/// The keys of the levels between the picture and the outputs.
void Player::pressLevel(char key) {
  WallLevels levels = feed_.levels();
  if (key == '+') levels.master = std::min(levels.master + kMasterStep, 100);
  if (key == '-') levels.master = std::max(levels.master - kMasterStep, 0);
  if (key == 'o') levels.blackout = !levels.blackout;
  if (key == 'f') levels.freeze = !levels.freeze;
  if (levels != feed_.levels()) feed_.setLevels(levels);
}

/// The keys of all outputs' curves and white balance.
void Player::pressLook(char key) {
  for (std::size_t i = 0; i < feed_.outputs.size(); ++i) {
    Output& output = feed_.outputs.at(i);
    OutputConfig config = output.config();
    if (key == 'g') config.look.bendCurve(kCurveStep);
    if (key == 'G') config.look.bendCurve(-kCurveStep);
    if (key >= '1' && key <= '3')
      config.look.shiftShare(static_cast<std::size_t>(key - '1'), -kShareStep);
    if (key == '0') config.look.balance = OutputLook().balance;
    output.configure(config);
  }
}

// What the clock says; outside the hours the lamps may be dark.
void Player::attend() {
  event([this] { evening_->attend(); });
  if (evening_->dark() == dark_) return;
  dark_ = evening_->dark();
  WallLevels levels = feed_.levels();
  levels.blackout = dark_ || options_.levels.blackout;
  feed_.setLevels(levels);
}

std::string Player::runText() const {
  if (run_.automatic.on()) return "Automatic play. ";
  const int on = run_.cues.on();
  if (on < 0) return dark_ ? "Dark until the hour. " : "";
  return "Cue " + std::to_string(on + 1) + " " + run_.list.at(on).name +
         (run_.cues.paused() ? ", paused. " : ". ");
}

void Player::tellNetwork() {
  for (const std::string& line : feed_.news()) tell(line);
}

std::string Player::statusLine() const {
  if (!messages_.newest().empty()) return messages_.newest();
  const Variablen& v = plugin_.engine.v;
  const WallLevels& levels = feed_.levels();
  return runText() + "q ends; a, b fade; space beats; o, f, +, -, g, G, 0 to 3. " +
         std::string(levels.blackout ? "BLACKOUT. " : "") + (levels.freeze ? "FREEZE. " : "") +
         (levels.master < 100 ? "Master " + std::to_string(levels.master) + " %. " : "") +
         showPath().stem().string() + ", " + std::to_string(v.matrixCols) + " x " +
         std::to_string(v.matrixRows) + " lamps, output " + feed_.outputs.status();
}

void Player::draw() {
  if (!terminal_->hasPictures()) return messages_.flush();
  const std::int64_t now = plugin_.engine.timers.now();
  if (drawnAt_ && now - *drawnAt_ < kPictureInterval) return;
  drawnAt_ = now;
  const TerminalSize room = terminal_->size();
  std::vector<std::string> lines =
      terminalLines(plugin_.engine.v.frameM, {room.columns, room.lines - 1});
  lines.push_back(cut(statusLine(), room.columns - 1));
  terminal_->show(lines);
}

bool Player::play() {
  noteEndSignals();
  if (!open()) return false;
  terminal_.emplace();
  const TimerQueue::Gate gate = [this](const std::function<void()>& tick) {
    runEvent(platform_, tick);
  };
  const TimerQueue& timers = plugin_.engine.timers;
  const auto end = timers.now() + static_cast<std::int64_t>(std::lround(options_.seconds * 1000));
  bool more = true, told = false;
  while (more && (options_.seconds == 0 || timers.now() < end)) {
    Signals::drain();
    terminal_->attend();
    clock_.pass(gate);
    attend();
    tellNetwork();
    keepState();
    draw();
    if (!std::exchange(told, true)) service_.ready();
    service_.alive(timers.now());
    service_.status(runText() + "Output " + feed_.outputs.status());
    const int next = clock_.untilNext();
    const int wait = next < 0 ? kPictureInterval : std::min(next, kPictureInterval);
    more = takeEndSignal() == 0 && press(terminal_->waitForKey(wait)) && !evening_->over();
  }
  service_.stopping();
  terminal_.reset();
  feed_.outputs.switchAllOff();
  messages_.flush();
  return true;
}

// In a time of its own, so the same film comes of the same show each time.
bool Player::film() {
  std::signal(SIGPIPE, SIG_IGN);  // a reader that has seen enough ends the film
  TimerQueue& timers = plugin_.engine.timers;
  timers.clock = nullptr;
  platform_.clock = [&timers] { return timers.now(); };
  if (!open()) return false;
  const auto length = static_cast<std::int64_t>(std::lround(options_.seconds * 1000));
  makeFilm(plugin_.engine, options_.film, length,
           [this](const std::function<void()>& tick) { runEvent(platform_, tick); });
  messages_.flush();
  return true;
}

}  // namespace korvane
