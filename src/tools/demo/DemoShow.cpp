#include "tools/demo/DemoShow.h"

#include <vector>

#include "generators/image/MxImageForm.h"
#include "generators/image/MxImageList.h"

namespace korvane {
namespace {

constexpr const char* kHeart[] = {
    "............", "..##....##..", ".####..####.", "############", "############", "############",
    ".##########.", "..########..", "...######...", "....####....", ".....##.....", "............",
};

struct Slide {
  const char* name;
  double seconds;
};
constexpr Slide kSlides[] = {{"balloon.bmp", 10}, {"mountains.bmp", 7.5}, {"sunrise.bmp", 30}};

void setSlides(Effect& effect) {
  effect.itemTimes.clear();
  for (const Slide& slide : kSlides) {
    effect.imageNames.emplace_back(slide.name);
    effect.imageFiles.push_back(std::string("examples/slides/") + slide.name);
    effect.itemTimes.push_back(slide.seconds);
  }
  effect.imageCount = static_cast<std::int16_t>(effect.imageNames.size());
  effect.speed = 60;
  effect.amount = 25;
}

}  // namespace

struct DemoShow::Row {
  const char* name;
  EffectType type;
  int direction;
  Color color1;
  Color color2;
};

// One row for each type of effect.
const std::vector<DemoShow::Row>& DemoShow::leftRows() {
  static const std::vector<Row> rows = {
      {"Sunset", kGradient, 5, rgb(110, 0, 160), rgb(255, 110, 0)},
      {"Amber", kColor, 0, rgb(255, 150, 0), 0},
      {"Heart", kPaint, 0, 0, 0},
      {"Clouds", kImage, 7, 0, 0},
      {"Party", kColorChange, 0, 0, 0},
      {"Rainbow", kColorScroll, 3, 0, 0},
      {"Embers", kFire, 0, rgb(255, 220, 0), rgb(255, 0, 0)},
      {"Waves", kFluid, 5, rgb(0, 40, 255), rgb(255, 255, 255)},
      {"Welcome", kTicker, 3, rgb(255, 255, 255), rgb(0, 0, 60)},
  };
  return rows;
}

const std::vector<DemoShow::Row>& DemoShow::rightRows() {
  static const std::vector<Row> rows = {
      {"Deep sea", kGradient, 9, rgb(10, 0, 70), rgb(0, 170, 255)},
      {"Night", kColor, 0, rgb(0, 0, 80), 0},
      {"Rain", kFluid, 5, rgb(0, 0, 120), rgb(120, 200, 255)},
  };
  return rows;
}

// Gives the lamps of the default grid the channels from 1 on, as many as there are.
void DemoShow::wireLamps() {
  Variablen& v = plugin_.engine.v;
  v.matrix.countChannelsUp(1, Matrix::Order::RowByRow);
  v.matrix.configureAll();
}

void DemoShow::make() {
  wireLamps();
  fill(plugin_.engine.v.A, plugin_.matrixForm.panelA, leftRows());
  fill(plugin_.engine.v.B, plugin_.matrixForm.panelB, rightRows());
  gate_([this] { plugin_.engine.master.efxXList.click(0, 0); });
  gate_([this] { plugin_.matrixForm.active.setValue(1); });
}

void DemoShow::fill(Deck& deck, DeckPanel& panel, const std::vector<Row>& rows) {
  for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
    const Row& wanted = rows[static_cast<std::size_t>(row)];
    if (row > 0) gate_([&] { panel.add.click(); });
    gate_([&] { deck.efxList.click(row, 0); });
    gate_([&] { deck.type.choose(wanted.type); });
    setEffect(deck.effect(), wanted);
    deck.efxList.setCell(row, 0, wanted.name);
  }
  gate_([&] { deck.efxList.click(0, 0); });
}

void DemoShow::setEffect(Effect& effect, const Row& row) {
  effect.name = row.name;
  effect.color1 = row.color1;
  effect.color2 = row.color2;
  effect.direction = static_cast<std::int16_t>(row.direction);
  effect.colors = {rgb(255, 0, 0), rgb(255, 160, 0), rgb(0, 200, 0), rgb(0, 80, 255), rgb(0, 0, 0)};
  effect.colorCount = static_cast<std::int16_t>(effect.colors.size());
  effect.itemTimes.assign(effect.colors.size(), 3);
  effect.itemWidths.assign(effect.colors.size(), 2);
  if (row.type == kImage) setSlides(effect);
  for (int y = 0; row.type == kPaint && y < 12; ++y) {
    for (int x = 0; x < 12; ++x)
      effect.paintPixels.at(x, y) = kHeart[y][x] == '#' ? rgb(255, 0, 60) : rgb(20, 0, 40);
  }
}

Form* DemoShow::openDialog(int row) {
  const std::int16_t type = leftRows().at(static_cast<std::size_t>(row)).type;
  Form* dialog = plugin_.dialogs.byType.at(static_cast<std::size_t>(type)).get();
  gate_([&] { plugin_.engine.v.A.efxList.click(row, 0); });
  gate_([&] { plugin_.matrixForm.panelA.edit.click(); });
  return dialog;
}

Form& DemoShow::openImageList() {
  MxImageList& list = plugin_.window<MxImageList>();
  gate_([this] { plugin_.window<MxImageForm>().BImage.click(); });
  gate_([&list] { list.myImageList.click(1, 0); });
  return list;
}

void DemoShow::mixOrange() {
  MxColorMixer& mixer = plugin_.dialogs.mixer;
  gate_([&mixer] { mixer.Sred.setValue(240); });
  gate_([&mixer] { mixer.Sgreen.setValue(130); });
  gate_([&mixer] { mixer.Sblue.setValue(40); });
}

}  // namespace korvane
