// The real player without a person: films, cues, a service manager.

#include <gif_lib.h>
#include <gmock/gmock.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "hosts/play/TestManager.h"
#include "testing/SourceFolder.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

using testing::HasSubstr;

const std::string kShow = sourceFolder() + "/examples/1-club-night.Korvane";
constexpr int kCols = 12, kRows = 12;  // of that show

struct Played {
  std::string out;
  int status;
};

Played play(const std::string& arguments) {
  FILE* pipe = popen((std::string(KORVANE_PLAY " ") + arguments).c_str(), "r");
  Played run;
  std::array<char, 4096> part{};
  for (std::size_t size = 0; (size = fread(part.data(), 1, part.size(), pipe)) > 0;)
    run.out.append(part.data(), size);
  const int status = pclose(pipe);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

class Unattended : public testing::Test {
 protected:
  Unattended() {
    std::filesystem::create_directories(folder);
    for (const char* ending : {".Korvane", ".korvaneconf"})
      std::filesystem::copy_file(sourceFolder() + "/examples/1-club-night" + std::string(ending),
                                 folder + "/show" + ending,
                                 std::filesystem::copy_options::overwrite_existing);
  }
  ~Unattended() override { std::filesystem::remove_all(folder); }
  void writeProject(const std::string& text) const {
    std::ofstream(folder + "/show.korvanedesk") << text;
  }
  std::string folder = testing::TempDir() + "korvane-unattended-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
  std::string show = folder + "/show.Korvane";
};

TEST_F(Unattended, RawIsTwentyFivePicturesASecondAndTheSameEachTime) {
  const Played first = play("--seconds 3 --raw " + kShow);
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.out.size(), 3U * 25 * kCols * kRows * 3);
  const std::size_t picture = kCols * kRows * 3;
  EXPECT_NE(first.out.substr(0, picture), first.out.substr(50 * picture, picture)) << "it moves";
  EXPECT_EQ(play("--seconds 3 --raw " + kShow).out, first.out);
}

TEST_F(Unattended, AReaderThatHasSeenEnoughEndsTheFilmInPeace) {
  const Played run = play("--seconds 100000 --raw " + kShow + " | head -c 1000");
  EXPECT_EQ(run.out.size(), 1000U);
}

TEST_F(Unattended, AGifHasTheShowsLengthAndTheLampsColours) {
  const std::string file = folder + "/film.gif";
  const Played run = play("--seconds 2 --gif " + file + " " + kShow);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  GifFileType* gif = DGifOpenFileName(file.c_str(), nullptr);
  ASSERT_NE(gif, nullptr);
  ASSERT_EQ(DGifSlurp(gif), GIF_OK);
  EXPECT_EQ(gif->SWidth % kCols, 0);
  EXPECT_EQ(gif->SWidth, gif->SHeight);
  int hundredths = 0;
  for (int i = 0; i < gif->ImageCount; ++i) {
    GraphicsControlBlock control{};
    ASSERT_EQ(DGifSavedExtensionToGCB(gif, i, &control), GIF_OK);
    hundredths += control.DelayTime;
  }
  EXPECT_EQ(hundredths, 200);
  // The first picture, lamp by lamp, is that of the raw film.
  const std::string raw = play("--seconds 1 --raw " + kShow).out;
  const int cell = gif->SWidth / kCols;
  const SavedImage& image = gif->SavedImages[0];
  for (int row = 0; row < kRows; ++row) {
    for (int col = 0; col < kCols; ++col) {
      const int pixel = (row * cell + cell / 3) * gif->SWidth + col * cell + cell / 3;
      const GifColorType& color = image.ImageDesc.ColorMap->Colors[image.RasterBits[pixel]];
      const auto at = static_cast<std::size_t>(row * kCols + col) * 3;
      EXPECT_EQ(color.Red, static_cast<unsigned char>(raw[at])) << col << ", " << row;
      EXPECT_EQ(color.Blue, static_cast<unsigned char>(raw[at + 2])) << col << ", " << row;
    }
  }
  DGifCloseFile(gif, nullptr);
  EXPECT_FALSE(std::filesystem::exists(file + ".part"));
}

TEST_F(Unattended, AFileThatCantBeWrittenIsTold) {
  const Played run = play("--seconds 1 --gif /nowhere/film.gif " + kShow + " 2>&1");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("/nowhere/film.gif can't be written"));
}

