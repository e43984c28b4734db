#include "desk/wall/PlanPanel.h"

#include <initializer_list>

#include "platform/Text.h"

namespace korvane {
namespace {

using Names = std::vector<std::string>;

const Names kCorners = {"top left", "top right", "bottom left", "bottom right"};
const Names kAlong = {"rows", "columns"};
const Names kFills = {"170, no lamp over two universes", "a number of lamps", "whole lines"};
const Names kTurns = {"upright", "turned by 90\u00b0", "turned by 180\u00b0", "turned by 270\u00b0",
                      "every second line by 180\u00b0"};

Names numbersFromZero(int last) {
  Names numbers = numbersUpTo(last);
  numbers.insert(numbers.begin(), "0");
  return numbers;
}

// Chooses the entry that stands for a number counted from 1, or none.
void choose(ListBox& list, int number) {
  const bool known = number >= 1 && number <= static_cast<int>(list.items().size());
  list.setIndex(known ? number - 1 : -1);
}

}  // namespace

PathControls::PathControls(const std::string& stem, const std::string& what)
    : corner(stem + "Corner", {.toolTip = "where the first " + what + " is", .label = "Starts : "}),
      along(stem + "Along",
            {.toolTip = "the way from " + what + " to " + what, .label = "Along : "}),
      snake(stem + "Snake",
            {.caption = "Snake", .toolTip = "every second line runs back; else all run one way"}) {
  corner.setItems(kCorners);
  along.setItems(kAlong);
  show({});
}

WirePath PathControls::path() const {
  return {static_cast<WirePath::Corner>(corner.index()), along.index() == 1, snake.checked()};
}

void PathControls::show(const WirePath& path) {
  corner.setIndex(path.start);
  along.setIndex(path.columns ? 1 : 0);
  snake.setValue(path.snake ? 1 : 0);
}

PlanPanel::PlanPanel()
    : wallGroup("wallGroup", {.caption = "Wall"}),
      cols("cols", {.toolTip = "lamps in a row, 1 to 50", .label = "Columns : "}),
      rows("rows", {.toolTip = "lamps in a column, 1 to 50", .label = "Rows : "}),
      universe("universe",
               {.toolTip = "universe of the first lamp, 1 to 16", .label = "Universe : "}),
      channel("channel",
              {.toolTip = "first channel of the first lamp, 1 to 512", .label = "Channel : "}),
      wireGroup("wireGroup", {.caption = "Wire"}),
      lamps("lamps", "lamp"),
      order("order", {.toolTip = "order of a lamp's colours on the wire", .label = "Colours : "}),
      fill("fill", {.toolTip = "lamps of one universe; the next lamp begins the next universe at "
                               "channel 1",
                    .label = "A universe : "}),
      lampsPerUniverse("lampsPerUniverse",
                       {.toolTip = "lamps of one universe, 1 to 170", .label = "Lamps : "}),
      skipped("skipped", {.toolTip = "lamps of the strip that are left unused at the end of each "
                                     "line, 0 to 170",
                          .label = "Skipped : "}),
      panelGroup("panelGroup", {.caption = "Panels"}),
      panels("panels", {.caption = "The wall is made of panels",
                        .toolTip = "equal panels, chained; the wire above is that of each panel"}),
      panelCols("panelCols",
                {.toolTip = "lamps in a row of a panel that is not turned", .label = "Columns : "}),
      panelRows("panelRows",
                {.toolTip = "lamps in a column of a panel that is not turned", .label = "Rows : "}),
      across("across", {.toolTip = "panels side by side", .label = "Across : "}),
      down("down", {.toolTip = "panels one below the other", .label = "Down : "}),
      chain("chain", "panel"),
      turn("turn", {.toolTip = "how the panels hang, clockwise", .label = "Hung : "}) {
  for (ListBox* list : {&cols, &rows, &panelCols, &panelRows, &across, &down})
    list->setItems(numbersUpTo(kMostSideOfWall));
  universe.setItems(numbersUpTo(kWallUniverses));
  channel.setItems(numbersUpTo(kUniverseChannels));
  order.setItems({kColorOrderNames.begin(), kColorOrderNames.end()});
  fill.setItems(kFills);
  lampsPerUniverse.setItems(numbersUpTo(kMostLampsOfUniverse));
  skipped.setItems(numbersFromZero(kMostLampsOfUniverse));
  turn.setItems(kTurns);
  show({});
  bind();
}

void PlanPanel::bind() {
  for (Control* control : controls()) {
    if (auto* list = dynamic_cast<ListBox*>(control)) list->onClick = [this] { changed(); };
    if (auto* box = dynamic_cast<CheckBox*>(control)) box->onClick = [this] { changed(); };
  }
}

void PlanPanel::changed() {
  if (filling_) return;
  follow();
  if (onChange) onChange();
}

void PlanPanel::follow() {
  lampsPerUniverse.setEnabled(fill.index() == static_cast<int>(UniverseFill::Count));
  const bool panelled = panels.checked();
  for (Control* control :
       std::initializer_list<Control*>{&panelCols, &panelRows, &across, &down, &chain.corner,
                                       &chain.along, &chain.snake, &turn})
    control->setEnabled(panelled);
  for (ListBox* list : {&cols, &rows}) list->setEnabled(!panelled);
  if (!panelled) return;
  filling_ = true;
  const WiringPlan now = plan();
  choose(cols, now.wallCols());
  choose(rows, now.wallRows());
  filling_ = false;
}

WiringPlan PlanPanel::plan() const {
  WiringPlan plan{.cols = cols.index() + 1,
                  .rows = rows.index() + 1,
                  .first = {universe.index() + 1, channel.index() + 1},
                  .path = lamps.path(),
                  .order = static_cast<ColorOrder>(order.index()),
                  .fill = static_cast<UniverseFill>(fill.index()),
                  .lampsPerUniverse = lampsPerUniverse.index() + 1,
                  .skipped = skipped.index()};
  if (panels.checked()) {
    plan.panels = {.cols = panelCols.index() + 1,
                   .rows = panelRows.index() + 1,
                   .across = across.index() + 1,
                   .down = down.index() + 1,
                   .path = chain.path(),
                   .turn = static_cast<PanelPlan::Turn>(turn.index())};
  }
  return plan;
}

void PlanPanel::show(const WiringPlan& plan) {
  filling_ = true;
  choose(cols, plan.cols);
  choose(rows, plan.rows);
  universe.setIndex(plan.first.universe - 1);
  channel.setIndex(plan.first.channel - 1);
  lamps.show(plan.path);
  order.setIndex(static_cast<int>(plan.order));
  fill.setIndex(static_cast<int>(plan.fill));
  lampsPerUniverse.setIndex(plan.lampsPerUniverse - 1);
  skipped.setIndex(plan.skipped);
  panels.setValue(plan.panels ? 1 : 0);
  const PanelPlan panel = plan.panels.value_or(PanelPlan());
  panelCols.setIndex(panel.cols - 1);
  panelRows.setIndex(panel.rows - 1);
  across.setIndex(panel.across - 1);
  down.setIndex(panel.down - 1);
  chain.show(panel.path);
  turn.setIndex(static_cast<int>(panel.turn));
  filling_ = false;
  follow();
}

std::vector<Control*> PlanPanel::controls() {
  return {&wallGroup,    &cols,         &rows,        &universe,    &channel,   &wireGroup,
          &lamps.corner, &lamps.along,  &lamps.snake, &order,       &fill,      &lampsPerUniverse,
          &skipped,      &panelGroup,   &panels,      &panelCols,   &panelRows, &across,
          &down,         &chain.corner, &chain.along, &chain.snake, &turn};
}

Layout PlanPanel::layout() {
  return column(
      {boxed(wallGroup, grid(4, {cols, rows, universe, channel})),
       boxed(wireGroup,
             column({grid(4, {lamps.corner, lamps.along, order, skipped}), row({Layout(fill, 1)}),
                     row({lamps.snake, space(), lampsPerUniverse})})),
       boxed(
           panelGroup,
           column({panels, grid(4, {panelCols, panelRows, across, down, chain.corner, chain.along}),
                   row({chain.snake, space(), turn})}))});
}

}  // namespace korvane
