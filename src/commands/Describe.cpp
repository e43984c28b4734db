#include "commands/Describe.h"

#include "platform/Controls.h"
#include "platform/ListView.h"

namespace korvane {
namespace {

Json list(const ListBox& list) {
  return {{"items", list.items()}, {"index", list.index()}, {"text", list.text()}};
}

Json listView(const ListView& list) {
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

Json slider(const Slider& slider) {
  return {{"value", slider.value()}, {"min", slider.min()}, {"max", slider.max()}};
}

Json picture(const PictureBox& box) {
  return {
      {"width", box.width()}, {"height", box.height()}, {"backColor", hexColor(box.backColor())}};
}

/// The fields that only this kind of control has.
Json ownFields(const Control& control) {
  switch (control.kind()) {
    case Kind::Button:
      return {{"pressed", false}};  // only picture buttons can be shown pressed
    case Kind::PictureButton:
      return {{"pressed", static_cast<const PictureButton&>(control).pressed()}};
    case Kind::CheckBox:
      return {{"value", static_cast<const CheckBox&>(control).value()}};
    case Kind::ListBox:
      return list(static_cast<const ListBox&>(control));
    case Kind::ListView:
      return listView(static_cast<const ListView&>(control));
    case Kind::TextBox:
      return {{"text", static_cast<const TextBox&>(control).text()}};
    case Kind::Slider:
      return slider(static_cast<const Slider&>(control));
    case Kind::PictureBox:
      return picture(static_cast<const PictureBox&>(control));
    case Kind::ColorBox:
      return {{"backColor", hexColor(static_cast<const ColorBox&>(control).backColor())}};
    case Kind::Label:
    case Kind::Group:
      break;
  }
  return Json::object();
}

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
  fields.update(ownFields(control));
  return fields;
}

}  // namespace korvane