TEST_F(Unattended, CuesOfTheProjectAreRun) {
  writeProject(R"({"version": 1, "cues": {"loop": true, "list": [
    {"name": "dark", "move": "cut left", "master": 100, "end": "seconds", "after": 1},
    {"name": "light", "move": "cut right", "end": "seconds", "after": 1}]}})");
  const Played cues = play("--cues --seconds 4 --raw " + show);
  EXPECT_EQ(cues.status, 0);
  const std::size_t picture = kCols * kRows * 3;
  ASSERT_EQ(cues.out.size(), 100 * picture);
  EXPECT_NE(cues.out.substr(12 * picture, picture), cues.out.substr(37 * picture, picture));
  EXPECT_NE(play("--auto 1 --seconds 4 --raw " + show).out, cues.out);
}

TEST_F(Unattended, AProjectWithoutCuesCantRunThem) {
  const Played run = play("--cues --seconds 1 " + show + " 2>&1");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("there are no cues in "));
}

TEST_F(Unattended, AWrongCommandLineSaysWhatIsWrong) {
  for (const auto& [arguments, told] : std::initializer_list<std::pair<const char*, const char*>>{
           {"--auto often", "--auto must be a time, as in 30s or 16beats, not 'often'"},
           {"--auto 0beats", "--auto must be a time"},
           {"--from 18:00", "--from and --to need each other"},
           {"--from 25:00 --to 2:00", "--from must be a time of the day, as in 18:00, not '25:00'"},
           {"--after never", "--after must be dark, hold or end"},
           {"--after dark", "--after needs --from and --to"},
           {"--cues --auto 3", "--cues and --auto exclude each other"},
           {"--raw", "--raw needs --seconds"},
           {"--raw --gif x.gif --seconds 1", "--gif and --raw exclude each other"},
           {"--gif x.gif --seconds 1 --resume", "--gif always begins at the beginning"},
           {"--raw --seconds 1 --from 1:00 --to 2:00", "--raw knows no times of the day"}}) {
    const Played run = play(std::string(arguments) + " " + kShow + " 2>&1");
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_THAT(run.out, HasSubstr(told));
  }
}

TEST_F(Unattended, AServiceManagerHearsThatItIsReadyAliveAndStopping) {
  const Manager manager(folder + "/notify");
  const pid_t player = manager.start({kShow});
  EXPECT_EQ(manager.hear(), "READY=1");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(manager.hear("WATCHDOG"), "WATCHDOG=1");
  kill(player, SIGTERM);
  EXPECT_EQ(manager.hear("STOPPING"), "STOPPING=1");
  EXPECT_EQ(endOf(player), 0);
}

TEST_F(Unattended, AKilledPlayerGoesOnAtItsCue) {
  writeProject(R"({"version": 1, "cues": {"list": [
    {"name": "one", "move": "cut left", "end": "seconds", "after": 0.1},
    {"name": "two", "move": "cut right", "end": "seconds", "after": 3600},
    {"name": "three", "move": "cut left"}]}})");
  setenv("XDG_STATE_HOME", folder.c_str(), 1);
  const Manager manager(folder + "/notify");
  for (int killed = 0; killed < 3; ++killed) {
    const pid_t player = manager.start({"--resume", "--cues", show});
    if (killed == 0) {
      EXPECT_THAT(manager.hear("STATUS=Cue 1"), HasSubstr("one"));
      EXPECT_THAT(manager.hear("STATUS"), HasSubstr("Cue 2 two"));
    } else {
      EXPECT_THAT(manager.hear("STATUS"), HasSubstr("Cue 2 two")) << "not from the beginning";
    }
    kill(player, SIGKILL);
    EXPECT_NE(endOf(player), 0);
  }
  unsetenv("XDG_STATE_HOME");
}

TEST_F(Unattended, AKilledPlayerSendsToItsOwnOutputsAgainNotToThoseOfTheProject) {
  const UdpReceiver own, others;
  writeProject(R"({"version": 1, "outputs": [{"target": "artnet:0)" + others.place() + R"("}]})");
  setenv("XDG_STATE_HOME", folder.c_str(), 1);
  const Manager manager(folder + "/notify");
  const std::vector<std::string> named = {"--resume", "--output", "artnet:0" + own.place(), show};
  for (const std::vector<std::string>& words : {named, {"--resume"}}) {
    const pid_t player = manager.start(words);
    EXPECT_FALSE(own.packet().empty());
    manager.hear("STATUS");
    kill(player, SIGKILL);
    endOf(player);
    while (!own.packet(false).empty()) continue;
    EXPECT_TRUE(others.packet(false).empty());
  }
  unsetenv("XDG_STATE_HOME");
}

}  // namespace
}  // namespace korvane
