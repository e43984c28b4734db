#include <random>

#include "testing/Allocations.h"
#include "testing/TestProject.h"

namespace korvane {
namespace {

constexpr std::size_t kMostBytes = std::size_t{64} << 20;
constexpr int kMutations = 10000;

// A small show with every type on both decks and every kind of fade. The turn says which of them
// are selected, and so start after the load.
std::string wholeShow(unsigned turn = 0) {
  const std::vector<ProjectText::Lines> effects = {
      {"True", "0", "color", "255"},
      {"True", "1", "gradient", "255", "65280", "7"},
      {"True", "2", "paint", "2,1", "16711680", "65280"},
      {"True", "3", "image", "0", "1", "3", "80", "2", "a.bmp", "0.5", "/none/a.bmp", "b.bmp", "2",
       "/none/b.bmp", "40"},
      {"True", "4", "change", "3", "255", "0.1", "65280", "0.2", "0", "0.1", "1", "0", "80", "90",
       "0"},
      {"True", "5", "scroll", "2", "255", "2", "65280", "3", "0", "1", "100", "2"},
      {"True", "6", "fire", "65535", "255", "100", "60"},
      {"True", "7", "fluid", "16711680", "16777215", "100", "40", "5"},
      {"True", "8", "ticker", "16777215", "0", "100", "0", "Hello", "5", "3", "0", "0", "0", "0"},
      {"False"}};
  std::vector<ProjectText::Lines> fades;
  fades.reserve(kFadeTypes);
  for (int type = 0; type < kFadeTypes; ++type) {
    fades.push_back({std::to_string(type), "fade", "0.4", "255"});
  }
  return project({.selA = std::to_string((turn + 6) % 9),
                  .selB = std::to_string((turn / 9 + 4) % 9),
                  .selX = std::to_string(turn % 11),
                  .a = effects,
                  .b = effects,
                  .x = fades});
}

class ProjectDamage : public TestProject {
 protected:
  // A run-time failure or a clean load; then the show plays on, whatever it has become.
  void survive(const std::string& bytes, const std::string& what) {
    markAllocations();
    const int failure = load(bytes);
    if (failure == 0) ++clean;
    click(engine.master.AutoFadeB);
    advance(300);
    ASSERT_LT(allocationPeak(), kMostBytes) << what;
    platform.failures.clear();
    takeCalls();
  }

  int clean = 0;
};

TEST_F(ProjectDamage, TheWholeShowLoads) { EXPECT_EQ(load(wholeShow()), 0) << lastFailure; }

TEST_F(ProjectDamage, EveryPrefixFailsOrLoads) {
  const std::string whole = wholeShow();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    survive(whole.substr(0, length), "prefix of " + std::to_string(length));
  }
  // Three cut version lines, which bring a message, and four cuts in the last line.
  EXPECT_EQ(clean, 3 + 4);
}

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::string operator()(std::string bytes) {
    for (int left = number(1, 4); left > 0; --left) mutate(bytes);
    return bytes;
  }

 private:
  std::size_t number(std::size_t from, std::size_t to) {
    return std::uniform_int_distribution<std::size_t>(from, to)(random_);
  }
  int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

  void mutate(std::string& bytes) {
    switch (number(0, 4)) {
      case 0:  // one byte
        bytes[number(std::size_t{0}, bytes.size() - 1)] = static_cast<char>(number(0, 255));
        return;
      case 1:  // a stretch is lost
        bytes.erase(number(std::size_t{0}, bytes.size() / 2),
                    number(std::size_t{1}, std::size_t{20}));
        return;
      case 2: {  // a stretch is doubled
        const std::size_t at = number(std::size_t{0}, bytes.size() / 2);
        bytes.insert(number(std::size_t{0}, bytes.size() - 1), bytes.substr(at, 20));
        return;
      }
      default:
        return replaceLine(bytes);
    }
  }

  void replaceLine(std::string& bytes) {
    static const std::vector<std::string> values = {
        "0",      "-1",    "1",     "2000000000", "-2000000000", "32767",
        "-32768", "32768", "9",     "1e308",      "-1e308",      "1e-9",
        "",       "True",  "False", "0,0",        "32767,32767", "-5,7",
        "256",    "100",   "V1.0",  "65280",      "13",          std::string(5000, '9')};
    const std::size_t at = bytes.find('\n', number(std::size_t{0}, bytes.size() - 1));
    if (at == std::string::npos) return;
    const std::size_t end = bytes.find('\r', at);
    if (end == std::string::npos) return;
    bytes.replace(at + 1, end - at - 1, values[number(std::size_t{0}, values.size() - 1)]);
  }

  std::mt19937 random_;
};

TEST_F(ProjectDamage, TenThousandMutationsFailOrLoad) {
  for (unsigned seed = 0; seed < kMutations; ++seed) {
    survive(Mutator(seed)(wholeShow(seed)), "mutation " + std::to_string(seed));
  }
  EXPECT_GT(clean, kMutations / 10);
  EXPECT_LT(clean, kMutations);
}

// The largest lists that sixteen bits allow, in files that hold none of their lines.
TEST_F(ProjectDamage, HugeCountsTakeLittleMemory) {
  std::string head = "p\r\nV1.0\r\n0.5\r\n32767\r\n32767\r\n32767\r\n0\r\n0\r\n0\r\n";
  survive(head, "counts of rows");
  for (int row = 0; row < 32767; ++row) head += "A\r\n0\r\n";
  survive(head, "rows without content");
  survive(project({.a = {{"True", "4", "cc", "32767"}}}), "colors");
  survive(project({.a = std::vector<ProjectText::Lines>(32767, {"True", "2", "", "0,0"})}),
          "pictures");
  EXPECT_EQ(load(project({})), 0);
  resize(50, 50);
  survive(project({.a = std::vector<ProjectText::Lines>(32767, {"True", "2", "", "0,0"})}),
          "pictures of the largest grid");
}

}  // namespace
}  // namespace korvane
