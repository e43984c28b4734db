#pragma once

#include <windows.h>

#include <string>

namespace korvane {

/// The component as the system sees it: where it is, and whether anything still needs it.
class Component {
 public:
  static HMODULE handle;

  /// Full path of the file.
  static std::wstring path();

  /// True while there is an object or a lock.
  static bool used() { return uses_ != 0; }
  static void lock() { InterlockedIncrement(&uses_); }
  static void unlock() { InterlockedDecrement(&uses_); }

 private:
  static LONG uses_;
};

/// Keeps the component in memory for as long as it exists.
struct ComponentLock {
  ComponentLock() { Component::lock(); }
  ~ComponentLock() { Component::unlock(); }
  ComponentLock(const ComponentLock&) = delete;
  ComponentLock& operator=(const ComponentLock&) = delete;
};

}  // namespace korvane
