#include <cmath>
#include <random>

#include "generators/Effects.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "playback/ListRows.h"
#include "testing/TestProject.h"

namespace korvane {
namespace {

// Random records of every type. All that a file keeps is drawn, the rest stays as it is.
class Draw {
 public:
  explicit Draw(unsigned seed) : random_(seed) {}

  int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

  void into(std::int16_t& value) { value = static_cast<std::int16_t>(number(-32768, 32767)); }
  void into(std::int32_t& value) { value = number(-2147483647 - 1, 2147483647); }
  void into(double& value) {
    value = number(-1000000000, 1000000000) / std::pow(10, number(-6, 20));
  }
  // Every character of the code page but the line ends.
  void into(std::string& text) {
    std::string bytes;
    for (int left = number(0, 20); left > 0; --left) bytes += static_cast<char>(number(14, 255));
    text = fromCodePage1252(bytes);
  }
  void into(Effect& effect, const Variablen& v) {
    effect.type = static_cast<std::int16_t>(number(0, static_cast<int>(kinds().size()) - 1));
    into(effect.name);
    effect.name += "!";  // an empty one does not come back
    for (const EffectField& field : effectFields(effect.type)) {
      std::visit([&](const auto& what) { fill(effect, what, v); }, field.value);
    }
  }
  void into(FadeEntry& fade) {
    for (const FadeField& field : fadeFields()) {
      std::visit([&](auto value) { into(fade.*value); }, field.value);
    }
  }

 private:
  template <class Value>
  void fill(Effect& effect, Value Effect::*field, const Variablen&) {
    into(effect.*field);
  }
  void fill(Effect& effect, Grid<Color> Effect::*field, const Variablen& v) {
    (effect.*field).redim(v.matrixCols, v.matrixRows);
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) into((effect.*field).at(col, row));
    }
  }
  void fill(Effect& effect, const ItemList& list, const Variablen&) {
    const int count = number(0, 5);
    effect.*list.count = static_cast<std::int16_t>(count);
    for (const ItemColumn& column : list.columns) {
      std::visit(
          [&](auto values) {
            (effect.*values).resize(static_cast<std::size_t>(count));
            for (auto& value : effect.*values) into(value);
          },
          column.values);
    }
  }

  std::mt19937 random_;
};

class ProjectRoundTrip : public TestProject {
 protected:
  // The first rows stay plain: loading plays the selected ones, which may change their records.
  void draw(unsigned seed) {
    Draw random(seed);
    v.matrixCols = static_cast<std::int16_t>(random.number(1, 5));
    v.matrixRows = static_cast<std::int16_t>(random.number(1, 5));
    dimensionMatrix(engine);
    v.masterValue = random.number(0, 200) / 200.0;
    for (Deck* deck : {&v.A, &v.B}) drawDeck(*deck, random);
    v.efxX.assign(1, {kCrossFade, "fade", random.number(0, 80000) / 100.0, 0});
    v.efxX.resize(static_cast<std::size_t>(random.number(1, 6)));
    master.efxXList.clear();
    for (std::size_t slot = 0; slot < v.efxX.size(); ++slot) {
      if (slot > 0) random.into(v.efxX[slot]);
      addRow(master.efxXList, v.efxX[slot].name, static_cast<std::int16_t>(slot));
    }
    v.efxXCount = static_cast<std::int16_t>(v.efxX.size());
    pickRows();
  }

  void drawDeck(Deck& deck, Draw& random) {
    deck.efxCount = static_cast<std::int16_t>(random.number(1, 12));
    deck.efx.assign(static_cast<std::size_t>(deck.efxCount), {});
    deck.efxEdited.assign(deck.efx.size(), false);
    deck.efxList.clear();
    for (std::int16_t slot = 0; slot < deck.efxCount; ++slot) {
      const auto at = static_cast<std::size_t>(slot);
      deck.efxEdited[at] = slot > 0 && random.number(0, 9) > 0;
      if (deck.efxEdited[at]) random.into(deck.efx[at], v);
      addRow(deck.efxList, deck.efx[at].name, slot);
    }
  }

  std::string written() {
    const std::string file = folder + "/written.Korvane";
    std::filesystem::remove(file);
    TextWriter writer(file);
    writeProject(engine, platform.format, "in.Korvane", writer);
    writer.close();
    return readFile(file);
  }

  void roundTrip(const NumberFormat& format) {
    platform.format = format;
    for (unsigned seed = 0; seed < 1000; ++seed) {
      draw(seed);
      const std::string bytes = written();
      ASSERT_EQ(load(bytes), 0) << "seed " << seed << ": " << lastFailure;
      ASSERT_EQ(written(), bytes) << "seed " << seed;
    }
  }
};

TEST_F(ProjectRoundTrip, AThousandRandomProjectsComeBackByteForByteWithAPoint) {
  roundTrip({'.', ','});
}

TEST_F(ProjectRoundTrip, AThousandRandomProjectsComeBackByteForByteWithAComma) {
  roundTrip({',', '.'});
}

}  // namespace
}  // namespace korvane
