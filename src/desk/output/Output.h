#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "desk/network/Claim.h"
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
  /// Other settings; an output that is on ends as it was set and begins anew.
  void configure(const OutputConfig& config);

  bool on() const { return thread_.joinable(); }
  void switchOn();
  /// Ends the stream cleanly and waits for that, about 0.1 s.
  void switchOff();
  /// Begins to end without waiting, so that several outputs end at once; switchOff waits.
  void beginEnd();

  /// The newest picture, which the output's curve and white balance make its bytes of; an output
  /// that is off keeps it for when it is switched on.
  void show(const LevelledPicture& wall);
  /// The bytes that are sent, or would be: what a monitor shows.
  const OutputPicture& newest() const { return newest_; }

  OutputFigures figures() const;
  /// For people: the name or what describe says, and the problem if there is one; "off".
  std::string status() const;

 private:
  void run(Sender sender, const std::string& rival);
  std::string rival() const;

  OutputConfig config_;
  const SenderIdentity identity_;
  Network& network_;
  OutputStage stage_;
  LevelledPicture wall_;
  OutputPicture newest_;
  std::vector<Claim> claims_;  ///< of the places that are sent to, while on
  std::thread thread_;

  mutable std::mutex mutex_;  ///< Guards what follows.
  std::condition_variable wake_;
  std::optional<OutputPicture> next_;
  TimePoint shownAt_{};
  bool ending_ = false;
  OutputFigures figures_;
};

}  // namespace korvane
