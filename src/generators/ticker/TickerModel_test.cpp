// A second Ticker, as plain and slow as may be, that shares no code with the product, beside it.

#include <cmath>
#include <map>
#include <optional>

#include "generators/ticker/FontDefinition.h"
#include "generators/ticker/TickerCode.h"
#include "platform/Text.h"
#include "testing/CellEffects.h"

namespace korvane {
namespace {

struct PlaceOfText {
  int x, y;
  auto operator<=>(const PlaceOfText&) const =
      default;  // NOLINT(modernize-use-nullptr): no pointer
};

// What the text looks like, cell by cell: painted cells by place, background elsewhere inside.
struct SlowStrip {
  int lastX = -1, lastY = -1;  // the largest indices
  std::map<PlaceOfText, Color> painted;
  Color background = 0;

  Color at(int x, int y) const {
    if (x < 0 || y < 0 || x > lastX || y > lastY) throw Failure(kSubscript);
    const auto found = painted.find({x, y});
    if (found != painted.end()) return found->second;
    return x < lastX && y < lastY ? background : 0;
  }
};

int glyphRow(int glyph, int row) {
  return fontTable.at(static_cast<std::size_t>(glyph)).at(static_cast<std::size_t>(row));
}

class SlowTicker {
 public:
  SlowTicker(const Variablen& v, Deck& deck)
      : deck_(v, deck),
        e_(deck.effect()),
        isB_(deck.isB()),
        px(deck.imagePosX),
        py(deck.imagePosY) {
    step = deck.step;
    steps = deck.steps;
    maxWidth = deck.tickerMaxWidth;
  }

  void build() {
    step = 0;
    const Rgb c = colorParts(e_.color2);
    for (auto& column : deck_.frame) column.assign(column.size(), {c[0], c[1], c[2]});
    deck_.publishAll();
    std::vector<int> glyphs;
    int length = 0;
    maxWidth = 0;
    for (const std::string& character : characters(e_.tickerText)) {
      glyphs.push_back(glyphIndex(character));
      const int width = glyphRow(glyphs.back(), 0);
      length += width + 1;
      maxWidth = std::max(maxWidth, width);
    }
    const bool across = e_.direction == 3 || e_.direction == 7;
    if (!across && e_.direction != 1 && e_.direction != 5) return;
    const int count = static_cast<int>(glyphs.size());
    strip = {};
    strip.background = e_.color2;
    strip.lastX = across ? length + maxWidth : maxWidth;
    strip.lastY = across ? e_.tickerFont : count * (e_.tickerFont + 1);
    steps = across ? length : strip.lastY;
    if (e_.tickerFont == 5) paint(glyphs, across);
  }

  void tick() { e_.tickerLetter == 0 ? run() : showLetter(); }

  void place() {
    const int across = deck_.cols - maxWidth;
    if (e_.tickerLetter != 0) {
      px = share(across);
      py = (deck_.rows - e_.tickerFont) / 2;
    } else if (e_.tickerFont == 5 && (e_.direction == 1 || e_.direction == 5)) {
      px = share(across);
      py = 0;
    } else if (e_.tickerFont == 5 && (e_.direction == 3 || e_.direction == 7)) {
      px = 0;
      py = share(deck_.rows - 5);
    }
  }

  void expectSame(const Engine& engine, const Deck& deck, const std::vector<std::string>& calls) {
    deck_.expectSame(engine, deck, calls);
    EXPECT_EQ(deck.step, step);
    EXPECT_EQ(deck.steps, steps);
    EXPECT_EQ(deck.tickerMaxWidth, maxWidth);
    EXPECT_EQ(deck.imagePosX, px);
    EXPECT_EQ(deck.imagePosY, py);
  }

 private:
  int share(int room) const {
    return room > 0 ? static_cast<int>(std::floor((room + 1) * e_.amount / 100.0)) : 0;
  }

  void paint(std::vector<int> glyphs, bool across) {
    int p = 0;
    if (e_.tickerBackward != 0) glyphs = {glyphs.rbegin(), glyphs.rend()};
    for (const int glyph : glyphs) {
      const int width = glyphRow(glyph, 0);
      const int x0 = across ? p : 0;
      const int y0 = across ? 0 : p;
      for (int r = 1; r <= 5; ++r) {
        for (int i = 0; i <= (e_.tickerMirror != 0 ? width : maxWidth); ++i) {
          const bool set = glyphRow(glyph, r) / (1 << i) % 2 == 1;
          const int x = e_.tickerMirror != 0 ? x0 + width - i : x0 + i;
          strip.painted[{x, y0 + r - 1}] = set ? e_.color1 : e_.color2;
        }
      }
      p += across ? width + 1 : 6;
    }
  }

  void feed(int col, int row, int x, int y) {
    if (col >= deck_.cols || row >= deck_.rows) return;
    const Rgb c = colorParts(strip.at(x, y));
    if (col < 0 || row < 0) throw Failure(kSubscript);
    deck_.set(col, row, {c[0], c[1], c[2]});
  }

