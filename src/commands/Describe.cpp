#include "commands/Describe.h"

#include "platform/Kinds.h"

namespace korvane {
namespace {

// The fields that only this kind of control has; a kind without a line here does not compile.

// Only picture buttons can be shown pressed.
Json own(const Button&) { return {{"pressed", false}}; }
Json own(const PictureButton& button) { return {{"pressed", button.pressed()}}; }
Json own(const CheckBox& box) { return {{"value", box.value()}}; }
Json own(const ListBox& list) {
  return {{"items", list.items()}, {"index", list.index()}, {"text", list.text()}};
}
Json own(const ListView& list) {
  Json columns = Json::array();
  for (const ListView::Column& column : list.columns()) columns.push_back(column.title);
  Json rows = Json::array();
  for (const ListView::Row& row : list.rows()) {
    rows.push_back({{"text", row.text},
                    {"sub", row.sub},
                    {"color", hexColor(row.color)},
                    {"selected", row.selected}});
  }
  return {{"columns", columns}, {"rows", rows}, {"current", list.current()}};
}
Json own(const TextBox& box) { return {{"text", box.text()}}; }
Json own(const Slider& slider) {
  return {{"value", slider.value()}, {"min", slider.min()}, {"max", slider.max()}};
}
Json own(const PictureBox& box) {
  return {
      {"width", box.width()}, {"height", box.height()}, {"backColor", hexColor(box.backColor())}};
}
Json own(const ColorBox& box) { return {{"backColor", hexColor(box.backColor())}}; }
Json own(const MenuItem& item) { return {{"key", item.key()}, {"lit", item.lit()}}; }
Json own(const Label&) { return Json::object(); }
Json own(const Group&) { return Json::object(); }

}  // namespace

Json describe(const Form& form) {
  Json controls = Json::array();
  for (const Control* control : form.controls()) controls.push_back(control->name());
  const PictureBox* surface = form.surface;  // its pixels are such a window's size
  return {{"caption", form.caption()},
          {"visible", form.visible()},
          {"modal", form.modal()},
          {"width", surface != nullptr ? surface->width() : form.width()},
          {"height", surface != nullptr ? surface->height() : form.height()},
          {"controls", controls}};
}

Json describe(const Control& control) {
  const Look& look = control.look();
  Json fields = {{"kind", kindName(control.kind())},
                 {"visible", look.visible},
                 {"enabled", look.enabled},
                 {"caption", look.caption},
                 {"toolTip", look.toolTip}};
  fields.update(asItsKind(control, [](const auto& what) { return own(what); }));
  return fields;
}

}  // namespace korvane
