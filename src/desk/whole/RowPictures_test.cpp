#include <algorithm>

#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

/// A desk with an example that has many kinds of effects.
class RowPicturesTest : public TestDesk {
 protected:
  RowPicturesTest() { click(*desk.form.examples.at(0)); }

  ListView& list = v.A.efxList;

  /// The view draws the first rows of the left list.
  void draw(int rows) {
    for (int row = 0; row < std::min(rows, list.count()); ++row) list.picture(row);
  }
  /// Lets time pass while a view draws rows, as often as the pictures change.
  void watch(int milliseconds, int rows) {
    list.onPictures = [this, rows] { draw(rows); };
    draw(rows);
    for (int passed = 0; passed < milliseconds; passed += 50) advance(50);
    list.onPictures = nullptr;
  }
  static std::string textOf(Engine& engine) {
    std::string text;
    for (const Frame* frame : {&engine.v.frameA, &engine.v.frameB, &engine.v.frameM}) {
      for (int col = 0; col < engine.v.matrixCols; ++col) {
        for (int row = 0; row < engine.v.matrixRows; ++row)
          text += hexText(rgb(frame->at(col, row)));
        text += '\n';
      }
    }
    return text;
  }
};

TEST_F(RowPicturesTest, TheRowThatPlaysShowsThePictureOfItsDeck) {
  advance(300);
  const Raster* shown = list.picture(list.current());
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(*shown, smallPicture(v.frameA, v.matrixCols, v.matrixRows));
  EXPECT_EQ(shown->pixel(0, 0), rgb(v.frameA.at(0, 0)));
}

TEST_F(RowPicturesTest, EffectsThatDoNotPlayMoveInTheirRowsOnceTheyWereSeen) {
  EXPECT_EQ(list.picture(3), nullptr);
  watch(3000, 5);
  EXPECT_EQ(desk.pictures.filmsMade(), 4);  // the first row plays
  std::vector<std::vector<Raster>> seen;
  list.onPictures = [&] {
    seen.push_back({*list.picture(1), *list.picture(2), *list.picture(3), *list.picture(4)});
  };
  for (int passed = 0; passed < 2000; passed += 50) advance(50);
  list.onPictures = nullptr;
  ASSERT_GE(seen.size(), 9U);
  EXPECT_TRUE(std::ranges::any_of(seen, [&](const auto& one) { return one != seen.front(); }));
}

// Its random numbers follow from the time of day, so a film needs one that goes on.
TEST_F(RowPicturesTest, TheFilmOfAFireMoves) {
  constexpr int kBonfire = 3;
  ASSERT_EQ(v.A.efx.at(kBonfire).type, kFire);
  watch(6000, 8);
  std::vector<Raster> seen;
  list.onPictures = [&] { seen.push_back(*list.picture(kBonfire)); };
  for (int passed = 0; passed < 3000; passed += 50) advance(50);
  list.onPictures = nullptr;
  ASSERT_GE(seen.size(), 14U);
  int moves = 0;
  for (std::size_t i = 1; i < seen.size(); ++i) moves += seen[i] != seen[i - 1];
  EXPECT_GE(moves, 12);
}

// Nothing asks for pictures of a list that is out of sight, so nothing is drawn or filmed for it,
// and the desk wakes no more often for its sake.
TEST_F(RowPicturesTest, NothingMovesUntilAPictureIsSeenAgain) {
  watch(1000, 3);
  int drawn = 0;
  list.onPictures = [&drawn] { ++drawn; };
  for (int passed = 0; passed < 3000; passed += 50) advance(50);
  drawn = 0;
  for (int passed = 0; passed < 10000; passed += 50) advance(50);
  EXPECT_EQ(drawn, 0);
  EXPECT_EQ(desk.pictures.wanted(), std::nullopt);
  list.onPictures = [&] { ++drawn, draw(3); };
  draw(3);
  for (int passed = 0; passed < 2000; passed += 50) advance(50);
  EXPECT_GE(drawn, 9);
}

TEST_F(RowPicturesTest, AFilmOfALargeGridIsMadeInSlices) {
  click(desk.form.configure);
  event([this] { plugin.matrixConf.ncol.choose(49), plugin.matrixConf.nrow.choose(49); });
  constexpr int kBonfire = 3;
  FilmStudio studio(machine);
  studio.begin(v, Side::A, v.A.efx.at(kBonfire));
  int slices = 1;
  while (!studio.goOn()) ++slices;
  EXPECT_GE(slices, 3);
  EXPECT_EQ(studio.take().size(), static_cast<std::size_t>(FilmStudio::kLength));
}

