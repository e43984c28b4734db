#include "views/win32/machine/OthersDisabled.h"

#include <string_view>

#include "views/win32/windows/FormWindow.h"

namespace korvane::win32 {
namespace {

bool isForm(HWND window) {
  wchar_t name[32] = {};
  GetClassNameW(window, name, 32);
  return std::wstring_view(name) == kFormClass;
}

BOOL CALLBACK collect(HWND window, LPARAM found) {
  if (isForm(window) && IsWindowVisible(window) && IsWindowEnabled(window))
    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
  return TRUE;
}

}  // namespace

OthersDisabled::OthersDisabled() : owner_(GetActiveWindow()) {
  EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&disabled_));
  for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

OthersDisabled::~OthersDisabled() {
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
  if (IsWindow(owner_)) SetActiveWindow(owner_);
}

}  // namespace korvane::win32
