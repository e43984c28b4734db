#include "platform/TextFile.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/Failure.h"
#include "platform/Text.h"

namespace korvane {
namespace {

std::filesystem::path toPath(const std::string& utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace

bool fileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(toPath(path), error) &&
         !std::filesystem::is_directory(toPath(path), error);
}

TextReader::TextReader(const std::string& path) : path_(path) {
  if (!fileExists(path)) throw Failure(kFileNotFound, path);
  std::ifstream stream(toPath(path), std::ios::binary);
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
    : path_(path), stream_(toPath(path), std::ios::binary) {
  if (!stream_) throw Failure(kPathAccess, path_);
}

void TextWriter::writeLine(std::string_view utf8) { stream_ << toCodePage1252(utf8) << "\r\n"; }

void TextWriter::close() {
  stream_.close();
  if (stream_.fail()) throw Failure(kPathAccess, path_);
}

}  // namespace korvane
