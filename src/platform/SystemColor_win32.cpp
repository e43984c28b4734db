#include <windows.h>

#include "platform/Color.h"

namespace korvane {

Color systemColor(std::int32_t number) { return static_cast<Color>(GetSysColor(number)); }

}  // namespace korvane