// Its first step is seconds away.
TEST_F(RowPicturesTest, TheFilmOfASlowScrollShowsNothingOfTheFilmBefore) {
  Effect scroll = v.A.efx.at(0);
  ASSERT_EQ(scroll.type, kColorScroll);
  scroll.colors = {rgb(0, 0, 255), rgb(0, 0, 255)};
  scroll.itemWidths = {1, 1};
  scroll.colorCount = 2;
  scroll.speed = 20;
  Effect red = scroll;
  red.type = kColor;
  red.color1 = rgb(255, 0, 0);
  FilmStudio studio(machine);
  const auto film = [&](const Effect& effect) {
    studio.begin(v, Side::A, effect);
    while (!studio.goOn()) continue;
    return studio.take();
  };
  EXPECT_EQ(film(red).at(0).pixel(0, 0), red.color1);
  const Raster first = film(scroll).at(0);
  int reds = 0, blues = 0;
  for (int x = 0; x < first.width(); ++x) {
    for (int y = 0; y < first.height(); ++y) {
      reds += first.pixel(x, y) == red.color1;
      blues += first.pixel(x, y) == scroll.colors[0];
    }
  }
  EXPECT_EQ(reds, 0);
  EXPECT_GT(blues, 0) << "it begins when the effect does";
}

TEST_F(RowPicturesTest, NothingIsMadeOfWhatNobodySees) {
  advance(5000);
  EXPECT_EQ(desk.pictures.filmsMade(), 0);
  watch(400, 3);
  const int made = desk.pictures.filmsMade();
  EXPECT_GT(made, 0);
  advance(5000);  // the window is hidden, or the rows are out of sight
  EXPECT_LE(desk.pictures.filmsMade(), made + 1);
}

TEST_F(RowPicturesTest, AChangedEffectIsFilmedAnewAndNoOther) {
  watch(3000, 5);
  const int made = desk.pictures.filmsMade();
  watch(1000, 5);
  EXPECT_EQ(desk.pictures.filmsMade(), made);
  v.A.efx.at(2).speed = static_cast<std::int16_t>(v.A.efx.at(2).speed / 2 + 1);
  watch(1000, 5);
  EXPECT_EQ(desk.pictures.filmsMade(), made + 1);
}

TEST_F(RowPicturesTest, AreOffByChoiceAndStaySo) {
  EXPECT_TRUE(list.hasPictures());
  EXPECT_TRUE(desk.form.pictures.lit());
  click(desk.form.pictures);
  EXPECT_FALSE(list.hasPictures());
  EXPECT_FALSE(v.B.efxList.hasPictures());
  LampFeed other("korvane-tests-2");
  Desk again(machine, other, places());
  EXPECT_FALSE(again.form.pictures.lit());
  EXPECT_FALSE(again.engine().v.A.efxList.hasPictures());
}

// Two desks play the same show for ten seconds, with fades; the pictures of one are watched.
TEST_F(RowPicturesTest, ChangeNoByteOfTheShowAndNoRandomNumber) {
  LampFeed otherFeed("korvane-tests-2");
  Desk other(machine, otherFeed, {.project = folder + "mine", .examples = examples});
  const auto onOther = [&](const std::function<void()>& what) {
    runEvent(machine, what);
    other.refresh();
  };
  onOther([&] { other.show(); });
  onOther([&] { other.form.examples.at(0)->click(); });
  Variablen& w = other.engine().v;
  desk.engine().random = other.engine().random;
  for (int second = 0; second < 10; ++second) {
    const int row = second % list.count();
    pick(list, row);
    onOther([&] { w.A.efxList.click(row, 0); });
    watch(1000, 10);
    TimerQueue& timers = other.engine().timers;
    for (int passed = 0; passed < 1000; passed += 50) {
      timers.advanceTo(timers.now() + 50,
                       [&](const std::function<void()>& tick) { runEvent(machine, tick); });
      other.settle();
    }
    ASSERT_EQ(textOf(desk.engine()), textOf(other.engine())) << second;
  }
  EXPECT_GT(desk.pictures.filmsMade(), 5);
  EXPECT_EQ(desk.session.showText(), other.session.showText());
  EXPECT_EQ(desk.session.gridText(), other.session.gridText());
  EXPECT_EQ(desk.engine().random.next(), other.engine().random.next());
  EXPECT_TRUE(machine.boxes.empty());
}

}  // namespace
}  // namespace korvane
