// What differs by system of how the machine's disk writes. Each raises std::system_error.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// Makes a file that was not there, with these bytes, on the disk. Nothing of it is left behind if
/// that fails.
void writeNewFile(const std::string& path, std::string_view bytes);
/// Writes over the bytes of a file that is there.
void writeOverFile(const std::string& path, std::string_view bytes);
/// Hands a file to the disk: it survives a loss of power from here on.
void flushToDisk(const std::string& path);

}  // namespace korvane
