#include "views/win32/kinds/CellEditor.h"

#include <utility>

#include "views/win32/kinds/Widget.h"
#include "views/win32/machine/Module.h"

namespace korvane::win32 {

void CellEditor::open(HWND list, const std::wstring& text) {
  close();
  window_ =
      CreateWindowExW(0, L"EDIT", text.c_str(), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL,
                      0, 0, 0, 0, list, nullptr, moduleHandle(), nullptr);
  SetWindowSubclass(window_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
  SendMessageW(window_, EM_SETSEL, 0, -1);
  SetFocus(window_);
}

void CellEditor::place(const RECT& cell, HFONT font) const {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  moveWindow(window_, cell);
}

void CellEditor::close() {
  const HWND window = std::exchange(window_, nullptr);
  if (window == nullptr) return;
  const HWND list = GetParent(window);
  const bool focused = GetFocus() == window;
  RemoveWindowSubclass(window, procedure, 0);
  if (focused) SetFocus(list);
  DestroyWindow(window);
}

void CellEditor::finish(bool taken) {
  const std::string typed = toUtf8(windowText(window_));
  close();
  taken ? onTyped(typed) : onCancelled();
}

bool CellEditor::message(UINT message, WPARAM w) {
  const bool ends = w == VK_RETURN || w == VK_ESCAPE || w == VK_TAB;
  if (message == WM_CHAR) return ends;
  if (message == WM_KILLFOCUS) finish(true);
  if (message == WM_KEYDOWN && ends) finish(w != VK_ESCAPE);
  return message == WM_KILLFOCUS || (message == WM_KEYDOWN && ends);
}

LRESULT CALLBACK CellEditor::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                       DWORD_PTR editor) {
  if (message == WM_GETDLGCODE) return DLGC_WANTALLKEYS | DLGC_HASSETSEL;
  try {
    if (reinterpret_cast<CellEditor*>(editor)->message(message, w)) return 0;
  } catch (...) {  // nothing is left to tell it with, and it must not reach the message loop
  }
  return DefSubclassProc(window, message, w, l);
}

}  // namespace korvane::win32
