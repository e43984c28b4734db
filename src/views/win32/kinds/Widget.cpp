#include "views/win32/kinds/Widget.h"

#include "views/win32/machine/Module.h"

namespace korvane::win32 {
namespace {

constexpr const wchar_t* kWidget = L"Korvane.Widget";

HWND formOf(HWND window) { return GetAncestor(window, GA_ROOT); }

// The keys that a window must not see as characters, or it would sound the bell.
bool isSilent(WPARAM character) { return character == VK_TAB; }

}  // namespace

bool Wish::operator==(const Wish& other) const {
  const auto same = [](const SIZE& a, const SIZE& b) { return a.cx == b.cx && a.cy == b.cy; };
  return same(least, other.least) && same(natural, other.natural) && growX == other.growX &&
         growY == other.growY;
}

Widget::Widget(Control& control, const Seat& seat) : control_(control), seat_(seat) {}

Widget::~Widget() {
  control_.onShown = nullptr;
  RemoveWindowSubclass(window_, procedure, 0);
  RemovePropW(window_, kWidget);
  RemovePropW(window_, toWide("Korvane." + control_.name()).c_str());
  DestroyWindow(window_);
}

void Widget::make(const wchar_t* type, DWORD style, DWORD extended) {
  window_ = CreateWindowExW(extended, type, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                            seat_.parent, nullptr, moduleHandle(), nullptr);
  SetPropW(window_, kWidget, this);
  SetWindowSubclass(window_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
  // By this a script on the machine finds the window of a control.
  SetPropW(window_, toWide("Korvane." + control_.name()).c_str(), window_);
}

HWND Widget::makeText(const std::wstring& text, DWORD style) const {
  const HWND made = CreateWindowExW(0, L"STATIC", text.c_str(), WS_CHILD | SS_NOPREFIX | style, 0,
                                    0, 0, 0, seat_.parent, nullptr, moduleHandle(), nullptr);
  SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(scale().font()), FALSE);
  return made;
}

void Widget::bind() {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = seat_.parent;
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = const_cast<LPWSTR>(tip_.c_str());
  SendMessageW(seat_.tips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  rescale();
  control_.onShown = [this] { refresh(); };
  refresh();
}

void Widget::setTip() {
  const std::wstring tip = toWide(control_.look().toolTip);
  if (tip == tip_) return;
  tip_ = tip;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = seat_.parent;
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = tip_.data();
  SendMessageW(seat_.tips, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

void Widget::refresh() {
  setTip();
  show();
  showLook();
  const Wish wanted = measure();
  if (wanted == wish_) return;
  wish_ = wanted;
  SendMessageW(formOf(window_), kWishChanged, 0, 0);
}

// A window that goes or is disabled gives the focus on.
void Widget::showLook() {
  const Look& look = control_.look();
  const bool visible = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (visible == look.visible && (IsWindowEnabled(window_) != FALSE) == look.enabled) return;
  const bool goes = GetFocus() == window_ && !(look.visible && look.enabled);
  EnableWindow(window_, look.enabled);
  ShowWindow(window_, look.visible ? SW_SHOWNA : SW_HIDE);
  if (goes) SendMessageW(formOf(window_), kMoveFocus, 0, 0);
  if (visible != look.visible) SendMessageW(formOf(window_), kWishChanged, 0, 0);
}

void Widget::place(const RECT& place) {
  if (EqualRect(&place, &place_)) return;
  place_ = place;
  arrange(place);
}

void Widget::arrange(const RECT& place) { moveWindow(window_, place); }

void Widget::rescale() {
  place_ = {};
  setSizes();
  wish_ = measure();
}

void Widget::setSizes() {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(scale().font()), TRUE);
}

bool Widget::takesFocus() const {
  return (GetWindowLongW(window_, GWL_STYLE) & WS_TABSTOP) != 0 && IsWindowVisible(window_) &&
         IsWindowEnabled(window_);
}

void Widget::act(const std::function<void()>& event) {
  seat_.gate.run(event);
  if (control_.onShown) control_.onShown();
}

LRESULT Widget::inherited(UINT message, WPARAM w, LPARAM l) const {
  return DefSubclassProc(window_, message, w, l);
}

Widget* Widget::of(HWND window) { return static_cast<Widget*>(GetPropW(window, kWidget)); }

std::optional<LRESULT> Widget::notified(UINT message, WPARAM w, LPARAM l) {
  const auto sender = [&]() -> Widget* {
    switch (message) {
      case WM_COMMAND:
      case WM_HSCROLL:
      case WM_VSCROLL:
        return l == 0 ? nullptr : of(reinterpret_cast<HWND>(l));
      case WM_NOTIFY:
        return of(reinterpret_cast<const NMHDR*>(l)->hwndFrom);
      case WM_DRAWITEM:
        return of(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem);
      default:
        return nullptr;
    }
  };
  Widget* widget = sender();
  if (widget == nullptr) return std::nullopt;
  if (message == WM_NOTIFY) return widget->notify(*reinterpret_cast<const NMHDR*>(l));
  if (message == WM_COMMAND) {
    widget->command(HIWORD(w));
  } else if (message == WM_DRAWITEM) {
    widget->draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
  } else {
    widget->scrolled();
  }
  return 0;
}

// The message loop belongs to the program around us, which knows nothing of dialog keys.
std::optional<LRESULT> Widget::key(UINT message, WPARAM w) {
  if (message == WM_CHAR && isSilent(w)) return 0;
  if (message == WM_KEYDOWN && w == VK_TAB) {
    SendMessageW(formOf(window_), kMoveFocus, GetKeyState(VK_SHIFT) < 0 ? 1 : 0, 0);
    return 0;
  }
  return std::nullopt;
}

std::optional<LRESULT> Widget::message(UINT, WPARAM, LPARAM) { return std::nullopt; }

LRESULT CALLBACK Widget::procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                   DWORD_PTR widget) {
  auto& self = *reinterpret_cast<Widget*>(widget);
  try {
    if (const auto answer = self.key(message, w)) return *answer;
    if (const auto answer = self.message(message, w, l)) return *answer;
    if (message == WM_KEYDOWN && SendMessageW(formOf(window), kMenuKey, w, 0) != 0) return 0;
  } catch (...) {  // nothing is left to tell it with, and it must not reach the message loop
  }
  return DefSubclassProc(window, message, w, l);
}

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void setWindowText(HWND window, const std::wstring& text) {
  if (windowText(window) != text) SetWindowTextW(window, text.c_str());
}

void moveWindow(HWND window, const RECT& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace korvane::win32
