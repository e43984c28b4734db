#include "desk/keys/KeyBindings.h"

#include <algorithm>
#include <exception>
#include <istream>
#include <iterator>
#include <map>
#include <optional>
#include <stdexcept>

#include "desk/keys/CommandTable.h"
#include "platform/KeyNames.h"
#include "platform/ReplaceFile.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr int kVersion = 1;
constexpr std::uintmax_t kMostBytes = std::uintmax_t{1} << 20;

const std::string& defaultKey(const MenuItem& item) { return commandRow(item.name())->key; }

bool ofWindows(const std::string& key) {
  constexpr const char* kTheirs[] = {"Return", "Enter", "Esc", "Tab", "Shift+Tab"};
  return std::ranges::find(kTheirs, key) != std::end(kTheirs);
}

}  // namespace

std::string captionOf(const MenuItem& item) { return commandRow(item.name())->caption; }

KeyBindings::KeyBindings(std::vector<MenuItem*> items, std::string file, Disk& disk)
    : items_(std::move(items)), file_(std::move(file)), disk_(disk) {
  std::erase_if(items_, [](const MenuItem* item) {
    return item == nullptr || commandRow(item->name()) == nullptr;
  });
  if (fileExists(file_, disk_)) read();
}

MenuItem* KeyBindings::find(const std::string& name) const {
  const auto found = std::ranges::find(items_, name, &MenuItem::name);
  return found == items_.end() ? nullptr : *found;
}

MenuItem* KeyBindings::holder(const std::string& key) const {
  const auto found = std::ranges::find(items_, key, &MenuItem::key);
  return found == items_.end() ? nullptr : *found;
}

std::string KeyBindings::obstacle(const MenuItem& item, const std::string& key) const {
  if (key.empty()) return {};
  if (ofWindows(key)) return key + " belongs to the windows.";
  const MenuItem* taken = holder(key);
  return taken == nullptr || taken == &item ? ""
                                            : key + " is the key of '" + captionOf(*taken) + "'.";
}

std::string KeyBindings::assign(MenuItem& item, const std::string& text) {
  const auto key = text.empty() ? std::optional(text) : keyNamed(text);
  if (!key) return "'" + text + "' is no key that a command can have.";
  std::string wrong = obstacle(item, *key);
  if (!wrong.empty()) return wrong;
  item.setKey(*key);
  unread_.erase(item.name());
  keep();
  return {};
}

std::string KeyBindings::reset(MenuItem& item) { return assign(item, defaultKey(item)); }

void KeyBindings::resetAll() {
  for (MenuItem* item : items_) {
    item->setKey(defaultKey(*item));
    unread_.erase(item->name());
  }
  keep();
}

void KeyBindings::read() {
  std::vector<std::string> faults;
  try {
    if (disk_.size(file_) > kMostBytes) throw std::runtime_error("it is too large");
    const auto in = disk_.read(file_);
    const Json document = Json::parse(std::string(std::istreambuf_iterator<char>(*in), {}));
    const Member keys = Member(&document, "", faults)["keys"];
    take(keys, document.is_object() && document.contains("keys") ? document["keys"] : Json());
  } catch (const std::exception& error) {
    faults.emplace_back(error.what());
  }
  for (const std::string& one : faults) fault_ += (fault_.empty() ? file_ + ": " : "; ") + one;
}

// A key may go from one command to another, so all that change give theirs up first.
void KeyBindings::take(const Member& keys, const Json& members) {
  if (!members.is_object()) {
    if (keys.given()) keys.wrong("an object");
    return;
  }
  std::map<std::string, std::string> wanted;
  const auto refuse = [this, &members](const std::string& name) { unread_[name] = members[name]; };
  for (const auto& [name, value] : members.items()) {
    const Member member = keys[name];
    std::string text;
    const MenuItem* item = find(name);
    const bool given = member.take(text);
    const auto key = text.empty() ? std::optional(text) : keyNamed(text);
    if (item == nullptr) member.fault("there is no such command");
    if (item != nullptr && given && !key) member.wrong("a key, as in \"Ctrl+B\"");
    if (item != nullptr && given && key)
      wanted[name] = *key;
    else
      refuse(name);
  }
  for (const auto& [name, key] : wanted) find(name)->setKey("");
  for (const auto& [name, key] : wanted) {
    MenuItem& item = *find(name);
    const std::string wrong = obstacle(item, key);
    if (wrong.empty()) {
      item.setKey(key);
      continue;
    }
    keys[name].fault(wrong);
    refuse(name);
    if (obstacle(item, defaultKey(item)).empty()) item.setKey(defaultKey(item));
  }
}

void KeyBindings::keep() {
  if (file_.empty()) return;
  Json keys = unread_;
  for (const MenuItem* item : items_) {
    if (item->key() != defaultKey(*item)) keys[item->name()] = item->key();
  }
  const std::string text = Json{{"version", kVersion}, {"keys", keys}}.dump(
      2, ' ', true, Json::error_handler_t::replace);
  try {
    disk_.makeFolders(utf8Path(systemPath(file_).parent_path()));
    replaceTextFile(
        file_,
        [&text](TextWriter& writer) {
          for (const std::string& line : split(text, '\n')) writer.writeLine(line);
        },
        [](const std::string&) { return false; }, disk_);
    fault_.clear();
  } catch (const std::exception& failure) {
    fault_ = "The keys will not be remembered: " + std::string(failure.what());
  }
}

}  // namespace korvane
