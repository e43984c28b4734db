#pragma once

#include <string>

namespace korvane {

/// Ending of a show's file, and of its grid's.
inline constexpr const char* kShowEnding = ".Korvane";
inline constexpr const char* kGridEnding = ".korvaneconf";

bool isShow(const std::string& path);
/// The path of a show's project: without the ending, if it has the usual one.
std::string projectOf(const std::string& show);
/// As in "summer tour", for the file /shows/summer tour.Korvane.
std::string showName(const std::string& show);
/// The folder of a path, with its slash; empty for a bare name.
std::string folderOf(const std::string& path);

}  // namespace korvane
