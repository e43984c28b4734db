// The random operator at the stand-alone desk: a show that the desk counts as saved opens again
// with its grid, and holds the same.

#include "commands/TestOperator.h"
#include "desk/whole/Desk.h"

namespace korvane {
namespace {

/// The stand-alone desk in a console. Its outputs are left alone: nothing leaves the machine.
struct DeskConsole {
  DeskConsole(Disk& disk, const std::string& stem, std::uint64_t seed)
      : base(stem), platform(onDisk(disk)) {
    platform.clock = [this] { return engine().timers.now(); };
    platform.pictures = [&disk](const std::string& path) {
      return OperatorConsole::pictureOn(disk, path);
    };
    engine().random.seed(seed);
    desk.show();
    desk.session.openTool();
    desk.refresh();
  }
  Json answer(const std::string& line) {
    if (line.find(" DeskOutput.") != std::string::npos) return {};
    Json reply = Json::parse(interpreter.answer(line).value_or("{}"));
    desk.refresh();
    checkKept();
    return reply;
  }
  Engine& engine() { return desk.engine(); }
  /// The desk says nothing of a save but that it failed.
  bool saved() const { return platform.failedSaves.empty(); }
  /// Another show may have been begun as soon as this one was saved.
  bool holds(const std::string& path) const { return desk.session.path() == path; }
  bool over() const { return desk.closed(); }

  /// What the desk counts as a change: the fader and the selections are none.
  static Json changesOf(const Engine& engine) {
    Json all = ShowContents::of(engine);
    all.erase("master");
    for (const char* list : {"A", "B", "fades"}) all[list].erase("selected");
    return all;
  }
  /// Without a star in its title, the show and its grid are those of the files.
  void checkKept() {
    const std::string path = desk.session.path();
    if (over() || path.empty() || desk.files.changed()) return;
    Json now = changesOf(engine());
    if (now == kept) return;
    ConsolePlatform machine;
    machine.files = platform.files;
    machine.pictures = platform.pictures;
    LampFeed dark{"korvane-tests"};
    Desk other(machine, dark, {base + "-other"});
    other.files.open(path);
    if (other.session.path() != path) throw ShowLost(path + " can't be opened");
    const Json found = changesOf(other.engine());
    if (now != found)
      throw ShowLost(path + " was kept otherwise: " + Json::diff(now, found).dump());
    kept = std::move(now);
  }

  static ConsolePlatform onDisk(Disk& disk) {
    ConsolePlatform machine;
    machine.files = &disk;
    return machine;
  }

  std::string base;
  ConsolePlatform platform;
  HostCalls calls{ConsoleHost::kMostCalls};
  LampFeed feed{"korvane-tests"};
  Desk desk{platform, feed, {base}};
  Json kept;  // what was found in the files last
  Interpreter interpreter{
      {desk.engine(), platform, calls, operationsOf(desk.session.plugin, desk.session.host),
       [this](std::int64_t time, const TimerQueue::Gate& gate) {
         desk.engine().timers.advanceTo(desk.engine().timers.now() + time, gate);
       }}};
};

TEST(RandomPlay, AtTheDeskNoShowIsLost) { playRandomly<DeskConsole>(3000); }

}  // namespace
}  // namespace korvane
