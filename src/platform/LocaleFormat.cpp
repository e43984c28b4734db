#include "platform/LocaleFormat.h"

#include <clocale>

namespace korvane {

NumberFormat localeFormat() {
  std::setlocale(LC_NUMERIC, "");
  const bool comma = std::localeconv()->decimal_point[0] == ',';
  std::setlocale(LC_NUMERIC, "C");  // nothing else in the program depends on the environment
  return comma ? NumberFormat{',', '.'} : NumberFormat{'.', ','};
}

}  // namespace korvane
