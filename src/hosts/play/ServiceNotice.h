#pragma once

#include <cstdint>
#include <string>

namespace korvane {

/// Tells the service manager that started the program how it fares, by its datagrams (sd_notify).
/// Without one, in a terminal, nothing is told.
class ServiceNotice {
 public:
  /// Takes what the environment says: NOTIFY_SOCKET and WATCHDOG_USEC.
  ServiceNotice();

  void ready() { tell("READY=1"); }
  void stopping() { tell("STOPPING=1"); }
  void status(const std::string& text);
  /// Call it at least every second; the watchdog hears of it twice in its time.
  void alive(std::int64_t milliseconds);

 private:
  void tell(const std::string& text) const;

  std::string socket_;
  std::string status_;
  std::int64_t interval_ = 0;  // ms; 0: there is no watchdog
  std::int64_t next_ = 0;
};

}  // namespace korvane
