// Runs the real player: on a terminal, in the background, and without one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "hosts/play/TestTerminal.h"
#include "testing/SourceFolder.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kShow = sourceFolder() + "/examples/1-club-night.Korvane";
constexpr const char* kOwnScreen = "\x1b[?1049h";
constexpr const char* kScreenBack = "\x1b[?1049l";

/// What comes from the player, on this machine.
class Lamps {
 public:
  std::string target() const { return "sacn:1" + receiver_.place(); }
  /// Reads what has come; how many packets that were, and how many of them end a stream.
  int take() {
    int count = 0;
    for (auto packet = receiver_.packet(false); !packet.empty(); packet = receiver_.packet(false)) {
      ++count;
      terminated += (packet[112] & 0x40) != 0;
      std::copy_n(packet.begin() + 126, first.size(), first.begin());
    }
    return count;
  }
  /// Whether packets come, or come on.
  bool shine() {
    take();
    return TestTerminal::wait([this] { return take() > 0; });
  }

  /// Whether the first lamp comes to show these values.
  bool show(const std::array<int, 3>& values) {
    return TestTerminal::wait([&] {
      take();
      return std::equal(first.begin(), first.end(), values.begin());
    });
  }

  int terminated = 0;
  std::array<unsigned char, 3> first{};  ///< values of the first lamp

 private:
  UdpReceiver receiver_;
};

/// The player on a terminal, and the lamps.
class OnATerminal : public testing::Test {
 protected:
  void play(bool foreground = true) {
    before = terminal.settings();
    terminal.start({KORVANE_PLAY, "--output", lamps.target(), kShow}, foreground);
  }
  /// A grey wall that stands still.
  void playGrey(const std::string& stem, std::vector<std::string> options = {}) {
    std::ofstream(stem + ".Korvane")
        << "grey\nV1.0\n0\n1\n1\n1\n0\n0\n0\nA0\nTrue\n0\ngrey\n8421504\n"
           "B0\nFalse\nX0\n0\nfade\n3\n0\n";
    std::ofstream(stem + ".korvaneconf") << "grey\n2,1,False\n1,2,3\n4,5,6\n";
    options.insert(options.begin(), {KORVANE_PLAY, "--output", lamps.target(), stem + ".Korvane"});
    terminal.start(options, true);
  }
  void playUntilPictured() {
    play();
    ASSERT_TRUE(terminal.shows("▀")) << terminal.screen;
    EXPECT_TRUE(terminal.raw());
  }
  void expectSettingsBack() { EXPECT_TRUE(sameSettings(terminal.settings(), before)); }
  void expectEndedAsIfNothingHadBeen() {
    expectSettingsBack();
    EXPECT_TRUE(terminal.shows(kScreenBack));
    EXPECT_TRUE(terminal.shows("\x1b[?25h")) << "the cursor";
  }
  void expectStreamEnded() {
    lamps.take();
    EXPECT_EQ(lamps.terminated, 3);
  }

  TestTerminal terminal;
  Lamps lamps;
  termios before{};
};

TEST_F(OnATerminal, TheKeyQEndsThePlayAndTheTerminalIsAsBefore) {
  playUntilPictured();
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
  expectEndedAsIfNothingHadBeen();
  expectStreamEnded();
}

TEST_F(OnATerminal, LevelsCurveAndWhiteBalanceHaveKeys) {
  playGrey(testing::TempDir() + "korvane-play-keys");
  ASSERT_TRUE(lamps.show({128, 128, 128}));
  const std::pair<const char*, std::array<int, 3>> steps[] = {
      {"-", {122, 122, 122}}, {"+", {128, 128, 128}},   {"o", {0, 0, 0}},
      {"o", {128, 128, 128}}, {"1", {122, 128, 128}},   {"33", {122, 128, 115}},
      {"0", {128, 128, 128}}, {"ggG", {119, 119, 119}}, {"GGG", {128, 128, 128}}};
  for (const auto& [keys, values] : steps) {
    terminal.type(keys);
    EXPECT_TRUE(lamps.show(values)) << keys;
  }
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
}

TEST_F(OnATerminal, FreezeByOptionHoldsTheFirstPictureUntilItsKey) {
  playGrey(testing::TempDir() + "korvane-play-freeze", {"--freeze"});
  ASSERT_TRUE(lamps.show({128, 128, 128}));
  terminal.type("-");
  ASSERT_TRUE(lamps.shine());
  EXPECT_TRUE(lamps.show({128, 128, 128})) << "nothing came through";
  terminal.type("f");
  EXPECT_TRUE(lamps.show({122, 122, 122}));
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
}

TEST_F(OnATerminal, CtrlCEndsThePlayAndTheTerminalIsAsBefore) {
  playUntilPictured();
  terminal.type("\x03");
  EXPECT_EQ(terminal.status(), 0);
  expectEndedAsIfNothingHadBeen();
  expectStreamEnded();
}

