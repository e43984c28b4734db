#pragma once

#include <nlohmann/json.hpp>

#include "platform/Color.h"
#include "platform/Grid.h"

namespace korvane {

/// Keeps its fields in the order in which they were set.
using Json = nlohmann::ordered_json;

/// A colour as RRGGBB in upper-case hex.
std::string hexColor(Color color);
inline std::string hexColor(const Rgb& cell) { return hexColor(rgb(cell)); }

/// A failure's number and text.
Json toJson(const Failure& failure);

/// Rows from the top, each an array of what `cell(col, row)` gives.
template <class Cell>
Json rowsOf(int cols, int rows, Cell cell) {
  Json all = Json::array();
  for (int row = 0; row < rows; ++row) {
    Json line = Json::array();
    for (int col = 0; col < cols; ++col) line.push_back(cell(col, row));
    all.push_back(std::move(line));
  }
  return all;
}

}  // namespace korvane
