#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace korvane::win32 {

/// The text box in which a cell of a list is edited in place. It is there from open() to the key or
/// the change of focus that ends it.
class CellEditor {
 public:
  CellEditor() = default;
  ~CellEditor() { close(); }
  CellEditor(const CellEditor&) = delete;
  CellEditor& operator=(const CellEditor&) = delete;

  void open(HWND list, const std::wstring& text);
  /// Puts it over the cell.
  void place(const RECT& cell, HFONT font) const;
  /// Without a word to anyone.
  void close();
  bool isOpen() const { return window_ != nullptr; }
  HWND window() const { return window_; }

  std::function<void(const std::string& typed)> onTyped;  ///< Enter, or another window was chosen
  std::function<void()> onCancelled;                      ///< Escape

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                    DWORD_PTR editor);
  /// Whether the message ends there.
  bool message(UINT message, WPARAM w);
  void finish(bool taken);

  HWND window_ = nullptr;
};

}  // namespace korvane::win32
