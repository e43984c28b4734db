#include "desk/whole/DeskKeys.h"

#include <utility>

namespace korvane {
namespace {

constexpr int kStep = 2;  // of the fader's 200
constexpr int kFarStep = 20;

}  // namespace

DeskKeys::DeskKeys(Plugin& plugin, DeskForm& desk, const std::string& file, Disk& disk)
    : bindings(desk.items(), file, disk),
      form(plugin.engine.desktop, bindings),
      plugin_(plugin),
      desk_(desk),
      rows_{{desk.leftEffects, plugin.engine.v.A.efxList},
            {desk.rightEffects, plugin.engine.v.B.efxList},
            {desk.fades, plugin.engine.master.efxXList}} {
  bindFader();
  bindRows();
  MatrixForm& tool = plugin.matrixForm;
  Master& master = plugin.engine.master;
  const std::pair<Control*, const char*> pressed[] = {
      {&tool.fadeA, "cutLeft"},
      {&tool.fadeB, "cutRight"},
      {&master.AutoFadeA, "fadeLeft"},
      {&master.AutoFadeB, "fadeRight"},
      {&tool.active, "dmx"},
      {&tool.help, "help"},
      {&form.help, "help"},
  };
  for (const auto& [control, command] : pressed) tellKey(*control, command);
  desk.keys.onClick = [this] { plugin_.engine.desktop.show(form); };
  form.help.onClick = [this] { desk_.help.click(); };
  refresh();
}

// Each does what the fader and its buttons do, so only with a show.
void DeskKeys::bindFader() {
  const auto move = [this](MenuItem& item, int by) {
    item.onClick = [this, by] {
      Slider& fader = plugin_.engine.master.faderM;
      if (playing()) fader.setValue(fader.value() + by);
    };
  };
  move(desk_.faderLeft, -kStep);
  move(desk_.faderRight, kStep);
  move(desk_.faderFarLeft, -kFarStep);
  move(desk_.faderFarRight, kFarStep);
  const auto press = [this](MenuItem& item, Button& button) {
    item.onClick = [this, &button] {
      if (playing()) button.click();
    };
  };
  press(desk_.cutLeft, plugin_.matrixForm.fadeA);
  press(desk_.cutRight, plugin_.matrixForm.fadeB);
  press(desk_.fadeLeft, plugin_.engine.master.AutoFadeA);
  press(desk_.fadeRight, plugin_.engine.master.AutoFadeB);
}

void DeskKeys::bindRows() {
  for (const RowItems& one : rows_) {
    for (int row = 0; row < kNumberedRows; ++row) {
      one.items[static_cast<std::size_t>(row)]->onClick = [this, row, &list = one.list] {
        if (playing() && row < list.count()) list.click(row, 0);
      };
    }
  }
}

void DeskKeys::tellKey(Control& control, const std::string& command) {
  tips_.push_back({control, dynamic_cast<MenuItem&>(*desk_.find(command)), control.look().toolTip});
}

void DeskKeys::showTips() {
  for (const Tip& tip : tips_) {
    const std::string& key = tip.command.key();
    const std::string text = tip.words + (key.empty() ? "" : " (" + key + ")");
    if (tip.control.look().toolTip != text) tip.control.setToolTip(text);
  }
}

// Without a row its key is free for whatever has the focus.
void DeskKeys::showRows() const {
  for (const RowItems& one : rows_) {
    for (int row = 0; row < kNumberedRows; ++row) {
      MenuItem& item = *one.items[static_cast<std::size_t>(row)];
      const bool can = playing() && row < one.list.count();
      if (item.look().enabled != can) item.setEnabled(can);
      const std::string caption =
          can ? std::to_string(row + 1) + "  " + one.list.cell(row, 0) : captionOf(item);
      if (item.look().caption != caption) item.setCaption(caption);
    }
  }
}

void DeskKeys::refresh() {
  showRows();
  showTips();
}

}  // namespace korvane
