// A night at the desk: a person does anything that can be done at its windows while the disk fills
// up, the power fails in the middle of a write, packets are lost, ports are taken, the network
// goes, the clock on the wall jumps and the machine is busy. No show is lost, the lamps show what
// the desk sends, and the timers keep their time. A night follows from its seed alone, in virtual
// time.
//   KORVANE_ACTIONS=100000 KORVANE_SEED=1 korvane-console-tests --gtest_filter='NightAtTheDesk.*'

#include "commands/TestOperator.h"
#include "hosts/console/TestNight.h"
#include "testing/SourceFolder.h"

namespace korvane {
namespace {

constexpr int kNightActions = 1000;
constexpr int kSmokeActions = 3000;
constexpr int kCheckLamps = 40;  // actions
constexpr const char* kFolder = "/shows/";

/// What many nights came to.
struct NightTally {
  int done = 0, saved = 0, refused = 0, crashes = 0;
  std::int64_t packets = 0, lost = 0, milliseconds = 0;
};

/// A trouble that lasts for some actions.
struct Trouble {
  int oneIn;    ///< it begins before one in so many actions
  int longest;  ///< in actions
  void (*begin)(NightMachine&, RandomPerson&);
  void (*end)(NightMachine&);
};

const Trouble kTroubles[] = {
    {25, 8,
     [](NightMachine& m, RandomPerson& p) {
       m.disk.capacity = m.disk.used() + static_cast<std::size_t>(p.upTo(4000));
     },
     [](NightMachine& m) { m.disk.capacity = SimulatedDisk::kUnlimited; }},
    {20, 15, [](NightMachine& m, RandomPerson& p) { m.oneLostIn = 1 + p.upTo(5); },
     [](NightMachine& m) { m.oneLostIn = 0; }},
    {40, 10, [](NightMachine& m, RandomPerson&) { m.network.sendError = "Network is unreachable"; },
     [](NightMachine& m) { m.network.sendError.clear(); }},
    {40, 20,
     [](NightMachine& m, RandomPerson& p) {
       m.network.openErrors = {{p.oneIn(2) ? 5568 : 6454, portTakenText()}};
     },
     [](NightMachine& m) { m.network.openErrors.clear(); }},
    {60, 1,
     [](NightMachine& m, RandomPerson& p) {
       m.network.openErrors = {{0, "No route"}};
       p.upTo(1);
     },
     [](NightMachine& m) { m.network.openErrors.clear(); }},
    {25, 1,
     [](NightMachine& m, RandomPerson& p) {
       m.clock.jumped += (p.upTo(24 * 60) - 12 * 60) * 60'000;
     },
     [](NightMachine&) {}},
    {30, 1, [](NightMachine& m, RandomPerson& p) { m.clock.pass(p.upTo(5000)); },
     [](NightMachine&) {}},
    // From here to the next write that takes it.
    {80, 1, [](NightMachine& m, RandomPerson& p) { m.disk.losePowerAfter(1 + p.upTo(12)); },
     [](NightMachine&) {}},
};

class Night {
 public:
  explicit Night(std::uint64_t seed) : machine_(seed), seed_(seed) {
    const std::string examples = sourceFolder() + "/examples";
    machine_.disk.takeFolder(examples, "/shows");
    for (const char* made : {"/shows/dir.Korvane", "/shows/dir.korvaneconf", "/config"})
      machine_.disk.makeFolders(made);
    watch_.emplace(machine_.disk);
    begin();
  }

  /// What was broken; empty if all was well.
  std::string play(int actions) {
    try {
      for (int i = 0; i < actions; ++i) {
        trouble();
        act();
        if (i % kCheckLamps == kCheckLamps - 1) calmDown();
      }
    } catch (const NightBroken& broken) {
      return broken.what();
    } catch (const ShowLost& lost) {
      return lost.what();
    }
    return {};
  }

  void count(NightTally& tally) const {
    tally.done += tally_.done;
    tally.saved += tally_.saved;
    tally.refused += tally_.refused;
    tally.crashes += tally_.crashes;
    tally.packets += machine_.packets;
    tally.lost += machine_.lost;
    tally.milliseconds += machine_.clock.milliseconds();
  }
  /// All that was done, what came of it, and what stands on the disk in the end.
  std::string record() const {
    std::string all = log_ + std::to_string(machine_.digest);
    for (const auto& [path, bytes] : machine_.disk.files())
      all.append("\n").append(path).append("\n").append(bytes);
    return all;
  }
  /// The last of what was done.
  std::string tail() const {
    return log_.substr(log_.size() - std::min<std::size_t>(log_.size(), 4000));
  }

 private:
  Engine& engine() { return evening_->engine(); }

  void begin() {
    log_ += "# the desk is switched on\n";
    evening_.reset();
    evening_.emplace(machine_);
    engine().random.seed(seed_);
    person_.emplace(engine().desktop, seed_ * 1000 + static_cast<std::uint64_t>(evenings_++));
    // Its outputs would send on threads of their own; the night has them in virtual time.
    person_->avoided = {"DeskOutput", "output"};
    begun_ = machine_.clock.milliseconds() - engine().timers.now();
    asks_.clear();
  }

  void trouble() {
    for (std::size_t i = 0; i < std::size(kTroubles); ++i) {
      const Trouble& one = kTroubles[i];
      if (left_[i] > 0 && --left_[i] == 0) one.end(machine_);
      if (left_[i] > 0 || !person_->oneIn(one.oneIn)) continue;
      one.begin(machine_, *person_);
      left_[i] = 1 + person_->upTo(one.longest - 1);
      log_ += "# trouble " + std::to_string(i) + "\n";
    }
  }

