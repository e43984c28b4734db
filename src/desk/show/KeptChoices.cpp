#include "desk/show/KeptChoices.h"

#include <exception>
#include <istream>

#include "platform/ReplaceFile.h"

namespace korvane {

KeptChoices::KeptChoices(std::string file, Disk& disk) : file_(std::move(file)), disk_(disk) {
  if (file_.empty() || !fileExists(file_, disk_)) return;
  const auto in = disk_.read(file_);
  for (std::string line; std::getline(*in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t blank = line.find(' ');
    if (blank != std::string::npos) words_[line.substr(0, blank)] = line.substr(blank + 1);
  }
}

std::string KeptChoices::get(const std::string& name) const {
  const auto found = words_.find(name);
  return found == words_.end() ? std::string() : found->second;
}

void KeptChoices::set(const std::string& name, const std::string& words) {
  if (get(name) == words) return;
  words_[name] = words;
  if (file_.empty()) return;
  disk_.makeFolders(utf8Path(systemPath(file_).parent_path()));
  try {
    replaceTextFile(
        file_,
        [this](TextWriter& writer) {
          for (const auto& [key, text] : words_)
            writer.writeLine(std::string(key).append(" ").append(text));
        },
        [](const std::string&) { return false; }, disk_);
  } catch (const std::exception&) {
    // The choice holds until the program ends.
  }
}

}  // namespace korvane