  void run() {
    deck_.move(e_.direction);
    if (step >= steps) step = 0;
    if (step < 0) step = steps == 0 ? 0 : steps - 1;
    const int lastCol = deck_.cols - 1;
    const int lastRow = deck_.rows - 1;
    const int high = e_.tickerFont;
    if (e_.direction == 1) {
      for (int x = 0; x < maxWidth; ++x) feed(x + px, lastRow + py, x, step);
      ++step;
    } else if (e_.direction == 3) {
      for (int y = 0; y < high; ++y) feed(lastCol + px, y + py, step, y);
      ++step;
    } else if (e_.direction == 5) {
      for (int x = 0; x < maxWidth; ++x) feed(x + px, py, x, step);
      --step;
    } else if (e_.direction == 7) {
      for (int y = 0; y < (isB_ ? high + 1 : high); ++y) feed(px, y + py, step, y);
      --step;
    }
  }

  void showLetter() {
    for (int x = 0; x < maxWidth; ++x) {
      for (int y = 0; y <= e_.tickerFont; ++y) feed(x + px, y + py, x, y + step);
    }
    step += maxWidth + 1;
    if (step >= steps) step = 0;
    if (step < 0) step = steps - 1 - maxWidth;
  }

  SlowDeck deck_;
  const Effect& e_;
  bool isB_;
  SlowStrip strip;
  int px, py;
  int step = 0, steps = 0, maxWidth = 0;
};

class TickerModel : public CellEffects {
 protected:
  std::int16_t one16(std::initializer_list<int> choice) {
    return static_cast<std::int16_t>(*(choice.begin() + number(static_cast<int>(choice.size()))));
  }

  std::string someText() {
    static const std::vector<std::string> kSome =
        characters("ABCDEFGHIJLMSTWXYZabgijlmw019ÄÖüß#|@ -.,~\"\\");
    std::string text;
    for (int i = number(9); i > 0; --i)
      text += kSome[static_cast<std::size_t>(number(static_cast<int>(kSome.size())))];
    return text;
  }

  void setUp(int most) {
    dimension(1 + number(most), 1 + number(most));
    Effect& e = effect();
    e.type = kTicker;
    e.color1 = number(1 << 24);
    e.color2 = number(3) == 0 ? 0 : number(1 << 24);
    e.tickerText = someText();
    e.tickerFont = one16({5, 5, 5, 5, 5, 5, 7, 10, 15, 0});
    e.direction = one16({1, 3, 5, 7, 1, 3, 5, 7, 0, 2, 9});
    e.tickerBackward = one16({0, 1});
    e.tickerMirror = one16({0, 1});
    e.tickerLetter = one16({0, 0, 0, 1});
    e.beatControl = one16({0, 1});
    e.amount = static_cast<std::int16_t>(number(101));
    v.fadeRunning = number(6) == 0;
    deck.imagePosX = one16({0, 0, 0, 0, 1, 4, -1});
    deck.imagePosY = one16({0, 0, 0, 0, 1, 4, -1});
    deck.tickerStrip = {};
    deck.steps = 0;
    deck.step = 0;
    deck.tickerMaxWidth = 0;
  }

  /// Runs an operation on both; fails unless both end alike. Returns whether they ended well.
  template <class Slow, class Product>
  bool both(SlowTicker& model, Slow slow, Product product) {
    int failed = 0;
    try {
      slow();
    } catch (const Failure& failure) {
      failed = failure.number;
    }
    takeCalls();
    event(product);
    EXPECT_EQ(takeFailure(), failed);
    model.expectSame(engine, deck, takeCalls());
    return failed == 0;
  }

  /// Builds, sometimes places, and ticks; the number of ticks until one failed.
  int play(int ticks) {
    std::optional<SlowTicker> model(std::in_place, v, deck);
    const auto build = [&] {
      return both(
          *model, [&] { model->build(); }, [&] { tickerBuild(engine, deck); });
    };
    if (!build()) return 0;
    if (number(2) == 0) {
      both(
          *model, [&] { model->place(); }, [&] { tickerOffset(engine, deck); });
      build();
    }
    for (int i = 0; i < ticks && !HasFailure(); ++i) {
      if (!both(
              *model, [&] { model->tick(); }, [&] { tickerTick(engine, deck); }))
        return i;
    }
    return ticks;
  }
};
KORVANE_BOTH_DECKS(TickerModel);

TEST_P(TickerModel, RunsAsTheProductDoes) {
  constexpr int kSetUps = 1000;
  constexpr int kTicks = 12;
  int failed = 0;
  for (int i = 0; i < kSetUps && !HasFailure(); ++i) {
    setUp(i % 25 == 0 ? 50 : 14);
    if (play(kTicks) < kTicks) ++failed;
    if (HasFailure()) ADD_FAILURE() << "in set-up " << i;
  }
  EXPECT_GT(failed, kSetUps / 20) << "set-ups that fail are part of it";
  EXPECT_LT(failed, kSetUps / 2);
}

}  // namespace
}  // namespace korvane
