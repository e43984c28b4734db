#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "desk/network/Claim.h"
#include "desk/network/ErrorNews.h"
#include "desk/output/Sender.h"
#include "desk/wall/OutputLook.h"

namespace korvane {

/// One output: on, a thread of its own sends the newest picture, its repeats and keep-alives, by
/// absolute times on the monotonic clock; off, there is no thread and no socket. A window that is
/// busy or hangs never delays it. All calls are for one thread, the window's.
class Output {
 public:
  Output(OutputConfig config, const SenderIdentity& identity, Network& network = machineNetwork());
  ~Output() { switchOff(); }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  const OutputConfig& config() const { return config_; }
  /// Its name, or what describe says.
  std::string title() const { return config_.name.empty() ? describe(config_) : config_.name; }
  /// Other settings. The lamps of an output that is on see no gap while it goes to the same places;
  /// else it ends as it was set, and begins anew.
  void configure(const OutputConfig& config);

  bool on() const { return thread_.joinable(); }
  void switchOn();
  /// Ends the stream cleanly and waits for that, about 0.1 s.
  void switchOff();
  /// Begins to end without waiting, so that several outputs end at once; switchOff waits. It ends
  /// as it is set, unless told otherwise.
  void beginEnd(std::optional<AtEnd> how = {});

  /// The newest picture, which the output's curve and white balance make its bytes of; an output
  /// that is off keeps it for when it is switched on.
  void show(const LevelledPicture& wall);
  /// The bytes that are sent, or would be: what a monitor shows.
  const OutputPicture& newest() const { return newest_; }

  OutputFigures figures() const;
  /// For people: the title, and the problem if there is one; "off".
  std::string status() const;
  /// What is to be told of it now: each problem once, and once that it works again.
  std::optional<std::string> news();

 private:
  void stop();
  void run(Sender sender);
  void claimAgain();
  std::string rival() const;

  OutputConfig config_;
  const SenderIdentity identity_;
  Network& network_;
  OutputStage stage_;
  LevelledPicture wall_;
  OutputPicture newest_;
  /// The places that are sent to, and the claims of them, while on. The thread's while it runs.
  std::vector<std::pair<std::string, Claim>> claims_;
  std::thread thread_;
  ErrorNews news_;

  mutable std::mutex mutex_;  ///< Guards what follows.
  std::condition_variable wake_;
  std::optional<OutputPicture> next_;
  TimePoint shownAt_{};
  std::optional<AtEnd> ending_;
  bool leaving_ = false;  ///< It stops without a word, as another one goes on for it.
  OutputFigures figures_;
};

}  // namespace korvane
