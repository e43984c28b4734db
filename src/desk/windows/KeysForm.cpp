#include "desk/windows/KeysForm.h"

#include "desk/keys/CommandTable.h"

namespace korvane {
namespace {

constexpr const char* kFirstWords =
    "Choose a command, press Change, then the key that it shall have.";

std::string keyText(const MenuItem& item) { return item.key().empty() ? "no key" : item.key(); }

}  // namespace

KeysForm::KeysForm(Desktop& desktop, KeyBindings& bindings)
    : Form("Keys", "Korvane: keys"),
      list("list", {.toolTip = "all commands; a double click waits for another key"}),
      state("state", {.caption = kFirstWords, .toolTip = "what to do, and what was done"}),
      change("change", {.caption = "Change", .toolTip = "give the selected command another key"}),
      none("none", {.caption = "No key", .toolTip = "take the key of the selected command away"}),
      reset("reset", {.caption = "Default",
                      .toolTip = "give the selected command the key that it had at first"}),
      resetAll("resetAll", {.caption = "All defaults",
                            .toolTip = "give all commands the keys that they had at first"}),
      help("help", {.caption = "Help ...", .toolTip = "how to work with the desk"}),
      OK("OK", {.caption = "OK", .toolTip = "close the list of keys"}),
      bindings_(bindings) {
  add({&list, &state, &change, &none, &reset, &resetAll, &help, &OK});
  list.setColumns({{.title = "Command", .width = 0.25},
                   {.title = "What it does", .width = 0.53},
                   {.title = "Key", .width = 0.22}});
  const Layout buttons = column({change, none, reset, resetAll, space(), help, OK});
  setLayout(column({row({Layout(list, 1), buttons}, 1), row({state, space()})}));
  change.onClick = [this] { waitForKey(); };
  list.onDoubleClick = [this](int) { waitForKey(); };
  list.onClick = [this](int, int) { stopWaiting(); };
  none.onClick = [this] {
    if (MenuItem* item = chosen()) tell(*item, bindings_.assign(*item, ""));
  };
  reset.onClick = [this] {
    if (MenuItem* item = chosen()) tell(*item, bindings_.reset(*item));
  };
  resetAll.onClick = [this] {
    bindings_.resetAll();
    stopWaiting();
    showRows();
    state.setCaption("All commands have their first keys again.");
  };
  OK.onClick = [this, &desktop] { desktop.close(*this); };
  onEnter = onEscape = OK.onClick;
  onActivate = [this] { showRows(); };
  onClose = [this] { stopWaiting(); };
  showRows();
  desktop.add(*this);
}

MenuItem* KeysForm::chosen() const {
  const auto row = static_cast<std::size_t>(list.current());
  return list.current() < 0 ? nullptr : bindings_.items().at(row);
}

void KeysForm::waitForKey() {
  const MenuItem* item = chosen();
  if (item == nullptr) return;
  onAnyKey = [this](const std::string& key) { takeKey(key); };
  state.setCaption("Press a key for '" + captionOf(*item) + "', or Escape to leave it at " +
                   keyText(*item) + ".");
  shown();
}

void KeysForm::stopWaiting() {
  onAnyKey = nullptr;
  state.setCaption(kFirstWords);
  shown();
}

// A key that can't be had is told, and another one is waited for.
void KeysForm::takeKey(const std::string& key) {
  if (key == "Esc") return stopWaiting();
  MenuItem& item = *chosen();
  const std::string wrong = bindings_.assign(item, key);
  if (!wrong.empty())
    return state.setCaption(wrong + " Press another one for '" + captionOf(item) + "', or Escape.");
  tell(item, "");
}

void KeysForm::tell(const MenuItem& item, const std::string& fault) {
  stopWaiting();
  showRows();
  const std::string now = item.key().empty() ? "has no key." : "has the key " + item.key() + ".";
  state.setCaption(fault.empty() ? "'" + captionOf(item) + "' " + now : fault);
}

void KeysForm::showRows() {
  std::vector<ListView::Row> rows;
  for (const MenuItem* item : bindings_.items())
    rows.push_back({.text = captionOf(*item),
                    .sub = {commandRow(item->name())->words, item->key()},
                    .selected = static_cast<int>(rows.size()) == list.selected()});
  list.setRows(std::move(rows));
}

}  // namespace korvane
