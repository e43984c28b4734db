#include <optional>

#include "commands/Person.h"
#include "platform/Controls.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"

namespace korvane {
namespace {

using Mouse = PictureBox::Mouse;

constexpr Range kPointer{-32768, 32767};  // a platform's pointer message holds 16 bits
constexpr Range kKeyCodes{0, 65535};
constexpr Range kPixels{0, 8192};
constexpr std::int64_t kMostPixels = 8'388'608;
/// Twips in a pixel, at the usual 96 pixels an inch.
constexpr int kTwips = 15;

// Each of these makes the gesture of one command; the arguments are those behind its NAME.

Gesture click(Console&, const Target& target, const Arguments&) {
  if (auto* button = as<Button>(target)) return {{[=] { button->click(); }}};
  if (auto* button = as<PictureButton>(target)) return {{[=] { button->click(); }}};
  if (auto* item = as<MenuItem>(target)) return {{[=] { item->click(); }}};
  if (auto* box = as<ColorBox>(target)) return {{[=] { box->click(); }}};
  if (auto* label = as<Label>(target)) return {{[=] { label->click(); }}};
  if (auto* box = as<CheckBox>(target)) return {{[=] { box->click(); }}};
  if (target.control == nullptr && target.form->onClick) return {{target.form->onClick}};
  refuseKind(target, "click");
}

Gesture setText(TextBox& box, const Target& target, const std::string& text) {
  if (box.style().readOnly) throw CommandError(target.name + " can only be read.");
  if (box.style().lines == 1 && text.find_first_of("\r\n") != std::string::npos)
    throw CommandError(target.name + " takes one line of text.");
  return {{[&box, text] { box.setText(text); }}};
}

Gesture set(Console&, const Target& target, const Arguments& arguments) {
  if (auto* list = as<ListBox>(target)) {
    const int index = arguments.index(0, "VALUE", list->items().size());
    return {{[=] { list->choose(index); }}};
  }
  if (auto* box = as<TextBox>(target)) return setText(*box, target, arguments.text(0));
  if (auto* slider = as<Slider>(target)) {
    const int position = arguments.integer(0, "VALUE", {slider->min(), slider->max()});
    return {{[=] { slider->setValue(position); }}};
  }
  if (auto* box = as<CheckBox>(target)) {
    const int state = arguments.integer(0, "VALUE", {0, 1});
    return {{[=] { box->setValue(state); }}};
  }
  refuseKind(target, "set");
}

int rowOf(const ListView& list, const Arguments& arguments) {
  return arguments.index(0, "ROW", list.rows().size());
}

int columnOf(const ListView& list, const Arguments& arguments) {
  return arguments.index(1, "COL", list.columns().size());
}

Gesture pick(Console&, const Target& target, const Arguments& arguments) {
  auto& list = require<ListView>(target, "pick");
  const int row = rowOf(list, arguments);
  const int col = arguments.count() > 1 ? columnOf(list, arguments) : 0;
  return {{[=, &list] { list.click(row, col); }}};
}

Gesture unpick(Console&, const Target& target, const Arguments&) {
  auto& list = require<ListView>(target, "unpick");
  return {{[&list] { list.unselectAll(); }}};
}

Gesture dblclick(Console&, const Target& target, const Arguments& arguments) {
  auto& list = require<ListView>(target, "dblclick");
  const int row = rowOf(list, arguments);
  return {{[=, &list] { list.click(row, 0); }, [=, &list] { list.doubleClick(row); }}};
}

Gesture edit(Console&, const Target& target, const Arguments& arguments) {
  auto& list = require<ListView>(target, "edit");
  const int row = rowOf(list, arguments);
  const int col = columnOf(list, arguments);
  if (!list.columns()[static_cast<std::size_t>(col)].editable)
    throw CommandError("Column " + std::to_string(col) + " of " + target.name +
                       " can't be edited.");
  const bool open = list.editing() && list.editRow() == row && list.editCol() == col;
  const auto type = [=, &list, text = arguments.text(2)] {
    if (!open) list.beginEdit(row, col);
    list.endEdit(text);
  };
  return {{type}, open ? &list : nullptr};
}

Event at(PictureBox& box, Mouse event, int x, int y) {
  return [&box, event, x, y] { box.mouse(event, x, y); };
}

Gesture mouse(Console&, const Target& target, const Arguments& arguments) {
  auto& box = require<PictureBox>(target, "mouse");
  const std::string& action = arguments.text(0);
  const int x = arguments.integer(1, "X", kPointer);
  const int y = arguments.integer(2, "Y", kPointer);
  const Event down = at(box, Mouse::Down, x, y), up = at(box, Mouse::Up, x, y),
              clicked = at(box, Mouse::Click, x, y), doubled = at(box, Mouse::DblClick, x, y);
  if (action == "down") return {{down}};
  if (action == "move") return {{at(box, Mouse::Move, x, y)}};
  if (action == "up") return {{up}};
  if (action == "click") return {{down, up, clicked}};
  if (action == "dblclick") return {{down, up, clicked, down, doubled, up}, nullptr, true};
  throw CommandError("The pointer can do down, move, up, click or dblclick, not " +
                     inQuotes(action) + ".");
}

Gesture drag(Console&, const Target& target, const Arguments& arguments) {
  auto& box = require<PictureBox>(target, "drag");
  const int x1 = arguments.integer(0, "X1", kPointer);
  const int y1 = arguments.integer(1, "Y1", kPointer);
  const int x2 = arguments.integer(2, "X2", kPointer);
  const int y2 = arguments.integer(3, "Y2", kPointer);
  return {{at(box, Mouse::Down, x1, y1), at(box, Mouse::Move, x2, y2), at(box, Mouse::Up, x2, y2),
           at(box, Mouse::Click, x2, y2)}};
}

Gesture key(Console&, const Target& target, const Arguments& arguments) {
  const int code = arguments.integer(0, "CODE", kKeyCodes);
  if (target.control != nullptr) {
    auto& box = require<TextBox>(target, "key");
    return {{[&box, code] { box.keyPress(code); }}};
  }
  return {{[form = target.form, code] { form->key(code); }}};
}

Gesture size(Console&, const Target& target, const Arguments& arguments) {
  const int width = arguments.integer(0, "W", kPixels);
  const int height = arguments.integer(1, "H", kPixels);
  if (std::int64_t{width} * height > kMostPixels)
    throw CommandError("A drawing area has at most " + std::to_string(kMostPixels) + " pixels.");
  PictureBox* box =
      target.control != nullptr ? &require<PictureBox>(target, "size") : target.form->surface;
  if (box != nullptr) return {{[=] { box->resize(width, height); }}};
  return {{[=, form = target.form] { form->setSize(kTwips * width, kTwips * height); }}};
}

Gesture close(Console& console, const Target& target, const Arguments&) {
  if (target.control != nullptr) refuseKind(target, "close");
  return {{[&console, form = target.form] { console.engine.desktop.close(*form); }}};
}

/// The way of every command that acts on something as a person: can it be reached, and if so, act.
template <Gesture (*gesture)(Console&, const Target&, const Arguments&)>
void asPerson(Console& console, const Arguments& arguments, Json&) {
  const Target target = reachTarget(console.engine, arguments.text(0));
  act(console.engine, target, gesture(console, target, arguments.from(1)));
}

void queueAnswer(Console& console, const Arguments& arguments, Json&) {
  const std::string& path = arguments.text(0);
  if (path.empty()) throw CommandError("PATH is empty.");
  console.platform.answers.push_back(path == "cancel" ? std::nullopt : std::optional(path));
}

constexpr Command kPersonCommands[] = {
    {"click", "NAME", asPerson<click>},
    {"set", "NAME VALUE", asPerson<set>},
    {"pick", "NAME ROW [COL]", asPerson<pick>},
    {"unpick", "NAME", asPerson<unpick>},
    {"dblclick", "NAME ROW", asPerson<dblclick>},
    {"edit", "NAME ROW COL TEXT", asPerson<edit>},
    {"mouse", "NAME ACTION X Y", asPerson<mouse>},
    {"drag", "NAME X1 Y1 X2 Y2", asPerson<drag>},
    {"key", "NAME CODE", asPerson<key>},
    {"size", "NAME W H", asPerson<size>},
    {"close", "FORM", asPerson<close>},
    {"answer", "PATH", queueAnswer},
};

}  // namespace

std::span<const Command> personCommands() { return kPersonCommands; }

}  // namespace korvane
