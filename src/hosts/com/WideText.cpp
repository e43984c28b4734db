#include "hosts/com/WideText.h"

#include <new>

namespace korvane {

std::string fromBstr(BSTR text) { return toUtf8({text, SysStringLen(text)}); }

BSTR toBstr(std::string_view utf8) {
  const std::wstring wide = toWide(utf8);
  BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

}  // namespace korvane
