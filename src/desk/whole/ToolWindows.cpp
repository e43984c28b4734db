#include "desk/whole/ToolWindows.h"

#include <algorithm>

namespace korvane {

void bindKeysOfDialogs(Plugin& plugin) {
  Desktop& desktop = plugin.engine.desktop;
  const auto press = [](Button& button) { return [&button] { button.click(); }; };
  const auto close = [&desktop](Form& window) {
    return [&desktop, &window] { desktop.close(window); };
  };
  const auto bind = [&](Form& window, Button& ok) {
    window.onEnter = press(ok);
    window.onEscape = close(window);
  };
  for (const auto& dialog : plugin.dialogs.byType) {
    bind(*dialog, dialog->OK);
    for (const DialogWindow& window : dialog->windows()) bind(window.form, window.ok);
  }
  bind(plugin.dialogs.mixer, plugin.dialogs.mixer.Bok);
  bind(plugin.matrixConf, plugin.matrixConf.OK);
  bind(plugin.matrixConf.detail, plugin.matrixConf.detail.setConfig);
  bind(plugin.quickConfiguration, plugin.quickConfiguration.OKButton);
  bind(plugin.matrixHelp, plugin.matrixHelp.OK);
  bind(plugin.matrixConfigHelp, plugin.matrixConfigHelp.OK);
}

void bindFields(DeskSession& session) {
  Plugin& plugin = session.plugin;
  const auto need = [&session](Button& button, const std::vector<ListBox*>& lists,
                               const char* words) {
    button.onClick = [&session, lists, words, own = button.onClick] {
      const bool lacks = std::any_of(lists.begin(), lists.end(),
                                     [](const ListBox* list) { return list->index() < 0; });
      lacks ? session.platform.messageBox(words) : own();
    };
  };
  quickConf& quick = plugin.quickConfiguration;
  need(quick.OKButton, {&quick.BaseAddress, &quick.Universe},
       "Choose the address and the universe of the first lamp.");
  quick.Universe.setToolTip("universe of the first lamp's red");  // the desk sends all of them
  MatrixConfDetail& detail = plugin.matrixConf.detail;
  need(detail.setConfig, {&detail.R, &detail.G, &detail.B, &detail.UR, &detail.UG, &detail.UB},
       "Choose a channel and a universe for each colour.");
  TextBox& time = plugin.engine.master.fadeTimeText;
  time.onChange = [&session, &time, own = time.onChange] {
    const char decimal = session.platform.numberFormat().decimal;
    const char other = decimal == '.' ? ',' : '.';
    std::string text = time.text();
    if (text.find(decimal) != std::string::npos || text.find(other) == std::string::npos)
      return own();
    std::replace(text.begin(), text.end(), other, decimal);
    time.setText(text);
  };
}

}  // namespace korvane
