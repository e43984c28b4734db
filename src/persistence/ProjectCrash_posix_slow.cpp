#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "testing/TestProject.h"

namespace korvane {
namespace {

constexpr int kKills = 50;    // that hit a save
constexpr int kTries = 1000;  // on a machine where most of a round is not the save itself
constexpr int kShows = 3;

// A process saves one show after the other over the same file until it is killed.
class ProjectCrash : public TestProject {
 protected:
  void SetUp() override {
    TestProject::SetUp();
    resize(50, 50);
    for (int i = 0; i < 20; ++i) click(plugin.matrixForm.panelA.add);
    for (std::size_t slot = 0; slot < 20; ++slot) {
      v.efxA[slot].type = kPaint;
      v.efxA[slot].paintPixels.redim(50, 50);
      v.efxAEdited[slot] = true;
    }
    for (int show = 0; show < kShows; ++show) shows.push_back(saveShow(show));
  }

  std::string saveShow(int show) {
    v.masterValue = show / 10.0;
    return save();
  }
  bool whole(const std::string& bytes) const {
    return std::find(shows.begin(), shows.end(), bytes) != shows.end();
  }

  // The process that saves; it says when it is under way.
  [[noreturn]] void saveForEver(int ready) {
    for (int show = 0;; ++show) {
      saveShow(show % kShows);
      if (show == 0) {
        const char byte = 1;
        if (::write(ready, &byte, 1) != 1) ::_exit(1);
      }
    }
  }

  /// Whether a kill left a file beside the show and its backup.
  bool removeLeftovers() const {
    std::vector<std::filesystem::path> leftovers;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == ".saving") leftovers.push_back(entry.path());
    }
    for (const std::filesystem::path& file : leftovers) std::filesystem::remove(file);
    return !leftovers.empty();
  }

  void killWhileSaving(useconds_t after) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t saver = ::fork();
    if (saver == 0) saveForEver(ready[1]);
    ::close(ready[1]);
    char byte = 0;
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    ::close(ready[0]);
    ::usleep(after);
    ::kill(saver, SIGKILL);
    ASSERT_EQ(::waitpid(saver, nullptr, 0), saver);
  }

  std::vector<std::string> shows;
};

TEST_F(ProjectCrash, AShowIsWholeAfterEachOfFiftyKills) {
  std::mt19937 random(1);
  int amidst = 0;
  for (int kill = 0; kill < kTries && amidst < kKills; ++kill) {
    killWhileSaving(std::uniform_int_distribution<useconds_t>(0, 40000)(random));
    if (HasFatalFailure()) return;
    ASSERT_TRUE(whole(readFile(path))) << "file, kill " << kill;
    ASSERT_TRUE(whole(readFile(path + ".bak"))) << "backup, kill " << kill;
    amidst += removeLeftovers() ? 1 : 0;
  }
  EXPECT_EQ(amidst, kKills) << "too few kills hit a save";
}

}  // namespace
}  // namespace korvane