  void act() {
    std::string line =
        person_->oneIn(15) ? "advance " + std::to_string(person_->upTo(20'000)) : person_->next();
    if (!asks_.empty() && person_->oneIn(20))
      line = "click " +
             std::next(asks_.begin(), person_->upTo(static_cast<int>(asks_.size()) - 1))->first;
    const std::vector<std::string> words = tokens(line);
    const std::string name = words.size() > 1 ? words[1] : "";
    if (asks_.contains(name) && !person_->oneIn(8))
      perform("answer " + (kFolder + person_->fileFor(asks_.at(name))));
    perform(line);
    ConsolePlatform& platform = evening_->platform();
    if (!platform.questions.empty()) asks_[name] = platform.questions.back();
    afterwards();
    platform.answers.clear();
  }

  void perform(const std::string& line) {
    ConsolePlatform& platform = evening_->platform();
    platform.questions.clear();
    platform.boxes.clear();
    platform.failures.clear();
    platform.failedSaves.clear();
    before_ = machine_.disk.files();
    const Json reply = evening_->perform(line);
    log_ += line + "\n" + reply.dump() + "\n";
    tally_.done += reply["ok"] == true ? 1 : 0;
  }

  void afterwards() {
    if (machine_.disk.powerLost()) return crash();
    watch_->check();
    checkSaved();
    const std::int64_t now = machine_.clock.milliseconds() - begun_;
    if (engine().timers.now() != now)
      throw NightBroken("the timers say " + std::to_string(engine().timers.now()) + ", not " +
                        std::to_string(now) + " ms");
    if (evening_->desk.closed()) begin();
  }

  // A show that was written without a word of a failure, and that is still open.
  void checkSaved() {
    if (!evening_->platform().failedSaves.empty()) {
      ++tally_.refused;
      return;
    }
    const std::string path = evening_->desk.session.path();
    const auto old = before_.find(path);
    const std::string bytes = machine_.disk.bytesOf(path);
    if (!path.ends_with(".Korvane") || bytes.empty() ||
        (old != before_.end() && old->second == bytes))
      return;
    ++tally_.saved;
    watch_->checkLoads(engine(), path);
  }

  // The desk is started again, and opens whatever show can be opened.
  void crash() {
    ++tally_.crashes;
    log_ += "# the power failed\n";
    const std::string path = evening_->desk.session.path();
    evening_.reset();
    machine_.startAgain();
    watch_->check();
    begin();
    if (path.empty() || projectEndsEarly(path, machine_.disk)) return;
    evening_->event([&] { evening_->desk.files.open(path); });
    if (evening_->desk.session.path() != path)
      throw NightBroken(path + " could not be opened after the power had failed: " +
                        Json(evening_->platform().boxes).dump());
  }

  /// The network is well for a while; the window thread does nothing.
  void calmDown() {
    for (std::size_t i = 1; i <= 4; ++i) {
      kTroubles[i].end(machine_);
      left_[i] = 0;
    }
    machine_.clock.pass(1500);
    machine_.checkLamps();
    evening_->event([] {});
  }

  NightMachine machine_;
  std::uint64_t seed_;
  std::optional<ShowsWatch> watch_;
  std::optional<Evening> evening_;
  std::optional<RandomPerson> person_;
  int evenings_ = 0;
  std::int64_t begun_ = 0;  // when the timers' time was 0
  int left_[std::size(kTroubles)] = {};
  std::map<std::string, FileQuestion> asks_;  // by who asks
  std::map<std::string, std::string> before_;
  std::string log_;
  NightTally tally_;
};

TEST(NightAtTheDesk, NoShowIsLostAndTheLampsShowWhatIsSent) {
  const long actions = fromEnvironment("KORVANE_ACTIONS", kSmokeActions);
  const long first = fromEnvironment("KORVANE_SEED", 1);
  NightTally tally;
  for (long seed = first; seed < first + (actions + kNightActions - 1) / kNightActions; ++seed) {
    Night night(static_cast<std::uint64_t>(seed));
    const std::string broken = night.play(kNightActions);
    night.count(tally);
    if (!broken.empty())
      ADD_FAILURE() << "KORVANE_SEED=" << seed << ": " << broken << "\nafter\n" << night.tail();
  }
  std::cout << tally.done << " actions in " << tally.milliseconds / 60'000 << " minutes, "
            << tally.saved << " shows saved, " << tally.refused << " saves refused, "
            << tally.crashes << " losses of power, " << tally.lost << " of " << tally.packets
            << " packets lost\n";
  EXPECT_GT(tally.done, actions / 3) << "most commands were refused: the test reaches too little";
  EXPECT_GT(tally.saved, actions / 1000) << "hardly anything was saved";
  EXPECT_GT(tally.crashes, 0);
  EXPECT_GT(tally.lost, 0);
}

TEST(NightAtTheDesk, ReplaysFromItsSeed) {
  const auto seed = static_cast<std::uint64_t>(fromEnvironment("KORVANE_SEED", 1));
  Night one(seed), other(seed);
  one.play(kNightActions / 2);
  other.play(kNightActions / 2);
  EXPECT_TRUE(one.record() == other.record()) << "KORVANE_SEED=" << seed;
}

}  // namespace
}  // namespace korvane
