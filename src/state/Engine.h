#pragma once

#include "platform/Desktop.h"
#include "platform/PictureBox.h"
#include "platform/Platform.h"
#include "platform/Random.h"
#include "platform/TimerQueue.h"
#include "state/Host.h"
#include "state/Master.h"
#include "state/Variablen.h"

namespace korvane {

/// The one object that every routine gets by reference: the shared state with the timers, the
/// windows, the host and the services of the platform. Several can live in one process.
struct Engine {
  explicit Engine(Platform& services);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  /// The desk; kObjectNotSet before `ITharnPlugin_Init`.
  Host& host();
  /// The deck that the open effect dialog edits.
  Deck& editedDeck() { return v.editDeck == 0 ? v.A : v.B; }
  /// Reseeds the random generator from the clock: seconds since midnight, single precision.
  void randomize();
  Platform& platform;
  TimerQueue timers;
  Variablen v{timers};
  Master master{timers};
  Desktop desktop;
  Random random;
  PictureBox sim;              ///< the surface of the simulation window
  Form* mainWindow = nullptr;  ///< `MatrixForm`
};

}  // namespace korvane