TEST_F(OnATerminal, SigtermAndSighupEndThePlayAndTheTerminalIsAsBefore) {
  for (const int signal : {SIGTERM, SIGHUP}) {
    SCOPED_TRACE(signal);
    TestTerminal own;
    Lamps their;
    before = own.settings();
    own.start({KORVANE_PLAY, "--output", their.target(), kShow});
    ASSERT_TRUE(own.shows("▀"));
    own.signal(signal);
    EXPECT_EQ(own.status(), 0);
    EXPECT_TRUE(sameSettings(own.settings(), before));
    EXPECT_TRUE(own.shows(kScreenBack));
    their.take();
    EXPECT_EQ(their.terminated, 3);
  }
}

TEST_F(OnATerminal, ACrashPutsTheTerminalBack) {
  for (const int signal : {SIGSEGV, SIGABRT, SIGQUIT}) {
    SCOPED_TRACE(signal);
    TestTerminal own;
    before = own.settings();
    own.start({KORVANE_PLAY, kShow});
    ASSERT_TRUE(own.shows("▀"));
    EXPECT_TRUE(own.raw());
    own.signal(signal);
    const int status = own.status();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_TRUE(sameSettings(own.settings(), before));
    EXPECT_TRUE(own.shows(kScreenBack));
  }
}

// As after a power cut: nothing could be said at the end.
TEST_F(OnATerminal, ResumeGoesOnWhereAKilledPlayerWasWithinTwoSeconds) {
  const std::string folder = testing::TempDir() + "korvane-resumed";
  std::filesystem::remove_all(folder);
  setenv("XDG_STATE_HOME", folder.c_str(), 1);
  TestTerminal killed;
  killed.start({KORVANE_PLAY, "--resume", "--output", lamps.target(), kShow});
  ASSERT_TRUE(killed.shows("▀"));
  killed.type("o-");
  ASSERT_TRUE(killed.shows("BLACKOUT. Master 95 %"));
  const std::string state = folder + "/korvane/playing.json";
  const auto kept = [&state] {
    std::ifstream stream(state);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    return text.find("\"master\": 95") != std::string::npos;
  };
  EXPECT_TRUE(TestTerminal::wait(kept));
  killed.signal(SIGKILL);
  killed.status();
  lamps.take();

  const auto begun = std::chrono::steady_clock::now();
  terminal.start({KORVANE_PLAY, "--resume"});
  ASSERT_TRUE(TestTerminal::wait([this] { return lamps.take() > 0; }));
  EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(2));
  EXPECT_TRUE(terminal.shows("BLACKOUT. Master 95 %")) << terminal.screen;
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
  unsetenv("XDG_STATE_HOME");
  std::filesystem::remove_all(folder);
}

TEST_F(OnATerminal, CtrlZGivesTheTerminalBackAndTheForegroundTakesItAgain) {
  playUntilPictured();
  terminal.type("\x1a");
  const int stopped = terminal.status();
  ASSERT_TRUE(WIFSTOPPED(stopped)) << stopped;
  expectEndedAsIfNothingHadBeen();
  terminal.screen.clear();
  terminal.signal(SIGCONT);
  EXPECT_TRUE(terminal.shows(kOwnScreen));
  EXPECT_TRUE(terminal.shows("▀"));
  EXPECT_TRUE(terminal.raw());
  EXPECT_TRUE(lamps.shine());
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
  expectEndedAsIfNothingHadBeen();
}

TEST_F(OnATerminal, AStopThatCanNotBeNotedLeavesNoRawTerminalAtTheEnd) {
  playUntilPictured();
  terminal.signal(SIGSTOP);
  ASSERT_TRUE(WIFSTOPPED(terminal.status()));
  terminal.screen.clear();
  terminal.signal(SIGCONT);
  EXPECT_TRUE(terminal.shows("▀"));
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
  expectEndedAsIfNothingHadBeen();
}

TEST_F(OnATerminal, InTheBackgroundItPlaysOnWithoutTouchingTheTerminal) {
  play(false);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(lamps.shine());
  expectSettingsBack();
  terminal.take();
  EXPECT_EQ(terminal.screen, "");
  terminal.foreground(true);
  terminal.signal(SIGCONT);
  EXPECT_TRUE(terminal.shows(kOwnScreen));
  terminal.type("q");
  EXPECT_EQ(terminal.status(), 0);
  expectEndedAsIfNothingHadBeen();
}

TEST_F(OnATerminal, SentToTheBackgroundItPlaysOnAndAKeyIsNotItsOwn) {
  playUntilPictured();
  terminal.type("\x1a");
  ASSERT_TRUE(WIFSTOPPED(terminal.status()));
  terminal.foreground(false);
  terminal.signal(SIGCONT);
  EXPECT_TRUE(lamps.shine());
  terminal.screen.clear();
  terminal.type("q\n");
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(lamps.shine());
  expectSettingsBack();
  terminal.take();
  EXPECT_THAT(terminal.screen, Not(HasSubstr("▀")));
  terminal.signal(SIGTERM);
  EXPECT_EQ(terminal.status(), 0);
}

TEST_F(OnATerminal, CtrlSNeverStopsTheLamps) {
  playUntilPictured();
  terminal.type("\x13");
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(lamps.shine());
  terminal.screen.clear();
  EXPECT_TRUE(terminal.shows("▀")) << "it is a key like others";
}

