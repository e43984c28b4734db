#include "hosts/desk/QuitOnSignal.h"

#include <sys/signalfd.h>

#include <QCoreApplication>
#include <csignal>

namespace korvane {

QuitOnSignal::QuitOnSignal() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTERM);
  sigaddset(&set, SIGINT);
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signals_ = signalfd(-1, &set, SFD_CLOEXEC);
}

void QuitOnSignal::listen() {
  if (signals_ < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(signals_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [] { QCoreApplication::exit(); });
}

}  // namespace korvane
