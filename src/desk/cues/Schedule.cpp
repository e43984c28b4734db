#include "desk/cues/Schedule.h"

#include <charconv>
#include <ctime>
#include <tuple>

namespace korvane {
namespace {

constexpr std::int64_t kMinute = 60;                   // seconds
constexpr std::int64_t kLargestShift = 240 * kMinute;  // more than any clock is ever changed by

std::tm localTime(std::int64_t seconds) {
  const auto moment = static_cast<std::time_t>(seconds);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &moment);
#else
  localtime_r(&moment, &local);
#endif
  return local;
}

// What the clock on the wall shows, for comparisons.
auto shown(const std::tm& local) {
  return std::tuple(local.tm_year, local.tm_mon, local.tm_mday, local.tm_hour * 60 + local.tm_min);
}

// The first moment at which the local clock shows so many minutes of a day, or more.
std::int64_t momentOf(const std::tm& day, int minutes) {
  std::tm wanted{};
  wanted.tm_year = day.tm_year;
  wanted.tm_mon = day.tm_mon;
  wanted.tm_mday = day.tm_mday;
  wanted.tm_hour = minutes / 60;
  wanted.tm_min = minutes % 60;
  wanted.tm_isdst = -1;
  const auto goal = std::tuple(day.tm_year, day.tm_mon, day.tm_mday, minutes);
  std::int64_t moment = std::mktime(&wanted) - kLargestShift;
  while (shown(localTime(moment)) < goal) moment += kMinute;
  return moment;
}

// At noon, which every day has.
std::tm dayFrom(const std::tm& today, int days) {
  std::tm day{};
  day.tm_year = today.tm_year;
  day.tm_mon = today.tm_mon;
  day.tm_mday = today.tm_mday + days;
  day.tm_hour = 12;
  day.tm_isdst = -1;
  std::mktime(&day);
  return day;
}

}  // namespace

std::optional<int> minutesOfDay(const std::string& text) {
  const std::size_t colon = text.find(':');
  if (colon == std::string::npos || colon == 0 || colon > 2 || text.size() != colon + 3) return {};
  int hours = -1, minutes = -1;
  const char* const middle = text.data() + colon;
  const char* const end = text.data() + text.size();
  const bool numbers = std::from_chars(text.data(), middle, hours).ptr == middle &&
                       std::from_chars(middle + 1, end, minutes).ptr == end;
  if (!numbers || hours < 0 || hours > 23 || minutes < 0 || minutes > 59) return {};
  return hours * 60 + minutes;
}

Schedule::Span Schedule::at(std::int64_t seconds) const {
  const std::tm today = localTime(seconds);
  for (int day = -1;; ++day) {
    Span span;
    span.begin = momentOf(dayFrom(today, day), from_);
    span.end = momentOf(dayFrom(today, to_ > from_ ? day : day + 1), to_);
    // An hour that a change of the clock leaves out may be the whole span.
    if (span.end > seconds && span.begin < span.end) return span;
  }
}

}  // namespace korvane
