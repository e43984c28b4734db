#include "hosts/com/Component.h"

namespace korvane {

HMODULE Component::handle = nullptr;
LONG Component::uses_ = 0;

std::wstring Component::path() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(handle, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

}  // namespace korvane
