#include "desk/project/WindowSection.h"

#include <utility>

namespace korvane {
namespace {

constexpr int kFarthest = 100000;  // pixels from the first screen's corner

Json toJson(const Form& window) {
  Json json = {{"open", window.visible()}};
  if (!window.place()) return json;
  const WindowPlace& place = *window.place();
  json.update({{"x", place.x},
               {"y", place.y},
               {"width", place.width},
               {"height", place.height},
               {"maximized", place.maximized}});
  return json;
}

void readPlace(const Member& member, Form& window) {
  WindowPlace place;
  member["maximized"].take(place.maximized);
  int taken = member["x"].take(place.x, -kFarthest, kFarthest);
  taken += member["y"].take(place.y, -kFarthest, kFarthest);
  taken += member["width"].take(place.width, 1, kFarthest);
  taken += member["height"].take(place.height, 1, kFarthest);
  if (taken == 4) window.moveTo(place);
}

void readOpen(const Member& member, Desktop& desktop, Form& window) {
  bool open = window.visible();
  member["open"].take(open);
  if (open != window.visible()) open ? desktop.show(window) : desktop.close(window);
}

}  // namespace

Section windowSection(Desktop& desktop, const std::vector<Form*>& windows) {
  const auto write = [windows] {
    Json json = Json::object();
    for (const Form* window : windows) json[window->name()] = toJson(*window);
    return json;
  };
  const auto read = [&desktop, windows](const Member& member) {
    for (Form* window : windows) {
      const Member one = member[window->name()];
      if (!one.given()) continue;
      readPlace(one, *window);
      if (window != windows.front()) readOpen(one, desktop, *window);
    }
    if (member.given()) desktop.activate(windows.front()->front());
  };
  return {"windows", write, read, Counts::Never};
}

}  // namespace korvane
