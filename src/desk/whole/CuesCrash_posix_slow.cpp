// Kills of a desk at random moments while cues run and what is edited is kept aside: each time the
// next desk offers it, and it is whole.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <random>
#include <set>

#include "desk/whole/Desk.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "testing/SourceFolder.h"

namespace korvane {
namespace {

constexpr int kKills = 100;
constexpr useconds_t kLatestKill = 120'000;  // microseconds: some rounds on a slow machine too
constexpr int kCues = 30;
constexpr int kQuietTime = 4000;  // ms, enough for a desk to keep its project aside

/// A desk in a folder, without a screen, in virtual time.
struct DeskThere {
  explicit DeskThere(const std::string& folder)
      : desk(machine, feed,
             {.project = folder + "mine",
              .recentShows = folder + "config/recent",
              .kept = folder + "kept/",
              .choices = folder + "config/choices",
              .keys = folder + "config/keys.json"}) {
    event([this] { desk.show(); });
  }
  void event(const std::function<void()>& what) {
    runEvent(machine, what);
    desk.refresh();
  }
  void advance(std::int64_t milliseconds) {
    TimerQueue& timers = desk.engine().timers;
    timers.advanceTo(timers.now() + milliseconds,
                     [this](const std::function<void()>& tick) { runEvent(machine, tick); });
    desk.settle();
  }
  CueList& list() { return desk.cues.run.list; }
  /// The one word that all cues have as their name; empty if they differ.
  std::string name() {
    std::string name = list().count() == 0 ? "" : list().at(0).name;
    for (const Cue& cue : list().cues) name = cue.name == name ? name : "";
    return name;
  }
  void rename(const std::string& name) {
    event([&] {
      for (Cue& cue : list().cues) cue.name = name;
    });
  }

  HeadlessPlatform machine;
  LampFeed feed{"korvane-tests"};
  Desk desk;
};

class CuesCrash : public testing::Test {
 protected:
  CuesCrash() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    DeskThere first(folder);
    first.machine.answers = {show};
    first.event([&] { first.desk.files.open(sourceFolder() + "/examples/1-club-night.Korvane"); });
    first.event([&] {
      Cue cue = first.desk.cues.run.recorded();
      cue.end = Cue::End::Seconds;
      cue.after = 0.5;
      first.list().cues.assign(kCues, cue);
      first.list().loop = true;
    });
    first.rename("saved");
    first.event([&] { first.desk.files.saveAs(); });
    first.event([&] { first.desk.files.end(); });
  }
  ~CuesCrash() override { std::filesystem::remove_all(folder); }

  // Each round has another name, while the cues go on.
  [[noreturn]] void run(int ready) const {
    DeskThere there(folder);
    there.event([&] { there.desk.files.open(show); });
    there.event([&] { runCommand(there.desk.cues.run, "cueGo"); });
    for (int round = 0;; ++round) {
      there.rename("round " + std::to_string(round));
      there.advance(kQuietTime);
      // What is written while the desk goes on is there by the next round.
      if (round != 1) continue;
      const char byte = there.desk.cues.run.cues.on() >= 0 ? 1 : 0;
      if (::write(ready, &byte, 1) != 1) ::_exit(1);
    }
  }
  void killWhileRunning(useconds_t after) const {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t desk = ::fork();
    if (desk == 0) run(ready[1]);
    ::close(ready[1]);
    char running = 0;
    ASSERT_EQ(::read(ready[0], &running, 1), 1);
    EXPECT_EQ(running, 1) << "a cue is on";
    ::close(ready[0]);
    ::usleep(after);
    ::kill(desk, SIGKILL);
    ASSERT_EQ(::waitpid(desk, nullptr, 0), desk);
  }

  /// Number of writes that a kill has cut off.
  int removeUnfinished() const {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder + "kept/")) {
      if (entry.path().extension() == ".saving") files.push_back(entry.path());
    }
    for (const std::filesystem::path& file : files) std::filesystem::remove(file);
    return static_cast<int>(files.size());
  }

  std::string folder = testing::TempDir() + "korvane-cues-crash/";
  std::string show = folder + "tour.Korvane";
};

TEST_F(CuesCrash, AfterEachOfAHundredKillsTheProjectIsOfferedWholeAndItsCuesRun) {
  std::mt19937 random(1);
  int cut = 0;
  std::set<std::string> found;
  for (int kill = 0; kill < kKills; ++kill) {
    SCOPED_TRACE(kill);
    killWhileRunning(std::uniform_int_distribution<useconds_t>(0, kLatestKill)(random));
    if (HasFatalFailure()) return;
    cut += removeUnfinished();
    DeskThere next(folder);
    next.event([&] { next.desk.files.offerLeft(); });
    ASSERT_TRUE(next.desk.question.visible()) << "nothing is offered";
    next.event([&] { next.desk.question.first.click(); });
    EXPECT_EQ(next.desk.session.path(), show);
    EXPECT_TRUE(next.desk.files.changed());
    EXPECT_EQ(next.list().count(), kCues);
    EXPECT_TRUE(next.name().starts_with("round ")) << next.name();
    found.insert(next.name());
    next.event([&] { runCommand(next.desk.cues.run, "cueGo"); });
    EXPECT_EQ(next.desk.cues.run.cues.on(), 0);
    // "Discard": the saved one is as it was, and nothing is offered any more.
    next.event([&] { next.desk.files.open(show); });
    next.event([&] { next.desk.question.second.click(); });
    EXPECT_EQ(next.name(), "saved");
    EXPECT_EQ(next.machine.boxes.size(), 0U);
    next.event([&] { next.desk.files.end(); });
  }
  std::cout << kKills << " kills: " << cut << " hit a write, " << found.size()
            << " different rounds were offered\n";
  EXPECT_GT(found.size(), 5U);
}

}  // namespace
}  // namespace korvane
