#include "views/win32/windows/MenuBar.h"

#include <algorithm>
#include <string>

#include "platform/WideText_win32.h"

namespace korvane::win32 {
namespace {

constexpr WPARAM kFunctionKeys = VK_F24 - VK_F1;

bool held(int key) { return GetKeyState(key) < 0; }

// A key as an item names it, as in "Ctrl+Shift+S" or "F4"; empty for one that no item has.
std::string nameOf(WPARAM key) {
  const std::string with =
      std::string(held(VK_CONTROL) ? "Ctrl+" : "") + (held(VK_SHIFT) ? "Shift+" : "");
  if (key >= VK_F1 && key - VK_F1 <= kFunctionKeys)
    return with + "F" + std::to_string(key - VK_F1 + 1);
  if (!held(VK_CONTROL) || key < 'A' || key > 'Z') return {};
  return with + static_cast<char>(key);
}

std::wstring textOf(const MenuItem& item) {
  std::string text;
  for (const char letter : item.look().caption)
    text += letter == '&' ? "&&" : std::string(1, letter);
  return toWide(item.key().empty() ? text : text + "\t" + item.key());
}

}  // namespace

MenuBar::MenuBar(const Form& form, HWND window, EventGate& gate) : gate_(gate) {
  if (form.menus().empty()) return;
  const HMENU bar = CreateMenu();
  for (const Menu& menu : form.menus()) {
    const HMENU shown = CreatePopupMenu();
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(shown), toWide(menu.caption).c_str());
    for (MenuItem* item : menu.items) {
      if (item != nullptr) items_.push_back(item);
      AppendMenuW(shown, item == nullptr ? MF_SEPARATOR : MF_STRING,
                  item == nullptr ? 0 : items_.size(),
                  item == nullptr ? nullptr : textOf(*item).c_str());
    }
  }
  SetMenu(window, bar);
}

void MenuBar::refresh(HMENU menu) const {
  for (int at = 0; at < GetMenuItemCount(menu); ++at) {
    const UINT number = GetMenuItemID(menu, at);
    if (number == 0 || number > items_.size()) continue;
    const MenuItem& item = *items_[number - 1];
    const bool usable = item.look().enabled && item.look().visible;
    const UINT state = MF_BYPOSITION | MF_STRING | (usable ? MF_ENABLED : MF_GRAYED) |
                       (item.lit() ? MF_CHECKED : MF_UNCHECKED);
    ModifyMenuW(menu, static_cast<UINT>(at), state, number, textOf(item).c_str());
  }
}

bool MenuBar::run(UINT number) const {
  if (number == 0 || number > items_.size()) return false;
  click(*items_[number - 1]);
  return true;
}

bool MenuBar::press(WPARAM key) const {
  const std::string name = nameOf(key);
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const MenuItem* item) {
    return !name.empty() && item->key() == name && item->look().enabled;
  });
  if (found == items_.end()) return false;
  click(**found);
  return true;
}

void MenuBar::click(MenuItem& item) const {
  gate_.run([&item] { item.click(); });
}

}  // namespace korvane::win32
