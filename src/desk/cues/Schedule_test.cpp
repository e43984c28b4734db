// Shows by the clock: across midnight and both changes of summer time, in virtual time.

#include "desk/cues/Schedule.h"

#include <cstdlib>
#include <ctime>

#include "desk/cues/Evening.h"
#include "desk/cues/TestShow.h"

namespace korvane {
namespace {

/// The time zone of a test, without a file that the machine may lack.
class InZone {
 public:
  explicit InZone(const char* rules) {
    const char* before = std::getenv("TZ");
    if (before != nullptr) before_ = before;
    setenv("TZ", rules, 1);
    tzset();
  }
  ~InZone() {
    before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
    tzset();
  }
  InZone(const InZone&) = delete;
  InZone& operator=(const InZone&) = delete;

 private:
  std::optional<std::string> before_;
};

constexpr const char* kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";

std::int64_t utc(int year, int month, int day, int hour, int minute = 0) {
  std::tm time{};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  time.tm_mday = day;
  time.tm_hour = hour;
  time.tm_min = minute;
  return timegm(&time);
}

std::string text(std::int64_t seconds) {
  const auto moment = static_cast<std::time_t>(seconds);
  char words[40];
  std::strftime(words, sizeof words, "%d %H:%M", gmtime(&moment));
  return words;
}

std::string spanText(const Schedule& schedule, std::int64_t at) {
  const Schedule::Span span = schedule.at(at);
  return text(span.begin) + " - " + text(span.end);
}

TEST(Schedules, ATimeOfTheDayIsReadAndAnythingElseIsNone) {
  EXPECT_EQ(minutesOfDay("18:00"), 18 * 60);
  EXPECT_EQ(minutesOfDay("7:05"), 7 * 60 + 5);
  EXPECT_EQ(minutesOfDay("00:00"), 0);
  for (const char* wrong :
       {"", ":", "24:00", "18:60", "18", "18:0", "18:000", "-1:00", "1a:00", "18:00 ", "118:00"})
    EXPECT_EQ(minutesOfDay(wrong), std::nullopt) << wrong;
}

TEST(Schedules, HoursGoAcrossMidnightInUniversalTime) {
  const InZone zone(kBerlin);
  const Schedule night(18 * 60, 2 * 60);
  // Winter: local time is an hour ahead.
  EXPECT_EQ(spanText(night, utc(2026, 1, 10, 12)), "10 17:00 - 11 01:00");
  EXPECT_EQ(spanText(night, utc(2026, 1, 10, 17)), "10 17:00 - 11 01:00");
  EXPECT_EQ(spanText(night, utc(2026, 1, 11, 0, 59)), "10 17:00 - 11 01:00");
  EXPECT_EQ(spanText(night, utc(2026, 1, 11, 1)), "11 17:00 - 12 01:00");
  // Summer: two hours.
  EXPECT_EQ(spanText(night, utc(2026, 7, 31, 20)), "31 16:00 - 01 00:00");
  const Schedule day(9 * 60 + 30, 17 * 60);
  EXPECT_EQ(spanText(day, utc(2026, 1, 10, 8)), "10 08:30 - 10 16:00");
  EXPECT_EQ(spanText(day, utc(2026, 1, 10, 20)), "11 08:30 - 11 16:00");
  const Schedule always(6 * 60, 6 * 60);
  EXPECT_EQ(spanText(always, utc(2026, 1, 10, 4)), "09 05:00 - 10 05:00");
}

TEST(Schedules, TheNightOfTheChangeToSummerTimeIsAnHourShorter) {
  const InZone zone(kBerlin);  // 29 March 2026, 01:00 universal time: 02:00 becomes 03:00
  const Schedule night(18 * 60, 4 * 60);
  EXPECT_EQ(spanText(night, utc(2026, 3, 28, 20)), "28 17:00 - 29 02:00");
  EXPECT_EQ(spanText(night, utc(2026, 3, 29, 20)), "29 16:00 - 30 02:00");
  // A time that the night doesn't have is the moment of the change.
  EXPECT_EQ(spanText(Schedule(18 * 60, 2 * 60 + 30), utc(2026, 3, 28, 20)), "28 17:00 - 29 01:00");
  EXPECT_EQ(spanText(Schedule(2 * 60 + 10, 5 * 60), utc(2026, 3, 29, 0)), "29 01:00 - 29 03:00");
  EXPECT_EQ(spanText(Schedule(2 * 60 + 10, 2 * 60 + 50), utc(2026, 3, 29, 0)),
            "30 00:10 - 30 00:50")
      << "nothing is left of it";
}

TEST(Schedules, TheNightOfTheChangeToWinterTimeIsAnHourLonger) {
  const InZone zone(kBerlin);  // 25 October 2026, 01:00 universal time: 03:00 becomes 02:00
  EXPECT_EQ(spanText(Schedule(18 * 60, 4 * 60), utc(2026, 10, 24, 20)), "24 16:00 - 25 03:00");
  // Of a time that comes twice the first is meant.
  EXPECT_EQ(spanText(Schedule(18 * 60, 2 * 60 + 30), utc(2026, 10, 24, 20)), "24 16:00 - 25 00:30");
  EXPECT_EQ(spanText(Schedule(2 * 60 + 30, 5 * 60), utc(2026, 10, 24, 23)), "25 00:30 - 25 04:00");
}

TEST(Schedules, EveryMinuteOfAYearFindsASpanThatDoesNotOverlapItsNeighbours) {
  for (const char* rules : {kBerlin, "EST5EDT,M3.2.0,M11.1.0", "LHST-10:30LHDT-11,M10.1.0,M4.1.0",
                            "NZST-12NZDT,M9.5.0,M4.1.0/3", "UTC0"}) {
    const InZone zone(rules);
    for (const auto& [from, to] :
         {std::pair(18 * 60, 2 * 60), std::pair(2 * 60 + 15, 2 * 60 + 45)}) {
      const Schedule schedule(from, to);
      std::int64_t at = utc(2026, 1, 1, 0);
      int spans = 0;
      while (at < utc(2027, 1, 1, 0)) {
        const Schedule::Span span = schedule.at(at);
        ASSERT_GT(span.end, at);
        ASSERT_LT(span.begin, span.end);
        ASSERT_EQ(schedule.at(span.begin), span);
        ASSERT_EQ(schedule.at(span.end - 1), span);
        at = span.end;
        ++spans;
      }
      EXPECT_NEAR(spans, 365, 1) << rules;
    }
  }
}

class Evenings : public TestShow {
 protected:
  void SetUp() override {
    TestShow::SetUp();
    std::vector<Cue> cues = {cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain")};
    for (Cue& cue : cues) {
      cue.end = Cue::End::Seconds;
      cue.after = 600;
    }
    run.list.loop = true;
    take(cues);
  }
  /// Begins an evening at a moment of universal time.
  void beginAt(std::int64_t seconds, EveningPlan plan) {
    start = seconds - engine.timers.now() / 1000;
    evening.emplace(run, plan, [this] { return start * 1000 + engine.timers.now(); });
    event([this] { evening->attend(); });
  }
  /// Lets time go by to a moment, looking at the clock each second.
  void until(std::int64_t seconds) {
    while (start + engine.timers.now() / 1000 < seconds) {
      advance(1000);
      event([this] { evening->attend(); });
    }
  }
  EveningPlan nights(EveningPlan::After after = EveningPlan::After::Dark) {
    return {EveningPlan::What::Cues, Schedule(18 * 60, 2 * 60), after};
  }

  const InZone zone{kBerlin};
  std::int64_t start = 0;
  std::optional<Evening> evening;
};

TEST_F(Evenings, TheShowGoesOnAtItsHourAndOffAtTheOther) {
  beginAt(utc(2026, 1, 10, 16, 58), nights());
  EXPECT_FALSE(evening->on());
  EXPECT_TRUE(evening->dark());
  EXPECT_EQ(run.cues.on(), -1);
  until(utc(2026, 1, 10, 17));
  EXPECT_TRUE(evening->on());
  EXPECT_FALSE(evening->dark());
  EXPECT_EQ(seen(), "Fire");
  until(utc(2026, 1, 10, 17, 10));
  EXPECT_EQ(seen(), "Moon");
  until(utc(2026, 1, 11, 0, 59));
  EXPECT_TRUE(evening->on());
  until(utc(2026, 1, 11, 1));
  EXPECT_TRUE(evening->dark());
  EXPECT_EQ(run.cues.on(), -1);
  until(utc(2026, 1, 11, 17));
  EXPECT_EQ(seen(), "Fire") << "from the first cue, every evening";
}

TEST_F(Evenings, SwitchedOnAtEightItPlaysWhatShouldBeOnAtEight) {
  beginAt(utc(2026, 1, 10, 19, 15), nights());  // 135 minutes after the hour
  EXPECT_EQ(run.cues.on(), 135 / 10 % 3);
  EXPECT_EQ(seen(), "Moon");
  EXPECT_NEAR(run.cues.remaining(), 300, 0.01);
  until(utc(2026, 1, 10, 19, 20));
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(Evenings, TheNightOfTheChangeGoesOnWithoutABreak) {
  for (const auto& [begin, end] : {std::pair(utc(2026, 3, 28, 17), utc(2026, 3, 29, 0, 50)),
                                   std::pair(utc(2026, 10, 24, 16), utc(2026, 10, 25, 1, 50))}) {
    EveningPlan plan{EveningPlan::What::Cues, Schedule(18 * 60, 4 * 60)};
    beginAt(begin, plan);
    for (std::int64_t at = begin + 60; at < end; at += 60) {
      until(at);
      ASSERT_EQ(run.cues.on(), (at - begin) / 600 % 3) << text(at);
    }
    event([this] { run.cues.stop(); });
  }
}

TEST_F(Evenings, ItEndsAsChosen) {
  // In the middle of a cue.
  EveningPlan plan{EveningPlan::What::Cues, Schedule(18 * 60, 2 * 60 + 5),
                   EveningPlan::After::Hold};
  beginAt(utc(2026, 1, 11, 1, 4), plan);
  const std::string was = seen();
  until(utc(2026, 1, 11, 1, 30));
  EXPECT_FALSE(evening->on());
  EXPECT_FALSE(evening->dark());
  EXPECT_FALSE(evening->over());
  EXPECT_EQ(seen(), was);
  beginAt(utc(2026, 1, 12, 0, 59), nights(EveningPlan::After::End));
  EXPECT_FALSE(evening->over());
  until(utc(2026, 1, 12, 1));
  EXPECT_TRUE(evening->over());
}

TEST_F(Evenings, AClockThatIsSetFindsWhatShouldBeOn) {
  beginAt(utc(2026, 1, 10, 3), nights());  // a machine whose clock was wrong at first
  EXPECT_FALSE(evening->on());
  start += 16 * 3600 + 900;
  event([this] { evening->attend(); });
  EXPECT_TRUE(evening->on());
  EXPECT_EQ(seen(), "Moon");
  start -= 24 * 3600;
  event([this] { evening->attend(); });
  EXPECT_TRUE(evening->on()) << "the same hour of the day before";
  start -= 4 * 3600;
  event([this] { evening->attend(); });
  EXPECT_FALSE(evening->on());
}

TEST_F(Evenings, WithoutHoursItBeginsAtOnce) {
  beginAt(utc(2026, 1, 10, 3), {EveningPlan::What::AutoPlay});
  EXPECT_TRUE(evening->on());
  EXPECT_TRUE(run.automatic.on());
}

}  // namespace
}  // namespace korvane
