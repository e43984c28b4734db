#include "desk/project/DeskProject.h"

#include <algorithm>
#include <istream>
#include <iterator>

#include "desk/project/ShowPath.h"
#include "platform/Failure.h"
#include "platform/ReplaceFile.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{32} << 20;
constexpr int kDeepest = 64;

struct TooDeep : std::runtime_error {
  TooDeep() : std::runtime_error("it is nested too deeply") {}
};

// Deeper than any project is, and so shallow that what walks through it needs no care.
bool refuseDepth(int depth, Json::parse_event_t, const Json&) {
  if (depth > kDeepest) throw TooDeep();
  return true;
}

std::string bytesOf(const std::string& path, Disk& disk) {
  if (disk.size(path) > kMostBytes)
    throw Failure(kOutOfMemory, path + " is larger than the " + std::to_string(kMostBytes) +
                                    " bytes that a project may have");
  const auto stream = disk.read(path);
  if (!*stream) throw Failure(kPathAccess, path);
  return {std::istreambuf_iterator<char>(*stream), std::istreambuf_iterator<char>()};
}

// What the elements of a list are told apart by.
std::string identity(const Json& element) {
  if (!element.is_object()) return {};
  for (const char* name : {"name", "target"}) {
    const auto found = element.find(name);
    if (found != element.end() && found->is_string()) return found->get<std::string>();
  }
  return {};
}

Json mergedLists(const Json& before, const Json& now) {
  std::vector<const Json*> left;
  for (const Json& element : before) left.push_back(&element);
  Json all = Json::array();
  for (const Json& element : now) {
    const std::string name = identity(element);
    const auto same = std::find_if(left.begin(), left.end(), [&name](const Json* other) {
      return !name.empty() && identity(*other) == name;
    });
    all.push_back(mergedWith(same == left.end() ? Json() : **same, element));
    if (same != left.end()) left.erase(same);
  }
  return all;
}

std::string dumped(const Json& document) {
  return document.dump(2, ' ', true, Json::error_handler_t::replace);
}

// The parser's words begin with its own name and number.
std::string reason(const std::exception& error) {
  const std::string text = error.what();
  const auto end = text.starts_with('[') ? text.find("] ") : std::string::npos;
  return end == std::string::npos ? text : text.substr(end + 2);
}

void writeLines(const std::string& text, TextWriter& file) {
  for (const std::string& line : split(text, '\n')) file.writeLine(line);
}

}  // namespace

Json mergedWith(const Json& before, const Json& now) {
  if (now.is_array()) return mergedLists(before.is_array() ? before : Json::array(), now);
  if (!now.is_object()) return now;
  Json all = before.is_object() ? before : Json::object();
  for (const auto& [name, value] : now.items()) {
    if (value.is_null())
      all.erase(name);
    else
      all[name] = mergedWith(all.contains(name) ? all[name] : Json(), value);
  }
  return all;
}

std::vector<std::string> DeskProject::open(const std::string& path) {
  if (!fileExists(path, disk_)) return begin(), std::vector<std::string>();
  try {
    return read(bytesOf(path, disk_));
  } catch (const Failure& failure) {
    begin();
    return {failure.what()};
  }
}

std::vector<std::string> DeskProject::read(const std::string& text) {
  std::vector<std::string> faults;
  Json document;
  try {
    document = Json::parse(text, refuseDepth);
  } catch (const std::exception& error) {
    faults.push_back("It is no JSON: " + reason(error));
    document = Json::object();
  }
  take(document, faults);
  return faults;
}

void DeskProject::begin() {
  std::vector<std::string> none;
  take(Json::object(), none);
}

void DeskProject::take(const Json& document, std::vector<std::string>& faults) {
  const Member whole(&document, "", faults);
  kept_ = document.is_object() ? document : Json::object();
  if (!document.is_object()) whole.wrong("an object");
  double version = kDeskProjectVersion;
  whole["version"].take(version, 1, 1e9);
  newer_ = version > kDeskProjectVersion;
  if (newer_)
    faults.push_back("/version: " + formatGeneral(version, {}) +
                     " is newer than this program, which reads up to " +
                     std::to_string(kDeskProjectVersion) + "; nothing of it is taken");
  const Json nothing;
  for (const Section& section : sections_)
    section.read(newer_ ? Member(&nothing, "/" + section.name, faults) : whole[section.name]);
}

std::string DeskProject::text() {
  Json now = Json::object();
  now["version"] = kDeskProjectVersion;
  for (const Section& section : sections_) now[section.name] = section.write();
  return dumped(mergedWith(kept_, now));
}

std::string DeskProject::changes() {
  Json now = Json::object();
  for (const Section& section : sections_) {
    const bool own = section.counts == Counts::OfItsOwn && kept_.contains(section.name);
    if (own || section.counts == Counts::Always) now[section.name] = section.write();
  }
  return dumped(now);
}

void DeskProject::save(const std::string& path) {
  if (newer_)
    throw Failure(kPathAccess, path + " is of a newer version of the program and stays as it is");
  const std::string now = text();
  kept_ = Json::parse(now);
  replaceTextFile(
      path, [&now](TextWriter& file) { writeLines(now, file); },
      [](const std::string&) { return false; }, disk_);
}

std::string showOfProject(const std::string& path, Disk& disk) {
  for (const char* ending : {kDeskProjectEnding, kGridEnding}) {
    if (!path.ends_with(ending)) continue;
    std::string show = path.substr(0, path.size() - std::string_view(ending).size()) + kShowEnding;
    if (fileExists(show, disk) || ending != kDeskProjectEnding) return show;
    std::string named;
    DeskProject project(disk);
    project.add({"show", [] { return Json(); }, [&](const Member& name) { name.take(named); }});
    project.open(path);
    return named.empty() ? show : folderOf(path) + fileTitle(named);
  }
  return path;
}

}  // namespace korvane
