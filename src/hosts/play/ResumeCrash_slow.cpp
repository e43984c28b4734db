// Kills of the real player at random moments while it runs cues and keeps where it is: each time
// the next one sends again and goes on at the cue that was on.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <set>

#include "desk/project/DeskProject.h"
#include "hosts/play/TestManager.h"
#include "testing/SourceFolder.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

using Moments = std::chrono::steady_clock;

constexpr int kKills = 100;
constexpr int kCues = 40;
constexpr int kShortest = 300;  // ms that a cue is on
constexpr int kSoon = 2000;     // ms until a player must send

int since(Moments::time_point begin) {
  using namespace std::chrono;
  return static_cast<int>(duration_cast<milliseconds>(Moments::now() - begin).count());
}

// The cue of a status like "STATUS=Cue 7 name. ...", from 0; -1 for another text.
int cueTold(const std::string& status) {
  const std::string start = "STATUS=Cue ";
  return status.starts_with(start) ? std::stoi(status.substr(start.size())) - 1 : -1;
}

class ResumeCrash : public testing::Test {
 protected:
  ResumeCrash() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    for (const std::string ending : {".Korvane", ".korvaneconf"})
      std::filesystem::copy_file(sourceFolder() + "/examples/1-club-night" + ending,
                                 folder + "show" + ending);
    Json cues = Json::array();
    for (int i = 0; i < kCues; ++i)
      cues.push_back({{"name", "cue " + std::to_string(i)},
                      {"move", i % 2 == 0 ? "cut left" : "cut right"},
                      {"end", "seconds"},
                      {"after", (kShortest + i % 3 * 50) / 1000.0}});
    std::ofstream(folder + "show.korvanedesk")
        << Json{{"version", 1}, {"cues", {{"loop", true}, {"list", cues}}}};
    project = textOf("show.korvanedesk");
    setenv("XDG_STATE_HOME", folder.c_str(), 1);
  }
  ~ResumeCrash() override {
    unsetenv("XDG_STATE_HOME");
    std::filesystem::remove_all(folder);
  }

  std::string textOf(const std::string& name) const {
    std::ifstream stream(folder + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  /// The cue that is kept as the one that is on; throws for a file that isn't whole.
  int kept() const { return Json::parse(textOf("korvane/playing.json")).at("run").at("on"); }

  std::string folder = testing::TempDir() + "korvane-resume-crash/";
  std::string project;
};

// A machine under load may let cues pass before a player comes to tell of them.
void expectFollows(int later, int earlier, int milliseconds, const char* what) {
  EXPECT_LE((later - earlier + kCues) % kCues, milliseconds / kShortest)
      << what << ": cue " << later << " after cue " << earlier;
}

TEST_F(ResumeCrash, AfterEachOfAHundredKillsThePlayerSendsSoonAndGoesOnAtItsCue) {
  const Manager manager(folder + "notify");
  const UdpReceiver receiver;
  std::mt19937 random(1);
  const auto below = [&random](int end) {
    return std::uniform_int_distribution<int>(0, end - 1)(random);
  };
  std::vector<int> starts;
  std::set<int> resumed;
  int exact = 0, last = -1;
  for (int killed = 0; killed <= kKills; ++killed) {
    SCOPED_TRACE(killed);
    const int should = killed == 0 ? 0 : kept();
    const auto begin = Moments::now();
    const pid_t player = manager.start(
        {"--resume", "--cues", "--output", "artnet:0" + receiver.place(), folder + "show.Korvane"});
    EXPECT_FALSE(receiver.packet().empty()) << "nothing is sent";
    starts.push_back(since(begin));
    last = cueTold(manager.hear("STATUS=Cue"));
    expectFollows(last, should, since(begin), "from the kept one");
    exact += last == should ? 1 : 0;
    resumed.insert(last);
    auto heard = Moments::now();
    for (int more = below(3); more > 0; --more) {
      last = cueTold(manager.hear("STATUS=Cue"));
      heard = Moments::now();
    }
    usleep(static_cast<useconds_t>(below(kShortest * 1000)));
    kill(player, SIGKILL);
    EXPECT_TRUE(WIFSIGNALED(endOf(player))) << "it ended by itself";
    for (std::string word = manager.heard(); !word.empty(); word = manager.heard())
      last = cueTold(word) < 0 ? last : cueTold(word);
    while (!receiver.packet(false).empty()) continue;
    expectFollows(kept(), last, since(heard) + kShortest, "kept");
    EXPECT_EQ(textOf("show.korvanedesk"), project) << "the person's file";
  }
  std::sort(starts.begin(), starts.end());
  std::cout << kKills << " kills: " << exact << " of " << starts.size()
            << " starts at the kept cue itself, " << resumed.size()
            << " different ones; first packet after " << starts[starts.size() / 2]
            << " ms in the middle, " << starts.back() << " ms at most\n";
  EXPECT_LT(starts[starts.size() / 2], kSoon);
  EXPECT_GT(resumed.size(), 10U) << "of " << kCues;
}

}  // namespace
}  // namespace korvane
