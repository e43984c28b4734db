#pragma once

#include <string>
#include <vector>

namespace korvane {

/// A show that comes with the program.
struct Example {
  std::string title;  ///< as in "Club night", for the file 1-club-night.Korvane
  std::string path;
};

/// The shows of a folder, in the order of their file names; none if there is no such folder.
std::vector<Example> examplesIn(const std::string& folder);

/// The folder of the shows beside a program in this folder: of an installation, or of the tree that
/// it was built in. Empty if there is none.
std::string examplesBeside(const std::string& programFolder);

}  // namespace korvane
