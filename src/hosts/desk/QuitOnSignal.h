#pragma once

#include <QSocketNotifier>
#include <memory>

namespace korvane {

/// Ends the event loop when the system asks the program to end (SIGHUP, SIGINT, SIGTERM), so that
/// the output is closed in good order. Made before any thread.
class QuitOnSignal {
 public:
  QuitOnSignal();

  /// Begins to listen; the application must exist.
  void listen();

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace korvane
