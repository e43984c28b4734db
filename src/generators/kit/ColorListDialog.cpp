#include "generators/kit/ColorListDialog.h"

#include "generators/color/ColorCode.h"
#include "generators/kit/BeatCode.h"
#include "generators/kit/MxColorMixer.h"
#include "generators/kit/StepCurves.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr const char* kColorBar = "||||||||||||";
constexpr int kColorColumn = 0;
constexpr int kNumberColumn = 1;

}  // namespace

ColorListDialog::ColorListDialog(Engine& engine, const Texts& texts, NumberColumn numbers)
    : EffectDialog(engine, texts.name, texts.caption, texts.defaultName),
      ColorList("ColorList",
                {.toolTip = "the colours in their order; a click shows a colour, a click on its "
                            "number edits that"}),
      addColor("addColor", Icon::Add, {.toolTip = "add a colour"}),
      removeColor("removeColor", Icon::Remove, {.toolTip = "remove the selected colour"}),
      upColor("upColor", Icon::Up, {.toolTip = "move the selected colour up"}),
      downColor("downColor", Icon::Down, {.toolTip = "move the selected colour down"}),
      slSpeed("slSpeed",
              {.caption = texts.speedRange, .toolTip = "speed of the effect", .label = "Speed : "}),
      beatControl("beatControl", {.toolTip = "step on the beat of the desk instead of by time",
                                  .label = "Beat Control : "}),
      numbers_(std::move(numbers)) {
  ColorList.setColumns({{.title = "Color", .width = 0.6, .editable = true, .colored = true},
                        {.title = numbers_.title, .width = 0.3, .editable = true}});
  ColorList.onClick = [this](int entry, int col) { ColorList_Click(entry, col); };
  bindNumberColumn(ColorList, kNumberColumn, engine.platform, numbers_.normal,
                   [this] { takeList(); });
  addColor.onClick = [this] { addColor_Click(); };
  removeColor.onClick = [this] { removeColor_Click(); };
  upColor.onClick = [this] { moveColor(-1); };
  downColor.onClick = [this] { moveColor(1); };
}

Layout ColorListDialog::listLayout() {
  return row({Layout(ColorList, 1), column({addColor, removeColor, upColor, downColor, space()})},
             1);
}

void ColorListDialog::addEntry(Color color, double number) {
  ColorList.add(kColorBar, {formatGeneral(number, engine_.platform.numberFormat())}, color);
}

void ColorListDialog::takeColors() {
  effect().colorCount = toInt16(ColorList.count());
  effect().colors.assign(colorCount() + 1, 0);
  for (int i = 0; i < ColorList.count(); ++i) {
    effect().colors.at(static_cast<std::size_t>(i)) = ColorList.row(i).color;
  }
}

double ColorListDialog::numberOf(int entry) const {
  return numberInCell(ColorList, entry, kNumberColumn);
}

// A colour that is clicked shows on the deck, and the effect goes on from there after the time that
// the record holds for it. A Color Scroll's record has none: the colour stands until OK
// (docs/kept.md, scroll-click).
void ColorListDialog::ColorList_Click(int entry, int col) {
  if (col == kNumberColumn) {
    ColorList.beginEdit(entry, col);
    return;
  }
  if (col != kColorColumn) return;
  effect().color1 = ColorList.row(entry).color;
  renderColor(engine_, deck());
  if (ColorList.count() < 2) return;
  deck().colorIndex = toInt16(entry);
  const auto at = static_cast<std::size_t>(entry);
  const std::vector<double>& times = effect().itemTimes;
  deck().timer1.setInterval(colorHoldInterval(at < times.size() ? times[at] : 0, effect().speed));
  deck().timer1.enable();
}

// `pickedColorBefore` is not set: a mixer left with Cancel adds the colour of its previous use
// (docs/kept.md, mixer-cancel).
void ColorListDialog::addColor_Click() {
  engine_.desktop.get<MxColorMixer>().open(0, [this](Color picked) {
    ColorList.add(kColorBar, {numbers_.firstText}, picked);
    takeList();
  });
}

void ColorListDialog::removeColor_Click() {
  if (ColorList.selected() < 0) return;
  ColorList.remove(ColorList.selected());
  takeList();
}

void ColorListDialog::moveColor(int by) {
  const int from = ColorList.selected();
  const int to = from + by;
  if (from < 0 || to < 0 || to >= ColorList.count()) return;
  ColorList.exchange(from, to);
  ColorList.select(to);
  takeList();
}

void ColorListDialog::beatControl_Click() {
  followBeat(engine_, deck(), beatControl.checked());
  if (!beatControl.checked() && effect().colorCount > 1) deck().timer1.enable();
}

}  // namespace korvane
