#include "views/win32/machine/FileDialog.h"

#include <commdlg.h>

#include <algorithm>

#include "platform/WideText_win32.h"

namespace korvane::win32 {
namespace {

constexpr std::size_t kLongestPath = 32768;

const wchar_t* orNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

std::wstring toDialogFilter(const std::string& filter) {
  std::wstring parts = toWide(filter);
  std::replace(parts.begin(), parts.end(), L'|', L'\0');
  if (!parts.empty()) parts.append(2, L'\0');
  return parts;
}

// The folder of the program around us stays what it is.
std::optional<std::string> chooseFile(const FileQuestion& question, HWND owner) {
  const bool save = question.purpose == FileQuestion::Purpose::Save;
  const std::wstring title = toWide(question.title);
  const std::wstring filter = toDialogFilter(question.filter);
  const std::wstring folder = toWide(question.initialDirectory);
  const std::wstring extension = toWide(question.defaultExtension);
  std::wstring path(kLongestPath, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = orNull(filter);
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = kLongestPath;
  dialog.lpstrInitialDir = orNull(folder);
  dialog.lpstrTitle = orNull(title);
  dialog.lpstrDefExt = orNull(extension);
  dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                 (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
  const BOOL chosen = save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
  if (!chosen) return std::nullopt;
  return toUtf8(path.c_str());
}

}  // namespace korvane::win32
