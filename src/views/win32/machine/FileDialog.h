#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/Platform.h"

namespace korvane::win32 {

/// The system's file dialog above a window: the path that was chosen, nothing if it was cancelled.
std::optional<std::string> chooseFile(const FileQuestion& question, HWND owner);

/// A filter "text|pattern", or several in a row, as the system wants it: a null after each part
/// and after the last.
std::wstring toDialogFilter(const std::string& filter);

}  // namespace korvane::win32
