// korvane-play: plays a saved show in the terminal, and to the lamps.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <optional>

#include "desk/network/NetworkOutput.h"
#include "hosts/play/PlayOptions.h"
#include "hosts/play/Terminal.h"
#include "hosts/play/TerminalPicture.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "platform/LocaleFormat.h"
#include "platform/TextFile.h"
#include "platform/WallClock.h"
#include "shell/Plugin.h"

#ifdef KORVANE_PICTURES
#include "views/shared/pictures/PictureFile.h"
#endif

namespace korvane {
namespace {

constexpr int kPictureInterval = 40;  // ms between two pictures in the terminal

/// Message boxes and failures are lines of text; there is nobody to press OK.
class PlayerPlatform : public HeadlessPlatform {
 public:
  PlayerPlatform() { format = localeFormat(); }
  void messageBox(const std::string& text) override { std::cerr << text << "\n"; }
  void failed(const Failure& failure) override {
    HeadlessPlatform::failed(failure);
    std::cerr << failure.what() << "\n";
  }
  std::int64_t timeOfDay() override { return wallTimeOfDay(); }
#ifdef KORVANE_PICTURES
  Raster loadPicture(const std::string& path) override { return readPicture(path); }
#endif
};

/// The desk: the project is the show, the channels go to the network.
class PlayerHost : public Host {
 public:
  PlayerHost(const std::filesystem::path& show, NetworkOutput& output)
      : stem_(show.parent_path() / show.stem()), output_(output) {}

  std::int32_t ChannelMAXCHANNELS() override { return 512; }
  std::string ProjectName() override { return stem_.filename().string(); }
  std::string ProjectBaseFilename() override { return stem_.string(); }
  void UserInteraction() override {}
  void SetChannel(std::int32_t channel, std::int32_t value, bool) override {
    output_.setChannel(channel, static_cast<std::uint8_t>(value));
  }

 private:
  std::filesystem::path stem_;
  NetworkOutput& output_;
};

class Player {
 public:
  explicit Player(const PlayOptions& options) : options_(options), host_(showPath(), output_) {}

  /// Whether the show could be opened and played to its end.
  bool play();

 private:
  std::filesystem::path showPath() const {
    return std::filesystem::absolute(options_.show.empty() ? "untitled" : options_.show);
  }
  bool event(const std::function<void()>& what) {
    const bool well = runEvent(platform_, what);
    output_.endOfPass();
    return well;
  }
  bool open();
  bool press(char key);
  void draw();

  PlayOptions options_;
  NetworkOutput output_{"korvane-play"};
  PlayerPlatform platform_;
  PlayerHost host_;
  Plugin plugin_{platform_};
  WallClock clock_{plugin_.engine.timers, [this] { output_.endOfPass(); }};
  std::optional<Terminal> terminal_;
  std::string drawn_;
};

bool Player::open() {
  if (!event([this] { plugin_.plugIn.ITharnPlugin_Init("korvane-play", options_.show, host_); }))
    return false;
  if (!event([this] { plugin_.engine.desktop.show(plugin_.matrixForm); })) return false;
  if (!options_.show.empty()) {
    platform_.answers.emplace_back(showPath().string());
    if (!event([this] { plugin_.matrixForm.load.click(); })) return false;
  }
  if (!options_.output.empty()) output_.start(parseOutputTarget(options_.output));
  return event([this] { plugin_.matrixForm.active.setValue(1); });
}

/// False to end.
bool Player::press(char key) {
  Master& master = plugin_.engine.master;
  if (key == 'a') event([&] { master.AutoFadeA.click(); });
  if (key == 'b') event([&] { master.AutoFadeB.click(); });
  if (key == ' ') event([&] { plugin_.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0); });
  return key != 'q';
}

void Player::draw() {
  if (!terminal_->hasPictures()) return;
  const Frame& frame = plugin_.engine.v.frameM;
  const std::string picture = terminalPicture(frame);
  if (picture == drawn_) return;
  terminal_->write((drawn_.empty() ? "" : backToTop(frame)) + picture);
  drawn_ = picture;
}

bool Player::play() {
  if (!open()) return false;
  const std::string name = options_.show.empty() ? "a new show" : options_.show;
  std::cerr << "Playing " << name << ", output " << output_.status()
            << ". a, b fade; space beats; q ends.\n";
  terminal_.emplace();
  const TimerQueue::Gate gate = [this](const std::function<void()>& tick) {
    runEvent(platform_, tick);
  };
  const TimerQueue& timers = plugin_.engine.timers;
  const auto end = timers.now() + static_cast<std::int64_t>(std::lround(options_.seconds * 1000));
  while (options_.seconds == 0 || timers.now() < end) {
    clock_.pass(gate);
    draw();
    const int next = clock_.untilNext();
    if (!press(
            terminal_->waitForKey(next < 0 ? kPictureInterval : std::min(next, kPictureInterval))))
      break;
  }
  return true;
}

int run(int count, char** words) {
  const PlayOptions options = parsePlayOptions(count, words);
  if (options.help) {
    std::cout << kPlayUsage;
    return 0;
  }
  if (!options.show.empty() && !fileExists(options.show)) {
    std::cerr << "korvane-play: there is no show " << options.show << "\n";
    return 1;
  }
  if (!options.output.empty())
    parseOutputTarget(options.output);  // a wrong one before anything starts
  return Player(options).play() ? 0 : 1;
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
  try {
    return korvane::run(count, words);
  } catch (const std::exception& error) {
    std::cerr << "korvane-play: " << error.what() << "; --help tells the usage\n";
    return 2;
  }
}
