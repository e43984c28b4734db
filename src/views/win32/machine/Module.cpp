#include "views/win32/machine/Module.h"

#include <map>
#include <mutex>
#include <string>

namespace korvane::win32 {
namespace {

constexpr WORD kStyles = 2;  // the resource Styles.rc: a library's manifest has this number

// DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2, of systems newer than our headers' oldest one.
const auto kPerMonitor = reinterpret_cast<HANDLE>(-4);

using SetDpiContext = HANDLE(WINAPI*)(HANDLE);

SetDpiContext setDpiContext() {
  return systemFunction<SetDpiContext>(L"user32.dll", "SetThreadDpiAwarenessContext");
}

HANDLE openStyles() {
  ACTCTXW context{};
  context.cbSize = sizeof context;
  context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  context.hModule = moduleHandle();
  context.lpResourceName = MAKEINTRESOURCEW(kStyles);
  return CreateActCtxW(&context);
}

// Window classes belong to the process, plug-ins to a thread each.
std::mutex classesMutex;
std::map<std::wstring, int> classUses;

}  // namespace

HINSTANCE moduleHandle() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&moduleHandle), &module);
  return module;
}

OwnLook::OwnLook() : styles_(openStyles()) {
  if (styles_ != INVALID_HANDLE_VALUE) ActivateActCtx(styles_, &cookie_);
  if (const auto set = setDpiContext()) dpiBefore_ = set(kPerMonitor);
}

OwnLook::~OwnLook() {
  if (dpiBefore_ != nullptr) setDpiContext()(dpiBefore_);
  if (styles_ == INVALID_HANDLE_VALUE) return;
  DeactivateActCtx(0, cookie_);
  ReleaseActCtx(styles_);
}

WindowClass::WindowClass(const wchar_t* name, UINT style, WNDPROC procedure) : name_(name) {
  const std::lock_guard lock(classesMutex);
  if (classUses[name_]++ > 0) return;
  WNDCLASSEXW type{};
  type.cbSize = sizeof type;
  type.style = style;
  type.lpfnWndProc = procedure;
  type.hInstance = moduleHandle();
  type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  type.lpszClassName = name_;
  RegisterClassExW(&type);
}

WindowClass::~WindowClass() {
  const std::lock_guard lock(classesMutex);
  if (--classUses[name_] == 0) UnregisterClassW(name_, moduleHandle());
}

}  // namespace korvane::win32
