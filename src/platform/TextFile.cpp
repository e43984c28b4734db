#include "platform/TextFile.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/Failure.h"
#include "platform/Text.h"

namespace korvane {
std::filesystem::path systemPath(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}

bool fileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(systemPath(path), error);
}

std::string fileTitle(const std::string& path) {
  const std::u8string title = systemPath(path).filename().u8string();
  return {title.begin(), title.end()};
}

TextReader::TextReader(const std::string& path) : path_(path) {
  if (!fileExists(path)) throw Failure(kFileNotFound, path);
  std::ifstream stream(systemPath(path), std::ios::binary);
  if (!stream) throw Failure(kPathAccess, path);
  bytes_.assign(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
}

std::string TextReader::readLine() {
  ++line_;
  if (atEnd()) throw Failure(kPastEndOfFile, path_ + ", line " + std::to_string(line_));
  std::size_t end = bytes_.find('\n', position_);
  if (end == std::string::npos) end = bytes_.size();
  std::string_view line(bytes_.data() + position_, end - position_);
  position_ = end + 1;
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return fromCodePage1252(line);
}

TextWriter::TextWriter(const std::string& path)
    : path_(path), stream_(systemPath(path), std::ios::binary) {
  if (!stream_) throw Failure(kPathAccess, path_);
}

void TextWriter::writeLine(std::string_view utf8) { stream_ << toCodePage1252(utf8) << "\r\n"; }

void TextWriter::close() {
  stream_.close();
  if (stream_.fail()) throw Failure(kPathAccess, path_);
}

}  // namespace korvane
