#include "desk/windows/DeskForm.h"

#include <algorithm>
#include <iterator>

#include "desk/cues/ShowRun.h"
#include "desk/project/ShowPath.h"

namespace korvane {
namespace {

constexpr int kExamplesInARow = 3;

std::string numbered(const char* name, std::size_t index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

template <class Items>
void append(std::vector<MenuItem*>& menu, const Items& items) {
  for (const auto& item : items) menu.push_back(item.get());
}

}  // namespace

DeskForm::DeskForm(Form& toolWindow, const std::vector<Example>& shows)
    : Form("Desk", "Korvane"),
      welcome("welcome", {.caption = "Begin with a show"}),
      hint("hint",
           {.caption = "Wiring says how many lamps you have and how they are wired; Outputs "
                       "says where the channels are sent."}),
      grandMaster(
          "grandMaster", SliderRange{0, kFullMaster},
          {.caption = "Grand master", .toolTip = "percent of every level that leaves the desk"}),
      sent("sent", {.toolTip = "what is sent"}),
      wrong("wrong", {.toolTip = "what is wrong"}) {
  for (std::size_t i = 0; i < RecentShows::kMost; ++i)
    recent.push_back(std::make_unique<MenuItem>(numbered("recent", i), Look{.visible = false}));
  for (std::size_t i = 0; i < shows.size(); ++i)
    examples.push_back(std::make_unique<MenuItem>(
        numbered("example", i),
        Look{.caption = shows[i].title, .toolTip = "open " + shows[i].path}));
  for (const ShowCommand& one : showCommands())
    commands.push_back(std::make_unique<CommandItem>(one.name));
  for (int row = 1; row <= kNumberedRows; ++row) {
    const std::string number = "(" + std::to_string(row) + ")";
    leftEffects.push_back(std::make_unique<CommandItem>("effectLeft" + number));
    rightEffects.push_back(std::make_unique<CommandItem>("effectRight" + number));
    fades.push_back(std::make_unique<CommandItem>("fade" + number));
  }
  undo.setEnabled(false);
  redo.setEnabled(false);
  grandMaster.setValue(kFullMaster);
  addControls();
  declareMenus();
  declareLayout(toolWindow);
}

void DeskForm::addControls() {
  add({&begin, &welcome, &newShow, &open, &tool});
  for (const auto& item : examples) add({item.get()});
  add({&hint, &pane, &dmx, &blackout, &freeze, &beat, &grandMaster, &channels, &wiring, &output});
  add({&save, &saveAs, &openLast, &quit, &undo, &redo, &configure, &front, &narrow, &full, &keys,
       &help, &sent, &wrong});
  add({&masterUp, &masterDown, &steeper, &flatter, &lessRed, &lessGreen, &lessBlue, &whiteBack,
       &faderLeft, &faderRight, &faderFarLeft, &faderFarRight, &cutLeft, &cutRight, &fadeLeft,
       &fadeRight});
  for (const auto& item : recent) add({item.get()});
  add({&cues, &looks[0], &looks[1], &looks[2], &pictures});
  for (const Items* items : {&commands, &leftEffects, &rightEffects, &fades})
    for (const auto& item : *items) add({item.get()});
}

void DeskForm::declareMenus() {
  std::vector<MenuItem*> shows = {&newShow, &open, &save, &saveAs, nullptr};
  append(shows, recent);
  shows.push_back(nullptr);
  shows.push_back(&openLast);
  shows.push_back(&quit);
  std::vector<MenuItem*> tries;
  append(tries, examples);
  std::vector<Menu> menus = {{"Show", shows}};
  menus.push_back({"Edit", {&undo, &redo}});
  if (!tries.empty()) menus.push_back({"Examples", tries});
  menus.push_back({"Play",
                   {&dmx, &blackout, &freeze, &masterUp, &masterDown, nullptr, &faderLeft,
                    &faderRight, &faderFarLeft, &faderFarRight, nullptr, &cutLeft, &cutRight,
                    &fadeLeft, &fadeRight, nullptr, &beat}});
  const auto rows = [&menus](const char* caption, const Items& items) {
    menus.push_back({caption, {}});
    append(menus.back().items, items);
  };
  rows("Left", leftEffects);
  rows("Right", rightEffects);
  rows("Fades", fades);
  std::vector<MenuItem*> runs = {&cues, nullptr};
  append(runs, commands);
  menus.push_back({"Cues", runs});
  menus.push_back({"Lamps",
                   {&wiring, &configure, &output, &channels, nullptr, &steeper, &flatter, nullptr,
                    &lessRed, &lessGreen, &lessBlue, &whiteBack}});
  menus.push_back({"View",
                   {&tool, &front, nullptr, &narrow, &full, nullptr, &pictures, nullptr, &looks[0],
                    &looks[1], &looks[2]}});
  menus.push_back({"Help", {&keys, &help}});
  setMenus(std::move(menus));
}

std::vector<MenuItem*> DeskForm::items() const {
  std::vector<MenuItem*> all;
  for (const Menu& menu : menus())
    std::ranges::copy_if(menu.items, std::back_inserter(all), [](auto* item) { return item; });
  return all;
}

Layout DeskForm::beginPage() {
  std::vector<Layout> shows;
  for (const auto& item : examples) shows.emplace_back(*item);
  return boxed(begin,
               column({space(), row({space(), welcome, space()}),
                       row({space(), newShow, open, tool, space()}),
                       row({space(), grid(kExamplesInARow, std::move(shows)), space()}),
                       row({space(), hint, space()}), space(2)}),
               1);
}

void DeskForm::declareLayout(Form& toolWindow) {
  setLayout(
      column({beginPage(), boxed(pane, toolWindow.layout(), 1),
              row({dmx, blackout, freeze, beat, Layout(grandMaster, 1), channels, wiring, output}),
              row({sent, space(), wrong})}));
  hold(toolWindow, pane);
}

void DeskForm::showRecent(const std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < recent.size(); ++i) {
    MenuItem& item = *recent[i];
    item.setVisible(i < paths.size());
    if (i >= paths.size()) continue;
    item.setCaption(showName(paths[i]));
    item.setToolTip("open " + paths[i]);
  }
}

}  // namespace korvane
