#include "views/win32/windows/FormWindow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/Controls.h"
#include "views/win32/kinds/Binder.h"
#include "views/win32/machine/Module.h"

namespace korvane::win32 {
namespace {

constexpr int kMarginOfWindow = 11;
constexpr DWORD kCaptionBits = WS_CAPTION;
constexpr UINT kFollowSize = WM_APP + 3;
constexpr UINT kArrange = WM_APP + 4;
constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, of newer systems than our headers' oldest

// A window that belongs to another one needs no button of its own to make it small.
DWORD styleOf(HWND owner) {
  const DWORD plain = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
  return owner == nullptr ? plain | WS_MINIMIZEBOX | WS_MAXIMIZEBOX : plain;
}

MONITORINFO monitorOf(HWND window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info);
  return info;
}

void loadControls() {
  INITCOMMONCONTROLSEX controls{sizeof controls,
                                ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
}

// A window stands over the middle of its owner, as far as the screen allows.
void centre(HWND window, HWND owner) {
  RECT own;
  RECT around;
  GetWindowRect(window, &own);
  GetWindowRect(owner, &around);
  const RECT room = monitorOf(owner).rcWork;
  const auto middle = [](LONG from, LONG to, LONG size, LONG low, LONG high) {
    return std::max(low, std::min((from + to - size) / 2, high - size));
  };
  SetWindowPos(window, nullptr,
               middle(around.left, around.right, own.right - own.left, room.left, room.right),
               middle(around.top, around.bottom, own.bottom - own.top, room.top, room.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CALLBACK setFont(HWND child, LPARAM font) {
  SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
  return TRUE;
}

std::wstring markOf(const Form& form) { return toWide("Korvane." + form.name()); }

}  // namespace

FormWindow::FormWindow(Form& form, Desktop& desktop, EventGate& gate, FormWindow* owner)
    : form_(form), desktop_(desktop), gate_(gate), declaredWidth_(form.width()) {
  const OwnLook look;
  loadControls();
  makeWindow(owner == nullptr ? nullptr : owner->window());
  makeControls();
  form_.onShown = [this] { refresh(); };
  refresh();
  resizeTo(naturalSize());
  if (owner != nullptr) centre(window_, owner->window());
}

// The widgets go while their form still stands, and no event of its end reaches the form.
FormWindow::~FormWindow() {
  form_.onShown = nullptr;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  RemovePropW(window_, markOf(form_).c_str());
  std::vector<const Control*> groups;
  for (auto& [control, widget] : widgets_) {
    if (control->kind() != Kind::Group) widget.reset();
  }
  widgets_.clear();
  DestroyWindow(tips_);
  DestroyWindow(window_);
}

void FormWindow::makeWindow(HWND owner) {
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kFormClass, L"", styleOf(owner), CW_USEDEFAULT,
                            CW_USEDEFAULT, 0, 0, owner, nullptr, moduleHandle(), nullptr);
  scale_ = std::make_unique<Scale>(dpiOf(window_));
  tips_ = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0,
                          0, 0, 0, window_, nullptr, moduleHandle(), nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetPropW(window_, markOf(form_).c_str(), window_);
}

void FormWindow::makeControls() {
  if (form_.surface != nullptr) {
    box_ = std::make_unique<ControlBox>(widgetFor(*form_.surface));
    return;
  }
  for (Control* control : form_.shownControls()) {
    const bool item = control->kind() == Kind::MenuItem;  // may stand in the menus alone
    if (!item || form_.layout().holds(*control)) widgetFor(*control);
  }
  box_ = LayoutBuilder(widgets_, {window_, tips_, *scale_, gate_}).make(form_.layout());
  menus_.emplace(form_, window_, gate_);
}

// A group comes before what is inside it.
Widget& FormWindow::widgetFor(Control& control) {
  std::unique_ptr<Widget>& widget = widgets_[&control];
  if (widget) return *widget;
  const HWND parent = control.group == nullptr ? window_ : widgetFor(*control.group).window();
  widget = korvane::win32::bind(control, {parent, tips_, *scale_, gate_});
  widget->bind();
  return *widget;
}

Widget* FormWindow::widget(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second.get();
}

int FormWindow::margin() const {
  return form_.surface != nullptr ? 0 : scale_->px(kMarginOfWindow);
}

SIZE FormWindow::naturalSize() const {
  const Wish wish = box_->wish();
  return {wish.natural.cx + 2 * margin(), wish.natural.cy + 2 * margin()};
}

SIZE FormWindow::frame() const {
  RECT whole{};
  AdjustWindowRectEx(&whole, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)),
                     GetMenu(window_) != nullptr, WS_EX_CONTROLPARENT);
  return {whole.right - whole.left, whole.bottom - whole.top};
}

void FormWindow::resizeTo(SIZE client) const {
  const RECT screen = monitorOf(window_).rcWork;
  SetWindowPos(window_, nullptr, 0, 0, std::min(client.cx + frame().cx, screen.right - screen.left),
               std::min(client.cy + frame().cy, screen.bottom - screen.top),
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::arrange() {
  waiting_ = false;
  RECT area;
  GetClientRect(window_, &area);
  InflateRect(&area, -margin(), -margin());
  if (box_ && area.right > area.left && area.bottom > area.top) box_->place(area);
}

// A window without a frame covers the whole screen, its border lying outside.
void FormWindow::limitSize(MINMAXINFO& limits) const {
  if (!box_) return;
  const SIZE least = box_->wish().least;
  limits.ptMinTrackSize = {least.cx + 2 * margin() + frame().cx,
                           least.cy + 2 * margin() + frame().cy};
  if (form_.framed) return;
  const MONITORINFO monitor = monitorOf(window_);
  RECT whole = monitor.rcMonitor;
  AdjustWindowRectEx(&whole, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)), FALSE,
                     WS_EX_CONTROLPARENT);
  limits.ptMaxPosition = {whole.left - monitor.rcMonitor.left, whole.top - monitor.rcMonitor.top};
  limits.ptMaxSize = {whole.right - whole.left, whole.bottom - whole.top};
  limits.ptMaxTrackSize = limits.ptMaxSize;
}

void FormWindow::open() {
  const bool before = std::exchange(quiet_, true);
  arrange();
  showFrame();
  ShowWindow(window_, form_.maximized ? SW_SHOWMAXIMIZED : SW_SHOWNOACTIVATE);
  quiet_ = before;
}

void FormWindow::activate() const {
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOWNA);
  SetForegroundWindow(window_);
  SetActiveWindow(window_);
}

