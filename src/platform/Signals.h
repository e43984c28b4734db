#pragma once

#include <span>

namespace korvane {

/// Signals of the system as events of a loop: they are noted, and make a descriptor readable. One
/// that the program was started to ignore, as `nohup` and a shell's background do, stays ignored.
/// One set of signals a program.
class Signals {
 public:
  static void note(std::span<const int> signals);

  /// Readable while a signal waits to be taken.
  static int descriptor();
  /// Empties the descriptor. Call it before the signals are taken.
  static void drain();
  /// Whether the signal came since it was taken last.
  static bool take(int signal);

  /// Gives the signal its usual effect on this program at once: a stop, say. Noted again after it.
  static void suffer(int signal);
};

/// Notes what asks a program to end: SIGHUP, SIGINT, SIGTERM.
void noteEndSignals();
/// The signal that asked the program to end since the last call, 0 for none.
int takeEndSignal();
/// Waits so many milliseconds, -1 for ever, until a noted signal comes or `descriptor` is readable;
/// -1 for no descriptor. False when it was a signal.
bool waitUnlessSignalled(int milliseconds, int descriptor = -1);

}  // namespace korvane
