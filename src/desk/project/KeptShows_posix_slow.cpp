// Kills at random moments while a desk keeps its project aside and saves it: whatever the moment,
// the saved project and the one that is offered are whole.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "desk/project/DeskProject.h"
#include "desk/project/KeptShows.h"

namespace korvane {
namespace {

constexpr int kKills = 100;
constexpr int kHits = 10;     // kills that must hit a write
constexpr int kTries = 1000;  // on a machine where most of a round is no write
constexpr int kVersions = 5;

class KeptCrash : public testing::Test {
 protected:
  KeptCrash() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  ~KeptCrash() override { std::filesystem::remove_all(folder); }

  static std::string textOf(int version) {
    return std::string(200'000, static_cast<char>('a' + version));
  }
  static KeptShow kept(int version) {
    return {"/shows/tour.Korvane", "tour", {}, textOf(version), "grid", "{}"};
  }
  static void addTo(DeskProject& project, std::string& note) {
    project.add({"note", [&note] { return Json(note); },
                 [&note](const Member& member) { member.take(note); }});
  }

  [[noreturn]] void work(int ready) const {
    KeptShows shows(folder);
    shows.hold("/shows/tour.Korvane");
    DeskProject project;
    std::string note;
    addTo(project, note);
    for (int version = 0;; version = (version + 1) % kVersions) {
      shows.keep(kept(version));
      note = textOf(version);
      project.save(file);
      const char byte = 1;
      if (ready >= 0 && ::write(ready, &byte, 1) != 1) ::_exit(1);
      ready = -1;
    }
  }
  void killWhileWorking(useconds_t after) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t desk = ::fork();
    if (desk == 0) work(ready[1]);
    ::close(ready[1]);
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    ::close(ready[0]);
    ::usleep(after);
    ::kill(desk, SIGKILL);
    ASSERT_EQ(::waitpid(desk, nullptr, 0), desk);
  }

  std::string folder = testing::TempDir() + "korvane-kept-crash/";
  std::string file = folder + "tour.korvanedesk";
};

TEST_F(KeptCrash, AfterEachOfAHundredKillsTheProjectIsWholeAndOffered) {
  std::mt19937 random(1);
  int leftovers = 0;
  for (int kill = 0; kill < kKills || (leftovers < kHits && kill < kTries); ++kill) {
    SCOPED_TRACE(kill);
    killWhileWorking(std::uniform_int_distribution<useconds_t>(0, 40000)(random));
    if (HasFatalFailure()) return;
    const auto left = KeptShows(folder).left();
    ASSERT_TRUE(left);
    EXPECT_EQ(left->show, kept(left->show.show[0] - 'a'));
    DeskProject project;
    std::string note;
    addTo(project, note);
    EXPECT_TRUE(project.open(file).empty());
    ASSERT_FALSE(note.empty());
    EXPECT_EQ(note, textOf(note[0] - 'a'));
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() != ".saving") continue;
      std::filesystem::remove(entry.path());
      ++leftovers;
    }
  }
  EXPECT_GE(leftovers, kHits) << "too few kills hit a write";
}

}  // namespace
}  // namespace korvane