void FormWindow::showFrame() const {
  const LONG style = GetWindowLongW(window_, GWL_STYLE);
  const auto bits = static_cast<LONG>(kCaptionBits);
  const LONG wanted = form_.framed ? style | bits : style & ~bits;
  if (wanted == style) return;
  SetWindowLongW(window_, GWL_STYLE, wanted);
  SetWindowPos(window_, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
}

void FormWindow::refresh() {
  setWindowText(window_, toWide(form_.caption()));
  if (form_.visible()) {
    showFrame();
    if ((IsZoomed(window_) != FALSE) != form_.maximized)
      ShowWindow(window_, form_.maximized ? SW_SHOWMAXIMIZED : SW_RESTORE);
  }
  if (form_.width() != declaredWidth_) followSize();
}

// The declared width is in units of another window system: another one means that the window takes
// the size that it had under it, or what its controls ask for. They may change just after it.
void FormWindow::followSize() {
  RECT area;
  GetClientRect(window_, &area);
  sizes_[declaredWidth_] = {area.right, area.bottom};
  declaredWidth_ = form_.width();
  PostMessageW(window_, kFollowSize, 0, 0);
}

// Labels that the layout made get the font of the form, then each control the one of its kind.
// Sizes that the window had are those of the old monitor.
void FormWindow::setDpi(int dpi, const RECT& place) {
  for (auto& [width, size] : sizes_)
    size = {MulDiv(size.cx, dpi, scale_->dpi()), MulDiv(size.cy, dpi, scale_->dpi())};
  scale_->setDpi(dpi);
  EnumChildWindows(window_, setFont, reinterpret_cast<LPARAM>(scale_->font()));
  for (auto& [control, widget] : widgets_) widget->rescale();
  moveWindow(window_, place);
  arrange();
}

// Tab goes round the controls in the order in which they were declared.
void FormWindow::moveFocus(bool back) {
  std::vector<HWND> stops;
  for (const Control* control : form_.shownControls()) {
    const Widget* one = widget(*control);
    if (one != nullptr && one->takesFocus()) stops.push_back(one->window());
  }
  if (form_.surface != nullptr || stops.empty()) return;
  if (back) std::reverse(stops.begin(), stops.end());
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  const auto at = std::find(stops.begin(), stops.end(), GetFocus());
  const bool last = at == stops.end() || at + 1 == stops.end();
  SetFocus(last ? stops.front() : *(at + 1));
}

void FormWindow::activated(bool active) {
  if (!active) {
    focus_ = GetFocus();
  } else if (!quiet_ && form_.visible() && desktop_.active() != &form_.front()) {
    gate_.run([this] { desktop_.activate(form_.front()); });
  }
}

std::optional<LRESULT> FormWindow::personMessage(UINT message, WPARAM w) {
  switch (message) {
    case WM_CLOSE:
      gate_.run([this] { desktop_.close(form_); });
      return 0;
    case WM_ACTIVATE:
      activated(LOWORD(w) != WA_INACTIVE);
      return std::nullopt;
    case WM_SETFOCUS:
      if (IsChild(window_, focus_) && IsWindowVisible(focus_)) {
        SetFocus(focus_);
      } else {
        moveFocus(false);
      }
      return 0;
    case WM_KEYDOWN:
      if (form_.takesKey(static_cast<int>(w))) {
        gate_.run([this, w] { form_.key(static_cast<int>(w)); });
        return 0;
      }
      return menus_ && menus_->press(w) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_LBUTTONDOWN:
      if (form_.onClick) gate_.run([this] { form_.onClick(); });
      return 0;
    default:
      return std::nullopt;
  }
}

std::optional<LRESULT> FormWindow::message(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SIZE:
    case kArrange:
      arrange();
      return 0;
    case kWishChanged:  // by many at once, as a rule
      if (!waiting_) waiting_ = PostMessageW(window_, kArrange, 0, 0) != FALSE;
      return 0;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(l));
      return 0;
    case kMoveFocus:
      moveFocus(w == 1);
      return 0;
    case kFollowSize: {
      const auto known = sizes_.find(declaredWidth_);
      RECT area;
      GetClientRect(window_, &area);
      resizeTo(known == sizes_.end() ? SIZE{naturalSize().cx, area.bottom} : known->second);
      return 0;
    }
    case WM_INITMENUPOPUP:
      if (menus_) menus_->refresh(reinterpret_cast<HMENU>(w));
      return 0;
    case WM_COMMAND:
      if (l == 0 && HIWORD(w) == 0 && menus_ && menus_->run(LOWORD(w))) return 0;
      break;
    case kMenuKey:
      return menus_ && menus_->press(w) ? 1 : 0;
    case kDpiChanged:
      setDpi(HIWORD(w), *reinterpret_cast<const RECT*>(l));
      return 0;
    default:
      break;
  }
  if (const auto answer = Widget::notified(message, w, l)) return answer;
  return personMessage(message, w);
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  try {
    if (self != nullptr) {
      if (const auto answer = self->message(message, w, l)) return *answer;
    }
  } catch (...) {  // nothing is left to tell it with, and it must not reach the message loop
  }
  return DefWindowProcW(window, message, w, l);
}

}  // namespace korvane::win32
