// korvane-console: the whole plug-in without a screen, driven by one command a line.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>

#include "commands/ConsolePlatform.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"
#include "hosts/console/InputLines.h"
#include "hosts/console/Options.h"
#include "hosts/console/Stand.h"
#include "platform/Events.h"
#include "platform/Signals.h"
#include "platform/WallClock.h"
#ifdef KORVANE_PICTURES
#include "views/shared/pictures/PictureFile.h"
#endif

namespace korvane {
namespace {

enum ExitStatus { kAllOk, kNotAllOk, kWrongUsage, kUnreadableScript };

constexpr int kSignalled = 128;  // and the signal's number, as shells tell it

constexpr std::int64_t kDay = 86'400'000;
constexpr int kNewsInterval = 500;  // ms between two looks at how the network fares

void complain(const std::string& text) { std::cerr << "korvane-console: " << text << std::endl; }

std::unique_ptr<Stand> makeStand(const Options& options, Platform& platform) {
  if (options.desk) return makeDeskStand(platform, options.base);
  return makePlainStand(platform, options.base, options.channels);
}

/// This program with its plug-in.
class Program {
 public:
  explicit Program(const Options& options);

  /// Carries out the commands of an open file; the exit status.
  int run(int descriptor);
  /// Ends the outputs; what the network did with the last pictures is told, too.
  void end();

 private:
  void start(const Options& options);
  bool perform(const std::string& line);
  void advance(std::int64_t milliseconds, const TimerQueue::Gate& gate);
  void advanceVirtual(std::int64_t end, const TimerQueue::Gate& gate);
  int patience();
  void tellNetwork();
  bool asked();
  /// The gate of what no command waits for: a failure is told at once.
  void background(const std::function<void()>& event);

  ConsolePlatform platform_;
  int signal_ = 0;  ///< that asked the program to end
  std::unique_ptr<Stand> stand_;
  Plugin& plugin_;
  std::optional<WallClock> clock_;  // none: time is virtual
  Interpreter interpreter_;
};

Program::Program(const Options& options)
    : stand_(makeStand(options, platform_)),
      plugin_(stand_->plugin()),
      interpreter_(
          {plugin_.engine, platform_, stand_->calls(), operationsOf(plugin_, stand_->host()),
           [this](std::int64_t time, const TimerQueue::Gate& gate) { advance(time, gate); }}) {
  if (options.realClock) clock_.emplace(plugin_.engine.timers, [this] { stand_->settle(); });
  platform_.format = options.format;
  platform_.clock = wallTimeOfDay;
  platform_.tell = complain;
#ifdef KORVANE_PICTURES  // without Qt no picture can be read
  platform_.pictures = readPicture;
#endif
  if (options.seed) {
    plugin_.engine.random.seed(static_cast<std::uint64_t>(*options.seed));
    platform_.clock = [this, from = *options.seed % kDay] {
      return (from + plugin_.engine.timers.now()) % kDay;
    };
  }
  if (!options.outputs.empty()) {
    // Without lamps a signal ends the program at once, as it does others.
    noteEndSignals();
    if (clock_) clock_->mayGoOn = [this] { return !asked(); };
  }
  for (const OutputConfig& output : options.outputs) stand_->send(output);
  start(options);
}

void Program::start(const Options& options) {
  background([&] { stand_->start(options.closed); });
}

void Program::background(const std::function<void()>& event) {
  if (!runEvent(platform_, event)) complain(platform_.failures.back().what());
}

void Program::advance(std::int64_t milliseconds, const TimerQueue::Gate& gate) {
  TimerQueue& timers = plugin_.engine.timers;
  if (clock_) return clock_->advance(milliseconds, gate);
  const std::int64_t end = timers.now() + milliseconds;
  stand_->sending() ? advanceVirtual(end, gate) : timers.advanceTo(end, gate);
  stand_->settle();
}

/// The same as advancing at once, but a signal ends it between two ticks.
void Program::advanceVirtual(std::int64_t end, const TimerQueue::Gate& gate) {
  TimerQueue& timers = plugin_.engine.timers;
  while (timers.now() < end && !asked()) timers.advanceTo(std::min(timers.nextDue(), end), gate);
}

/// Whether a signal asked the program to end.
bool Program::asked() {
  if (signal_ == 0) signal_ = takeEndSignal();
  return signal_ != 0;
}

/// How long the console may wait for a command, in ms; -1 for ever.
int Program::patience() {
  const int next = clock_ ? clock_->untilNext() : -1;
  if (!stand_->sending()) return next;
  return next < 0 ? kNewsInterval : std::min(next, kNewsInterval);
}

void Program::tellNetwork() {
  for (const std::string& line : stand_->news()) complain(line);
}

void Program::end() {
  stand_->end();
  tellNetwork();
}

/// Whether there is more to do.
bool Program::perform(const std::string& line) {
  if (const std::optional<std::string> reply = interpreter_.answer(line))
    std::cout << *reply << std::endl;
  stand_->refresh();
  return !interpreter_.ended() && std::cout.good();
}

int Program::run(int descriptor) {
  InputLines lines(descriptor);
  const TimerQueue::Gate gate = [this](const std::function<void()>& tick) { background(tick); };
  std::string line;
  for (bool more = true; more;) {
    Signals::drain();
    if (asked()) return kSignalled + signal_;
    const InputLines::Found found = lines.next(line, patience());
    tellNetwork();
    if (found == InputLines::Found::Error) {
      complain(std::string("the commands can't be read: ") + std::strerror(errno));
      return kUnreadableScript;
    }
    if (clock_) clock_->pass(gate);
    if (found == InputLines::Found::Line) more = perform(line);
    if (signal_ != 0) return kSignalled + signal_;
    if (found == InputLines::Found::End) more = false;
  }
  return interpreter_.allOk() && std::cout.good() ? kAllOk : kNotAllOk;
}

int run(int count, char** words) {
  const Options options = parseOptions(count, words);
  if (options.help) {
    std::cout << kUsage;
    return kAllOk;
  }
  const int script =
      options.script ? open(options.script->c_str(), O_RDONLY | O_CLOEXEC) : STDIN_FILENO;
  if (script < 0) {
    complain("the script " + *options.script + " can't be read: " + std::strerror(errno));
    return kUnreadableScript;
  }
  Program program(options);
  const int status = program.run(script);
  program.end();
  return status;
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
  try {
    return korvane::run(count, words);
  } catch (const korvane::UsageError& error) {
    korvane::complain(std::string(error.what()) + "; --help tells the usage");
    return korvane::kWrongUsage;
  }
}
