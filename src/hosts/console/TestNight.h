#pragma once

#include <sstream>

#include "commands/RandomPerson.h"
#include "commands/TestShowsWatch.h"
#include "commands/Tokens.h"
#include "desk/whole/Desk.h"
#include "hosts/console/TestLamps.h"
#include "platform/Events.h"
#include "platform/WallClock.h"
#include "testing/SimulatedClock.h"

namespace korvane {

/// Something that must hold did not; the text says what.
struct NightBroken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The machine of a night: its disk, its clocks, its network and the lamps behind it. Sending runs
/// while the window thread sleeps or is busy, as it does on threads of its own.
class NightMachine {
 public:
  explicit NightMachine(std::uint64_t seed) : disk(seed), random_(seed) {
    sequences_ = std::make_unique<SequenceStore>();
    clock.nextDue = [this] { return dueNext(); };
    clock.onDue = [this] { send(); };
  }

  /// The newest picture for the outputs.
  void show(const WallPicture& wall) {
    wall_ = wall;
    for (Line& line : lines_) line.sender.show(pictureFor(line.config, wall), clock.now());
  }
  /// A program that sends begins.
  void beginOutputs() {
    lines_.clear();
    for (const char* text : {"sacn:1-15", "artnet:0-14@10.0.0.9"}) {
      const OutputConfig config = parseOutput(text);
      lines_.push_back(
          {config, Sender(config, makeCarrier(config, {{7}, sequences_.get()}, network),
                          pictureFor(config, wall_))});
    }
  }
  /// The lamps show the newest picture. The network must have been well for a second.
  void checkLamps() const {
    for (int universe = 1; universe <= kSent; ++universe) {
      const std::string where = " shows another picture in universe " + std::to_string(universe);
      if (lamps.sacn(universe) != wall_.universe(universe)) throw NightBroken("sACN" + where);
      if (lamps.artnet(universe - 1) != wall_.universe(universe))
        throw NightBroken("Art-Net" + where);
    }
  }
  /// Off for some time and on again: nothing of what ran is left.
  void startAgain() {
    lines_.clear();
    sequences_ = std::make_unique<SequenceStore>();
    disk.restorePower();
    clock.pass(20'000);
  }

  SimulatedDisk disk;
  SimulatedClock clock;
  TestNetwork network;
  TestLamps lamps;
  int oneLostIn = 0;  ///< packets; 0: none is lost
  std::int64_t packets = 0, lost = 0;
  std::uint64_t digest = 14695981039346656037U;  ///< of all that has left the desk

 private:
  static constexpr int kSent = 15;  ///< universes

  struct Line {
    OutputConfig config;
    Sender sender;
  };

  Clock::Time dueNext() const {
    Clock::Time due = Clock::Time::max();
    for (const Line& line : lines_) due = std::min(due, line.sender.due());
    return due;
  }
  void send() {
    present_ = &clock;  // of several nights, the one that sends
    for (Line& line : lines_) {
      if (line.sender.due() <= clock.now())
        line.sender.step(clock.now(), [] { return present_->now(); });
    }
    for (const TestNetwork::Call& call : std::exchange(network.calls, {}))
      for (const Datagram& datagram : call.datagrams) carry(datagram.bytes);
  }
  void carry(const std::vector<std::uint8_t>& bytes) {
    for (const std::uint8_t byte : bytes) digest = (digest ^ byte) * 1099511628211U;
    ++packets;
    if (oneLostIn > 0 && random_() % static_cast<unsigned>(oneLostIn) == 0) {
      ++lost;
      return;
    }
    lamps.take(bytes, clock.now());
  }

  static inline thread_local SimulatedClock* present_ = nullptr;
  std::mt19937_64 random_;
  std::unique_ptr<SequenceStore> sequences_;
  std::vector<Line> lines_;
  WallPicture wall_;
};

/// The desk from when it is switched on until it is closed or the power fails.
class Evening {
 public:
  explicit Evening(NightMachine& machine)
      : machine_(machine),
        platform_(onThis(machine)),
        desk(platform_, feed_, {"/shows/night", {}, "/config/recent", "/config/outputs"}) {
    machine.beginOutputs();
    event([this] { desk.show(); });
  }

  /// Carries out a command, as the console does.
  Json perform(const std::string& line) {
    calls_.clear();
    event([] {});  // what has become due meanwhile comes before the person's command
    Json reply = Json::parse(interpreter_.answer(line).value_or("{}"));
    event([] {});
    return reply;
  }
  void event(const std::function<void()>& what) {
    clock_.pass([this](const std::function<void()>& tick) { runEvent(platform_, tick); });
    runEvent(platform_, what);
    desk.refresh();
    show();
  }
  Engine& engine() { return desk.engine(); }
  ConsolePlatform& platform() { return platform_; }

 private:
  static ConsolePlatform onThis(NightMachine& machine) {
    ConsolePlatform platform;
    platform.files = &machine.disk;
    platform.clock = [&machine] { return machine.clock.timeOfDay(); };
    platform.pictures = [&machine](const std::string& path) {
      return OperatorConsole::pictureOn(machine.disk, path);
    };
    return platform;
  }
  void show() { machine_.show(desk.leaving()); }

  NightMachine& machine_;
  ConsolePlatform platform_;
  HostCalls calls_{1000};
  LampFeed feed_{"korvane-tests", machine_.network};

 public:
  Desk desk;

 private:
  WallClock clock_{engine().timers,
                   [this] {
                     desk.settle();
                     show();
                   },
                   machine_.clock};
  Interpreter interpreter_{
      {engine(), platform_, calls_, operationsOf(desk.session.plugin, desk.session.host),
       [this](std::int64_t time, const TimerQueue::Gate& gate) { clock_.advance(time, gate); }}};
};

}  // namespace korvane
