#include "desk/show/KeptOutputs.h"

#include <algorithm>
#include <array>
#include <exception>
#include <istream>
#include <stdexcept>
#include <string_view>

#include "platform/ReplaceFile.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr std::array<std::string_view, 3> kWhenOff = {"dmx-off dark", "dmx-off hold",
                                                      "dmx-off ask"};

}  // namespace

KeptOutputs::KeptOutputs(std::string file, Disk& disk) : file_(std::move(file)), disk_(disk) {
  if (!fileExists(file_, disk_)) return;
  const auto in = disk_.read(file_);
  int number = 0;
  for (std::string line; std::getline(*in, line);) read(line, ++number);
}

void KeptOutputs::read(const std::string& line, int number) {
  const std::string text = line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
  if (text.empty()) return;
  const auto* off = std::ranges::find(kWhenOff, text);
  if (off != kWhenOff.end()) {
    whenOff_ = static_cast<int>(off - kWhenOff.begin());
    return;
  }
  try {
    entries_.push_back(parseEntry(text));
  } catch (const std::invalid_argument& error) {
    unread_.push_back(text);
    fault_ = file_ + ", line " + std::to_string(number) + ": " + error.what();
  }
}

void KeptOutputs::keep(const std::vector<OutputEntry>& entries, int whenOff) {
  if (file_.empty()) return;
  disk_.makeFolders(utf8Path(systemPath(file_).parent_path()));
  try {
    replaceTextFile(
        file_,
        [&](TextWriter& writer) {
          writer.writeLine(std::string(kWhenOff.at(static_cast<std::size_t>(whenOff))));
          for (const OutputEntry& entry : entries) writer.writeLine(entryText(entry));
          for (const std::string& line : unread_) writer.writeLine(line);
        },
        [](const std::string&) { return false; }, disk_);
    fault_.clear();
  } catch (const std::exception& failure) {
    fault_ = "The outputs will not be remembered: " + std::string(failure.what());
  }
}

}  // namespace korvane
