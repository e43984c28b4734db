#pragma once

#include <functional>
#include <string>

#include "platform/ListView.h"
#include "platform/Platform.h"

namespace korvane {

/// The text that a number typed into a cell is written back as.
using NormalForm = std::string (*)(double value, const NumberFormat& format);

/// A time in seconds: in the locale's number form if it is above 0, else "0.1".
std::string normalTime(double value, const NumberFormat& format);
/// A width: in the locale's number form if it rounds to another integer than 0, else "1".
std::string normalWidth(double value, const NumberFormat& format);

/// The number in a cell, with a comma or a point as decimal separator. kTypeMismatch if there is
/// none.
double numberInCell(const ListView& list, int row, int col);

/// Says how the in-place editor of a column of numbers closes. A number goes through `normal`; an
/// empty text becomes "10", any other text that is no number gives way to the old one. The other
/// columns take what is typed. `edited` runs after each edit.
void bindNumberColumn(ListView& list, int col, Platform& platform, NormalForm normal,
                      std::function<void()> edited);

}  // namespace korvane
