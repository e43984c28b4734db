#include "commands/TestConsole.h"

namespace korvane {

DemoForm::DemoForm(Engine& engine, Log& handlers) : Form("Demo", "Demonstration") {
  add({&go, &arrow, &box, &list, &empty, &table, &text, &lines, &fixed, &slider, &picture, &color,
       &label, &unseen, &dead, &outer, &inner, &deep});
  setLayout(column({go, boxed(outer, boxed(inner, deep))}));
  list.setItems({"one", "two", "three"});
  table.setColumns({{"Name", 0.5, false}, {"Time(s)", 0.5, true}});
  table.add("first", {"1.0"});
  table.add("second", {"2.0"}, rgb(255, 0, 0));
  const auto note = [&handlers](const std::string& what) { handlers.push_back(what); };
  onLoad = [note] { note("Demo load"); };
  onActivate = [note] { note("Demo activate"); };
  onClose = [note] { note("Demo close"); };
  onKeyPress = [note](int key) { note("Demo key " + std::to_string(key)); };
  go.onClick = [note] { note("go"); };
  arrow.onClick = [note] { note("arrow"); };
  box.onClick = [=, this] { note("box " + std::to_string(box.value())); };
  list.onClick = [=, this] { note("list " + list.text()); };
  text.onChange = [=, this] { note("text " + text.text()); };
  text.onKeyPress = [note](int key) { note("text key " + std::to_string(key)); };
  slider.onChange = [=, this] { note("slider " + std::to_string(slider.value())); };
  color.onClick = [note] { note("color"); };
  label.onClick = [note] { note("label"); };
  const auto pointer = [note](const char* event) {
    return [note, event](int x, int y) {
      note(event + (" " + std::to_string(x) + " " + std::to_string(y)));
    };
  };
  picture.onMouseDown = pointer("down");
  picture.onMouseMove = [=, this](int x, int y) {
    pointer(picture.buttonHeld() ? "held move" : "move")(x, y);
  };
  picture.onMouseUp = pointer("up");
  picture.onClick = [note] { note("click"); };
  picture.onDblClick = [note] { note("dblclick"); };
  picture.onResize = [note] { note("resize"); };
  const auto cell = [note](const char* event) {
    return [note, event](int row, int col) {
      note(event + (" " + std::to_string(row) + " " + std::to_string(col)));
    };
  };
  table.onClick = cell("table click");
  table.onEdited = cell("table edited");
  table.onDoubleClick = [note](int row) { note("table dblclick " + std::to_string(row)); };
  engine.desktop.add(*this);
}

SurfaceForm::SurfaceForm(Engine& engine, Log& handlers) : Form("Surface", "A picture") {
  surface = &picture;
  onActivate = [&handlers] { handlers.emplace_back("Surface activate"); };
  picture.onResize = [&handlers] { handlers.emplace_back("Surface resize"); };
  onClick = [&handlers] { handlers.emplace_back("Surface click"); };
  engine.desktop.add(*this);
}

AskForm::AskForm(Engine& engine, Log& handlers) : Form("Ask", "Question") {
  add({&done});
  onActivate = [&handlers] { handlers.emplace_back("Ask activate"); };
  done.onClick = [&engine, this] { engine.desktop.hide(*this); };
  engine.desktop.add(*this);
}

TestConsole::TestConsole()
    : interpreter({engine, platform, host.calls, {}, [this](std::int64_t time, const auto& gate) {
                     engine.timers.advanceTo(engine.timers.now() + time, gate);
                   }}) {
  engine.mainWindow = &demo;
  engine.desktop.show(surface);
  engine.desktop.show(demo);
  log.clear();
}

}  // namespace korvane
