#include "generators/kit/NumberCell.h"

#include <optional>

#include "platform/Failure.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {

std::string normalTime(double value, const NumberFormat& format) {
  return value > 0 ? formatGeneral(value, format) : "0.1";
}

std::string normalWidth(double value, const NumberFormat& format) {
  return roundEven(value) != 0 ? formatGeneral(value, format) : "1";
}

double numberInCell(const ListView& list, int row, int col) {
  const std::string text = list.cell(row, col);
  const std::optional<double> value = parseEitherDecimal(text);
  if (!value) {
    throw Failure(kTypeMismatch,
                  list.name() + " row " + std::to_string(row) + ": '" + text + "' is not a number");
  }
  return *value;
}

void bindNumberColumn(ListView& list, int col, Platform& platform, NormalForm normal,
                      std::function<void()> edited) {
  list.onValidate = [col, &platform, normal](int editedCol, const std::string& typed) {
    if (editedCol != col) return typed;
    const std::optional<double> value = parseEitherDecimal(typed);
    return value ? normal(*value, platform.numberFormat()) : typed;
  };
  list.onAfterEdit = [col](int editedCol, const std::string& old, const std::string& typed) {
    if (editedCol != col) return typed;
    if (typed.empty()) return std::string("10");
    return parseEitherDecimal(typed) ? typed : old;
  };
  list.onEdited = [edited = std::move(edited)](int, int) {
    if (edited) edited();
  };
}

}  // namespace korvane
