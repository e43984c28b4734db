#pragma once

#include <windows.h>

namespace korvane::win32 {

/// The program or library that this code is part of.
HINSTANCE moduleHandle();

/// While it exists, windows are made with the system's visual styles, and scaled by ourselves on
/// each monitor, where the system can do that. The program around us has settings of its own.
class OwnLook {
 public:
  OwnLook();
  ~OwnLook();
  OwnLook(const OwnLook&) = delete;
  OwnLook& operator=(const OwnLook&) = delete;

 private:
  HANDLE styles_;
  ULONG_PTR cookie_ = 0;
  HANDLE dpiBefore_ = nullptr;
};

/// A window class of ours; it is registered while there is one that uses it.
class WindowClass {
 public:
  /// The name must be a literal.
  WindowClass(const wchar_t* name, UINT style, WNDPROC procedure);
  ~WindowClass();
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;

 private:
  const wchar_t* name_;
};

/// A function of a system library by name, nullptr where the system is too old for it.
template <class Function>
Function systemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace korvane::win32
