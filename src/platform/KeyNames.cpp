#include "platform/KeyNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <string_view>

#include "platform/Controls.h"
#include "platform/ListView.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::array<std::string_view, 3> kHeld = {"Ctrl", "Alt", "Shift"};
constexpr std::string_view kNamedKeys[] = {"Left", "Right",  "Up",  "Down",     "Home",  "End",
                                           "PgUp", "PgDown", "Ins", "Del",      "Space", "Return",
                                           "Esc",  "Enter",  "Tab", "Backspace"};
constexpr int kFunctionKeys = 35;

std::optional<std::string> functionKey(const std::string& text) {
  for (int number = 1; number <= kFunctionKeys; ++number) {
    const std::string name = "F" + std::to_string(number);
    if (lowerCase(std::string(name)) == lowerCase(text)) return name;
  }
  return std::nullopt;
}

// The key itself, without what is held.
std::optional<std::string> bareKey(const std::string& text) {
  const auto* named = std::ranges::find_if(kNamedKeys, [&text](std::string_view name) {
    return lowerCase(std::string(name)) == lowerCase(text);
  });
  if (named != std::end(kNamedKeys)) return std::string(*named);
  if (auto function = functionKey(text)) return function;
  const unsigned char first = text.empty() ? '\0' : static_cast<unsigned char>(text.front());
  if (text.size() == 1)
    return std::isgraph(first) != 0
               ? std::optional(std::string(1, static_cast<char>(std::toupper(first))))
               : std::nullopt;
  // A letter of another alphabet.
  return first >= 0x80 && characters(text).size() == 1 ? std::optional(text) : std::nullopt;
}

bool isOneOf(const std::string& key, std::initializer_list<std::string_view> keys) {
  return std::find(keys.begin(), keys.end(), key) != keys.end();
}

std::string withoutShift(const std::string& key) {
  return key.starts_with("Shift+") ? key.substr(6) : key;
}

// What types a letter, and with it the space bar, or goes about in what was typed.
bool types(const std::string& key) {
  const std::string bare = withoutShift(key);
  return characters(bare).size() == 1 ||
         isOneOf(bare, {"Space", "Backspace", "Del", "Left", "Right", "Home", "End"});
}

bool goesThroughRows(const std::string& key) {
  return isOneOf(withoutShift(key), {"Up", "Down", "Home", "End", "PgUp", "PgDown"});
}

bool textWants(const TextBox& box, const std::string& key) {
  if (box.isPage() && (goesThroughRows(key) || key == "Return")) return true;
  return !box.style().readOnly && types(key);
}

// A figure is left to the commands: their keys call effects by number.
bool findsRow(const std::string& key) {
  const std::string bare = withoutShift(key);
  return characters(bare).size() == 1 && std::isdigit(static_cast<unsigned char>(bare[0])) == 0;
}

bool listWants(const ListView& list, const std::string& key) {
  if (list.editing()) return types(key);
  return goesThroughRows(key) || findsRow(key) || list.actionOf(key) != nullptr ||
         (key == "F2" && list.editable());
}

}  // namespace

std::optional<std::string> keyNamed(const std::string& text) {
  std::array<bool, kHeld.size()> held{};
  std::string rest = text;
  for (auto plus = rest.find('+'); plus != std::string::npos && plus + 1 < rest.size() && plus > 0;
       plus = rest.find('+')) {
    const auto* one = std::ranges::find_if(kHeld, [&](std::string_view name) {
      return lowerCase(std::string(name)) == lowerCase(rest.substr(0, plus));
    });
    if (one == kHeld.end()) return std::nullopt;
    held.at(static_cast<std::size_t>(one - kHeld.begin())) = true;
    rest.erase(0, plus + 1);
  }
  const auto bare = bareKey(rest);
  if (!bare) return std::nullopt;
  std::string name;
  for (std::size_t i = 0; i < kHeld.size(); ++i)
    if (held.at(i)) name += std::string(kHeld.at(i)) + "+";
  return name + *bare;
}

bool wantsKey(const Control& control, const std::string& key, bool clicked) {
  const bool space = key == "Space" && !clicked;
  switch (control.kind()) {
    case Kind::TextBox:
      return textWants(static_cast<const TextBox&>(control), key);
    case Kind::ListView:
      return space || listWants(static_cast<const ListView&>(control), key);
    case Kind::ListBox:
      return space || goesThroughRows(key) || characters(key).size() == 1 ||
             isOneOf(key, {"Left", "Right"});
    case Kind::Slider:
      return goesThroughRows(key) || isOneOf(withoutShift(key), {"Left", "Right"});
    default:
      return space;
  }
}

}  // namespace korvane
