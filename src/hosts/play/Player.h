#pragma once

#include <filesystem>
#include <optional>

#include "desk/cues/PlugInStage.h"
#include "desk/output/LampFeed.h"
#include "hosts/play/Messages.h"
#include "hosts/play/PlayOptions.h"
#include "hosts/play/PlayState.h"
#include "hosts/play/ServiceNotice.h"
#include "hosts/play/Terminal.h"
#include "platform/HeadlessPlatform.h"
#include "platform/LocaleFormat.h"
#include "platform/WallClock.h"
#include "shell/Plugin.h"

namespace korvane {

/// Message boxes and failures are lines of text; there is nobody to press OK.
class PlayerPlatform : public HeadlessPlatform {
 public:
  PlayerPlatform() { format = localeFormat(); }
  void messageBox(const std::string& text) override { tell(text); }
  void failed(const Failure& failure) override { tell(failure.what()); }
  void saveFailed(const FailedSave& failed) override { tell(failed.told()); }
  bool startsWithout(const BrokenGrid& grid) override {
    tell(grid.told());
    return true;
  }
  std::int64_t timeOfDay() override { return clock ? clock() : wallTimeOfDay(); }
  Raster loadPicture(const std::string& path) override;

  std::function<void(const std::string& text)> tell;
  std::function<std::int64_t()> clock;  ///< none: the machine's
};

/// The desk: the project is the show; the picture of each pass goes to the lamps.
class PlayerHost : public Host {
 public:
  PlayerHost(const std::filesystem::path& show, LampFeed& feed)
      : stem_(show.parent_path() / show.stem()), feed_(feed) {}

  std::int32_t ChannelMAXCHANNELS() override { return kUniverseChannels; }
  std::string ProjectName() override { return stem_.filename().string(); }
  std::string ProjectBaseFilename() override { return stem_.string(); }
  void UserInteraction() override { feed_.announce(); }
  void SetChannel(std::int32_t, std::int32_t, bool) override {}

 private:
  std::filesystem::path stem_;
  LampFeed& feed_;
};

/// A show that plays in the terminal and to the lamps.
class Player {
 public:
  explicit Player(const PlayOptions& options);

  /// Plays until the time is over, a key or a signal ends it. False, with the reason told and
  /// nothing sent, if the show can't be opened.
  bool play();
  /// Makes a film of the show in virtual time. False, with the reason told, if it can't be opened.
  bool film();

 private:
  std::filesystem::path showPath() const;
  bool event(const std::function<void()>& what);
  void tell(const std::string& text);
  bool open();
  void openShow();
  void takeProject();
  void bindState();
  void resume();
  Json runState() const;
  void keepState();
  void bindRun();
  /// False, with the reason told, if cues are to be run and there are none.
  bool hasCues();
  void attend();
  void pressRun(char key);
  bool press(char key);
  void pressLevel(char key);
  void pressLook(char key);
  void tellNetwork();
  void draw();
  std::string statusLine() const;
  std::string runText() const;

  PlayOptions options_;
  LampFeed feed_{"korvane-play"};
  PlayerPlatform platform_;
  PlayerHost host_;
  Plugin plugin_{platform_};
  WallClock clock_{plugin_.engine.timers, [this] { feed_.endOfPass(plugin_.engine.v); }};
  PlugInStage stage_{plugin_};
  ShowRun run_{plugin_.engine.timers, stage_};
  std::optional<Evening> evening_;
  ServiceNotice service_;
  bool resumed_ = false;  // the run goes on where it was
  bool dark_ = false;     // outside the hours
  Messages messages_;
  std::optional<Terminal> terminal_;
  PlayState state_{playStateFile()};
  std::optional<std::int64_t> drawnAt_;
};

}  // namespace korvane
