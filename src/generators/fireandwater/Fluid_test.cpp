#include <cmath>

#include "generators/fireandwater/FireAndWaterCode.h"
#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

class Fluid : public CellEffects {
 protected:
  void flowing(Color main, Color second, std::int16_t amount, int direction) {
    effect().type = kFluid;
    effect().color1 = main;
    effect().color2 = second;
    effect().amount = amount;
    effect().direction = static_cast<std::int16_t>(direction);
  }
  bool tick() {
    ++platform.time;  // the random numbers start from the clock
    return event([this] { fluidTick(engine, deck); });
  }
  void show(const Drawing& drawing) {
    dimension(static_cast<int>(drawing.front().size()), static_cast<int>(drawing.size()));
    deck.frame = frameOf(drawing);
  }
};
KORVANE_BOTH_DECKS(Fluid);

struct Flow {
  int direction;
  Drawing after;
};

TEST_P(Fluid, FlowsInFourDirectionsWithANewLineBehind) {
  const Drawing before = {"RGY",  //
                          "CMW"};
  const std::vector<Flow> flows = {{1,
                                    {"CMW",  // up
                                     "BBB"}},
                                   {3,
                                    {"GYB",  // left
                                     "MWB"}},
                                   {5,
                                    {"BBB",  // down
                                     "RGY"}},
                                   {7,
                                    {"BRG",  // right
                                     "BCM"}}};
  for (const Flow& flow : flows) {
    SCOPED_TRACE(flow.direction);
    show(before);
    flowing(kBlue, kWhite, 0, flow.direction);
    ASSERT_TRUE(tick());
    expectPicture(deck.frame, flow.after);
    expectPicture(v.frameM, flow.after);
  }
}

// No direction: nothing moves and nothing enters, but the random numbers of a line are drawn.
TEST_P(Fluid, AnyOtherDirectionShowsNothingAndDrawsALineOfRandomNumbers) {
  const Drawing before = {"RG", "YC", "MW"};
  for (const int direction : {0, 2, 4, 6, 8, 9, -1, 32767}) {
    show(before);
    flowing(kBlue, kWhite, 50, direction);
    ASSERT_TRUE(tick());
    expectPicture(deck.frame, before);
    const float next = engine.random.next();
    engine.randomize();
    for (int i = 0; i < 3; ++i) engine.random.next();
    EXPECT_EQ(next, engine.random.next()) << "three rows";
  }
}

TEST_P(Fluid, WithoutRoughnessThePictureBecomesTheMainColour) {
  show({"RRR", "RRR", "RRR"});
  flowing(kBlue, kWhite, 0, 5);
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"BBB", "BBB", "BBB"});
}

TEST_P(Fluid, TheMainColourIsTheFloorAndTheSumSaturates) {
  dimension(50, 1);
  flowing(rgb(200, 10, 0), rgb(200, 100, 0), 100, 1);
  int saturated = 0;
  for (int i = 0; i < 40; ++i) {
    ASSERT_TRUE(tick());
    for (int col = 0; col < 50; ++col) {
      const Rgb& cell = deck.frame.at(col, 0);
      EXPECT_GE(cell[0], 200);
      EXPECT_TRUE(cell[1] >= 10 && cell[1] <= 110);
      EXPECT_EQ(cell[2], 0);
      saturated += cell[0] == 255 ? 1 : 0;
    }
  }
  EXPECT_GT(saturated, 500);
}

TEST_P(Fluid, ANewCellTakesOneRandomNumberAndRoundsTheSumOfBothColours) {
  dimension(5, 2);
  flowing(rgb(10, 20, 30), rgb(100, 31, 7), 70, 5);
  ASSERT_TRUE(tick());
  const float next = engine.random.next();
  engine.randomize();  // the clock stands still
  for (int col = 0; col < 5; ++col) {
    const double share = engine.random.next() * 70.0 / 100;
    const auto sum = [share](int main, int second) {
      return static_cast<std::uint8_t>(std::nearbyint(main + share * second));
    };
    EXPECT_EQ(deck.frame.at(col, 0), (Rgb{sum(10, 100), sum(20, 31), sum(30, 7)}));
  }
  EXPECT_EQ(engine.random.next(), next);
}

