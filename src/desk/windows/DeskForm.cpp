#include "desk/windows/DeskForm.h"

#include "desk/cues/ShowRun.h"
#include "desk/project/ShowPath.h"

namespace korvane {
namespace {

constexpr int kExamplesInARow = 3;
constexpr int kFull = 100;  // percent

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
      newShow("newShow", {.caption = "New", .toolTip = "begin a show on the present grid"},
              "Ctrl+N"),
      open("open", {.caption = "Open ...", .toolTip = "open a show of your own"}, "Ctrl+O"),
      save("save", {.caption = "Save", .toolTip = "save the show with its grid"}, "Ctrl+S"),
      saveAs("saveAs",
             {.caption = "Save as ...", .toolTip = "save the show with its grid in another file"},
             "Ctrl+Shift+S"),
      openLast("openLast", {.caption = "Open the last show at the start",
                            .toolTip = "begin with the show that was open last"}),
      quit("quit", {.caption = "Quit", .toolTip = "close the desk"}, "Ctrl+Q"),
      undo("undo",
           {.caption = "Undo",
            .toolTip = "take back what was changed last in the show or the grid",
            .enabled = false},
           "Ctrl+Z"),
      redo("redo",
           {.caption = "Redo", .toolTip = "change again what was taken back", .enabled = false},
           "Ctrl+Shift+Z"),
      tool("tool", {.caption = "Matrix", .toolTip = "show the decks and their effects"}, "F2"),
      configure("configure",
                {.caption = "Configure lamps", .toolTip = "define the lamp grid and its channels"},
                "F3"),
      wiring("wiring",
             {.caption = "Wiring", .toolTip = "say how the lamps are wired, and test them"},
             "Shift+F3"),
      output("output",
             {.caption = "Outputs ...", .toolTip = "say where the levels are sent, and see how"},
             "F5"),
      channels("channels",
               {.caption = "Channels", .toolTip = "watch the levels that leave the desk"}, "F8"),
      front("front", {.caption = "Desk", .toolTip = "bring the desk to the front"}, "F4"),
      narrow("narrow", {.caption = "Narrow view", .toolTip = "show the master alone"}, "F6"),
      full("full", {.caption = "Full view", .toolTip = "show the decks as well"}, "F7"),
      beat("beat", {.caption = "Beat", .toolTip = "one beat of the music"}, "F9"),
      blackout("blackout",
               {.caption = "Blackout", .toolTip = "all lamps dark, until pressed again"}, "F10"),
      freeze("freeze",
             {.caption = "Freeze", .toolTip = "the lamps hold what they show, until pressed again"},
             "F11"),
      masterUp("masterUp",
               {.caption = "Grand master up", .toolTip = "five per cent more of every level"},
               "Shift+F12"),
      masterDown("masterDown",
                 {.caption = "Grand master down", .toolTip = "five per cent less of every level"},
                 "Shift+F11"),
      steeper("steeper",
              {.caption = "Curve steeper",
               .toolTip = "gamma 0.1 more on the output that is lit in Outputs"},
              "Shift+F10"),
      flatter("flatter",
              {.caption = "Curve flatter",
               .toolTip = "gamma 0.1 less on the output that is lit in Outputs"},
              "Shift+F9"),
      dmx("dmx", {.caption = "Output on", .toolTip = "the lamps follow the show"}, "F12"),
      cues("cues", {.caption = "Cues", .toolTip = "let the show run by itself"}, "Shift+F2"),
      help("help", {.caption = "Help", .toolTip = "how to work with the desk"}, "F1"),
      begin("begin", {}),
      pane("pane", {}),
      welcome("welcome", {.caption = "Begin with a show"}),
      hint("hint",
           {.caption = "Wiring says how many lamps you have and how they are wired; Outputs "
                       "says where the channels are sent."}),
      grandMaster(
          "grandMaster", SliderRange{0, kFull},
          {.caption = "Grand master", .toolTip = "percent of every level that leaves the desk"}),
      sent("sent", {.toolTip = "what is sent"}),
      wrong("wrong", {.toolTip = "what is wrong"}) {
  for (std::size_t i = 0; i < RecentShows::kMost; ++i)
    recent.push_back(std::make_unique<MenuItem>(numbered("recent", i), Look{.visible = false}));
  for (std::size_t i = 0; i < shows.size(); ++i)
    examples.push_back(std::make_unique<MenuItem>(
        numbered("example", i),
        Look{.caption = shows[i].title, .toolTip = "open " + shows[i].path}));
  for (const ShowCommand& one : showCommands()) {
    if (one.ofCue) continue;
    commands.push_back(std::make_unique<MenuItem>(
        one.name, Look{.caption = one.caption, .toolTip = one.toolTip}, one.key));
  }
  grandMaster.setValue(kFull);
  addControls();
  declareMenus();
  declareLayout(toolWindow);
}

void DeskForm::addControls() {
  add({&begin, &welcome, &newShow, &open});
  for (const auto& item : examples) add({item.get()});
  add({&hint, &pane, &dmx, &blackout, &freeze, &beat, &grandMaster, &channels, &wiring, &output});
  add({&save, &saveAs, &openLast, &quit, &undo, &redo, &configure, &tool, &front, &narrow, &full,
       &help, &sent, &wrong});
  add({&masterUp, &masterDown, &steeper, &flatter});
  for (const auto& item : recent) add({item.get()});
  add({&cues});
  for (const auto& item : commands) add({item.get()});
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
  menus.push_back({"Play", {&dmx, &blackout, &freeze, &masterUp, &masterDown, nullptr, &beat}});
  std::vector<MenuItem*> runs = {&cues, nullptr};
  append(runs, commands);
  menus.push_back({"Cues", runs});
  menus.push_back(
      {"Lamps", {&wiring, &configure, &output, &channels, nullptr, &steeper, &flatter}});
  menus.push_back({"View", {&tool, &front, nullptr, &narrow, &full}});
  menus.push_back({"Help", {&help}});
  setMenus(std::move(menus));
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