TEST_F(OnATerminal, ATerminalThatIsNotReadNeverStopsTheLamps) {
  play();
  ASSERT_TRUE(terminal.shows(kOwnScreen));
  // Nobody reads it any more, so it fills up.
  for (int i = 0; i < 40; ++i) EXPECT_TRUE(lamps.shine());
  terminal.signal(SIGTERM);
  EXPECT_EQ(terminal.status(), 0);
  expectSettingsBack();
}

TEST_F(OnATerminal, ThePictureFollowsTheSizeOfTheTerminal) {
  playUntilPictured();
  EXPECT_TRUE(terminal.shows("q ends")) << "the line below the picture";
  terminal.screen.clear();
  terminal.resize(40, 10);
  EXPECT_TRUE(terminal.shows("\x1b[2J"));
  EXPECT_TRUE(terminal.shows("▀"));
  terminal.screen.clear();
  EXPECT_TRUE(terminal.shows("▀"));
  EXPECT_THAT(terminal.screen, Not(HasSubstr("\x1b[11;1H")));
}

TEST_F(OnATerminal, ATerminalThatIsGoneEndsThePlay) {
  playUntilPictured();
  terminal.hangUp();
  EXPECT_EQ(terminal.status(), 0);
  expectStreamEnded();
}

/// The player in a shell without a terminal.
class WithoutATerminal : public testing::Test {
 protected:
  WithoutATerminal() { std::filesystem::create_directories(folder); }
  ~WithoutATerminal() override { std::filesystem::remove_all(folder); }

  /// The exit status; what it wrote stands in `out` and `err`.
  int run(const std::string& options) {
    const std::string command =
        "cd " + folder + " && " KORVANE_PLAY " " + options + " </dev/null >out 2>err";
    const int status = std::system(command.c_str());
    out = bytesOf("out");
    err = bytesOf("err");
    return WEXITSTATUS(status);
  }
  std::string bytesOf(const std::string& name) const {
    std::ifstream stream(folder + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
    return name;
  }

  const std::string folder = testing::TempDir() + "korvane-play-" +
                             testing::UnitTest::GetInstance()->current_test_info()->name();
  Lamps lamps;
  std::string out;
  std::string err;
};

TEST_F(WithoutATerminal, ItIsSilentAndPlaysForItsTime) {
  EXPECT_EQ(run("--seconds 0.3 --output " + lamps.target() + " " + kShow), 0);
  EXPECT_EQ(out, "");
  EXPECT_EQ(err, "");
  EXPECT_GT(lamps.take(), 3);
  EXPECT_EQ(lamps.terminated, 3);
}

TEST_F(WithoutATerminal, AFileThatIsNoShowIsToldAndNothingIsSent) {
  const struct {
    std::string name, bytes, told;
  } files[] = {
      {"wrong.Korvane", "wrong\r\nV2.0\r\n", "no show of version V1.0"},
      {"empty.Korvane", "", "empty.Korvane"},
      {"half.Korvane", "half\r\nV1.0\r\n0,5\r\n1\r\n", "half.Korvane"},
      {"picture.Korvane", std::string(3000, '\0'), "picture.Korvane"},
  };
  for (const auto& file : files) {
    SCOPED_TRACE(file.name);
    EXPECT_EQ(run("--output " + lamps.target() + " " + write(file.name, file.bytes)), 1);
    EXPECT_THAT(err, StartsWith("korvane-play: "));
    EXPECT_THAT(err, HasSubstr(file.told));
    EXPECT_EQ(lamps.take(), 0);
  }
}

TEST_F(WithoutATerminal, AShowThatIsNotThereIsToldAndNothingIsSent) {
  EXPECT_EQ(run("--output " + lamps.target() + " nowhere.Korvane"), 1);
  EXPECT_EQ(err, "korvane-play: there is no show nowhere.Korvane\n");
  EXPECT_EQ(lamps.take(), 0);
}

TEST_F(WithoutATerminal, NoShowIsWrongUsageAndNothingIsSent) {
  EXPECT_EQ(run("--seconds 0.3 --output " + lamps.target()), 2);
  EXPECT_EQ(err, "korvane-play: name a show to play; --help tells the usage\n");
  EXPECT_EQ(lamps.take(), 0);
}

TEST_F(WithoutATerminal, AWrongTargetIsWrongUsage) {
  EXPECT_EQ(run("--output sacn:0@127.0.0.1 " + kShow), 2);
  EXPECT_THAT(err, HasSubstr("sACN universe 0 is out of range"));
  EXPECT_EQ(run("--seconds soon " + kShow), 2);
  EXPECT_THAT(err, HasSubstr("--seconds must be a number above 0"));
}

TEST_F(WithoutATerminal, NetworkErrorsAreToldOnceAndAgainWhenItWorks) {
  EXPECT_EQ(run("--seconds 1 --output sacn:4712%nosuchif " + kShow), 0);
  EXPECT_EQ(
      err, "korvane-play: sACN universe 4712 to 239.255.18.104:5568 by nosuchif: No such device\n");
}

}  // namespace
}  // namespace korvane