TEST_P(Fluid, FullComponentsStayFull) {
  show({"..", ".."});
  flowing(kWhite, kWhite, 100, 5);
  ASSERT_TRUE(tick() && tick());
  expectPicture(deck.frame, {"WW", "WW"});
}

TEST_P(Fluid, ASingleLineIsReplacedAtEachStep) {
  show({"RGY"});
  flowing(kBlue, kWhite, 0, 1);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"BBB"});
  show({"R", "G"});
  flowing(kBlue, kWhite, 0, 3);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"B", "B"});
}

TEST_P(Fluid, OnlyCellsThatDifferFromWhatWasNotedReachTheDesk) {
  show({"BBB", "BBB"});
  deck.frameWork = frameOf({"BBB", "BBR"});
  flowing(kBlue, kWhite, 0, 7);
  takeCalls();
  ASSERT_TRUE(tick());
  EXPECT_EQ(takeCalls(), (std::vector<std::string>{"UserInteraction", "SetChannel 18 255"}));
  expectPicture(deck.frameWork, {"BBB", "BBB"});
}

TEST_P(Fluid, AllComponentsOfACellAreNoted) {
  show({"Y"});
  flowing(rgb(1, 2, 3), kWhite, 0, 1);
  ASSERT_TRUE(tick());
  EXPECT_EQ(deck.frameWork.at(0, 0), (Rgb{1, 2, 3}));
  takeCalls();
  ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty());
}

TEST_P(Fluid, AFadeStopsTheMixButNotThePreview) {
  show({"..", ".."});
  v.fadeRunning = true;
  flowing(kBlue, kWhite, 0, 5);
  takeCalls();
  ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty());
  expectPicture(v.frameM, {"..", ".."});
  EXPECT_EQ(pixelOf(deck.picture, deck.preview, 1, 0), kBlue);
}

// A file can hold any number: the event ends, and what had moved has moved.
TEST_P(Fluid, ARoughnessBelowZeroThatDarkensBelowBlackEndsTheStep) {
  show({"RG", "YC"});
  flowing(rgb(10, 10, 10), kWhite, -32768, 5);
  EXPECT_FALSE(tick());
  EXPECT_EQ(takeFailure(), kOverflow);
  expectPicture(Picture(deck.frame).cut(0, 1, 2, 1), {"RG"});
}

TEST_P(Fluid, AVeryLargeRoughnessSaturates) {
  show({"...."});
  flowing(rgb(255, 0, 0), rgb(255, 0, 0), 32767, 5);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"RRRR"});
}

// The step done slowly: all lines move by one, a new one comes behind, in nested lists.
void slowFluidStep(SlowDeck& slow, const Effect& effect, Random random) {
  const Rgb main = colorParts(effect.color1);
  const Rgb second = colorParts(effect.color2);
  const int direction = effect.direction;
  slow.move(direction);
  const int count = direction == 1 || direction == 5 ? slow.cols : slow.rows;
  for (int i = 0; i < count; ++i) {
    const double share = random.next() * 1.0 * effect.amount / 100.0;
    SlowDeck::Cell color{};
    for (std::size_t k = 0; k < 3; ++k) {
      color[k] = std::min(255, static_cast<int>(std::nearbyint(main[k] + share * second[k])));
    }
    if (direction == 1) slow.set(i, slow.rows - 1, color);
    if (direction == 3) slow.set(slow.cols - 1, i, color);
    if (direction == 5) slow.set(i, 0, color);
    if (direction == 7) slow.set(0, i, color);
  }
}

TEST_P(Fluid, StepsAsASlowModelOfItDoes) {
  for (int setUp = 0; setUp < 400 && !HasFailure(); ++setUp) {
    const int most = setUp % 20 == 0 ? 50 : 13;
    dimension(1 + number(most), 1 + number(most));
    flowing(number(1 << 24), number(1 << 24), static_cast<std::int16_t>(number(101)),
            number(4) != 0 ? 1 + 2 * number(4) : number(12) - 1);
    expectSteps(fluidTick, slowFluidStep);
    if (HasFailure()) ADD_FAILURE() << "in set-up " << setUp;
  }
}

}  // namespace
}  // namespace korvane
