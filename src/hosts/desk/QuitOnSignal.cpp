#include "hosts/desk/QuitOnSignal.h"

#include <QCoreApplication>

#include "platform/Signals.h"

namespace korvane {

QuitOnSignal::QuitOnSignal() { noteEndSignals(); }

void QuitOnSignal::listen() {
  if (Signals::descriptor() < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(Signals::descriptor(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [] {
    Signals::drain();
    if (takeEndSignal() != 0) QCoreApplication::exit();
  });
}

}  // namespace korvane
