#include "desk/project/KeptShows.h"

#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include "desk/project/Member.h"
#include "platform/ReplaceFile.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".kept";
constexpr int kMostCopies = 100;  // of one project

std::string keyOf(const std::string& show) {
  std::ostringstream key;
  key << std::hex << std::hash<std::string>()(show);
  return key.str();
}

Claim claimOf(const std::string& key) { return Claim("project/" + key); }

std::string textOf(const KeptShow& show) {
  const Json document = {{"path", show.path},
                         {"name", show.name},
                         {"changes", show.changes},
                         {"show", fromCodePage1252(show.show)},
                         {"grid", fromCodePage1252(show.grid)},
                         {"project", show.project}};
  return document.dump(0, ' ', true, Json::error_handler_t::replace);
}

std::optional<KeptShow> readKept(const fs::path& path) try {
  std::ifstream stream(path, std::ios::binary);
  const Json document = Json::parse(stream);
  KeptShow show;
  document.at("path").get_to(show.path);
  document.at("name").get_to(show.name);
  document.at("changes").get_to(show.changes);
  show.show = toCodePage1252(document.at("show").get<std::string>());
  show.grid = toCodePage1252(document.at("grid").get<std::string>());
  document.at("project").get_to(show.project);
  return show;
} catch (const Json::exception&) {
  return std::nullopt;  // no file of ours
}

std::string timeText(fs::file_time_type time) {
  const auto system = std::chrono::file_clock::to_sys(time);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(system));
  std::tm local{};
  localtime_r(&seconds, &local);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
  return text.data();
}

}  // namespace

std::string KeptShows::hold(const std::string& show) {
  if (folder_.empty()) return {};
  std::string holder;
  const std::string stem = show.empty() ? "untitled" : keyOf(show);
  claims_.clear();
  for (int copy = 1; copy <= kMostCopies; ++copy) {
    key_ = copy == 1 ? stem : stem + "-" + std::to_string(copy);
    Claim claim = claimOf(key_);
    if (!claim.held()) {
      if (holder.empty() && !show.empty()) holder = claim.holder();
      continue;
    }
    claims_.emplace(key_, std::move(claim));
    if (!fileExists(file(key_))) break;  // else it is to be offered
  }
  return holder;
}

void KeptShows::keep(const KeptShow& show) const {
  if (folder_.empty()) return;
  std::error_code error;
  fs::create_directories(systemPath(folder_), error);
  const std::string text = textOf(show);
  replaceTextFile(
      file(key_), [&text](TextWriter& writer) { writer.writeLine(text); },
      [](const std::string&) { return true; });  // no backup of what is one itself
}

void KeptShows::drop(const std::string& key) const {
  if (folder_.empty() || key.empty()) return;
  std::error_code error;
  fs::remove(systemPath(file(key)), error);
}

std::optional<KeptShows::Left> KeptShows::left() const {
  std::optional<Left> newest;
  fs::file_time_type newestTime;
  std::error_code error;
  if (folder_.empty()) return newest;
  for (const auto& entry : fs::directory_iterator(systemPath(folder_), error)) {
    if (entry.path().extension() != kEnding) continue;
    const std::string key = utf8Path(entry.path().stem());
    const fs::file_time_type time = entry.last_write_time(error);
    if (newest && time <= newestTime) continue;
    if (key == key_ || (!claims_.contains(key) && !claimOf(key).held())) continue;  // a live desk's
    if (auto show = readKept(entry.path())) {
      newest = Left{key, *show, timeText(time)};
      newestTime = time;
    }
  }
  return newest;
}

}  // namespace korvane
