#include <windowsx.h>

#include <algorithm>
#include <vector>

#include "views/win32/kinds/Binder.h"
#include "views/win32/kinds/CellEditor.h"
#include "views/win32/kinds/CellPainting.h"

namespace korvane::win32 {
namespace {

constexpr SIZE kRoomOfList{190, 130};
constexpr SIZE kLeastSize{130, 84};
constexpr int kColumnWidth = 160;  // of one among several

/// A list whose window asks for each cell when it draws it.
class RowsWidget : public Widget {
 public:
  RowsWidget(ListView& list, const Seat& seat) : Widget(list, seat), list_(list) {
    make(WC_LISTVIEWW,
         WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
             LVS_NOSORTHEADER,
         WS_EX_CLIENTEDGE);
    SendMessageW(window(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    editor_.onTyped = [this](const std::string& typed) {
      act([this, typed] { list_.endEdit(typed); });
    };
    editor_.onCancelled = [this] { act([this] { list_.cancelEdit(); }); };
  }

  Wish measure() const override {
    const auto shown = std::count_if(columns_.begin(), columns_.end(),
                                     [](const auto& column) { return column.width > 0; });
    const int columns = shown < 2 ? 0 : static_cast<int>(shown) * scale().px(kColumnWidth);
    return {{scale().px(kLeastSize.cx), scale().px(kLeastSize.cy)},
            {std::max(scale().px(kRoomOfList.cx), columns), scale().px(kRoomOfList.cy)},
            Grow::Wants,
            Grow::Wants};
  }

  void arrange(const RECT& place) override {
    Widget::arrange(place);
    shareWidth();
  }
  void setSizes() override {
    send(WM_SETFONT, reinterpret_cast<WPARAM>(scale().listFont()), TRUE);
    shareWidth();
    if (editor_.isOpen()) editor_.place(editedCell(), scale().listFont());
  }

 protected:
  void show() override {
    showColumns();
    showRows();
    showCenteredRow();
    showEditor();
  }
  std::optional<LRESULT> notify(const NMHDR& header) override;
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l) override;

 private:
  LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(window(), message, w, l);
  }
  void showColumns();
  void showRows() const;
  void showCenteredRow();
  void setState(int row, UINT state, UINT mask) const;
  void showEditor();
  RECT editedCell() const;
  void shareWidth() const;
  void press(POINT at, bool twice);
  void key(int key);
  void giveText(LVITEMW& item) const;

  ListView& list_;
  std::vector<ListView::Column> columns_;
  int centered_ = -1;  // as it was brought to the middle last
  CellEditor editor_;
};

void RowsWidget::showColumns() {
  const auto same = [](const ListView::Column& a, const ListView::Column& b) {
    return a.title == b.title && a.width == b.width;
  };
  if (std::equal(columns_.begin(), columns_.end(), list_.columns().begin(), list_.columns().end(),
                 same))
    return;
  for (std::size_t i = columns_.size(); i > 0; --i) send(LVM_DELETECOLUMN, i - 1);
  columns_ = list_.columns();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::wstring title = toWide(columns_[i].title);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = title.data();
    send(LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  shareWidth();
}

// Each column takes its share, the last visible one what is left over.
void RowsWidget::shareWidth() const {
  RECT area;
  GetClientRect(window(), &area);
  int left = static_cast<int>(area.right);
  const auto shown = [](const ListView::Column& column) { return column.width > 0; };
  const auto last = std::find_if(columns_.rbegin(), columns_.rend(), shown);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool rest = last != columns_.rend() && &*last == &columns_[i];
    const int width = rest ? left : static_cast<int>(columns_[i].width * area.right);
    send(LVM_SETCOLUMNWIDTH, i, width);
    left -= width;
  }
}

void RowsWidget::setState(int row, UINT state, UINT mask) const {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

// The row with the focus and the mark of selection are two things: the mark can be absent.
void RowsWidget::showRows() const {
  if (send(LVM_GETITEMCOUNT) != list_.count()) {
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(list_.count()), LVSICF_NOSCROLL);
    shareWidth();  // a scroll bar may have come or gone
  }
  const auto next = [this](UINT flags) {
    return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), flags));
  };
  if (next(LVNI_SELECTED) != list_.selected()) {
    setState(-1, 0, LVIS_SELECTED);
    if (list_.selected() >= 0) setState(list_.selected(), LVIS_SELECTED, LVIS_SELECTED);
  }
  if (next(LVNI_FOCUSED) != list_.current() && list_.current() >= 0) {
    setState(list_.current(), LVIS_FOCUSED, LVIS_FOCUSED);
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(list_.current()), FALSE);
  }
  InvalidateRect(window(), nullptr, FALSE);
}

// With half a page above it and half a page below it. A cell that is edited stays in sight until it
// is done.
void RowsWidget::showCenteredRow() {
  if (list_.editing()) return;
  if (centered_ == list_.centered() || list_.centered() >= list_.count()) return;
  centered_ = list_.centered();
  if (centered_ < 0) return;
  const int half = static_cast<int>(send(LVM_GETCOUNTPERPAGE)) / 2;
  for (const int row :
       {std::max(centered_ - half, 0), std::min(centered_ + half, list_.count() - 1)})
    send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

// A list that changes under an open editor leaves alone what has been typed.
void RowsWidget::showEditor() {
  if (!list_.editing()) return editor_.close();
  if (editor_.isOpen()) return;
  send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(list_.editRow()), FALSE);
  editor_.open(window(), toWide(list_.cell(list_.editRow(), list_.editCol())));
  editor_.place(editedCell(), scale().listFont());
}

RECT RowsWidget::editedCell() const {
  RECT cell{LVIR_LABEL, list_.editCol(), 0, 0};
  send(LVM_GETSUBITEMRECT, static_cast<WPARAM>(list_.editRow()), reinterpret_cast<LPARAM>(&cell));
  if (list_.editCol() == 0) cell.right = cell.left + static_cast<LONG>(send(LVM_GETCOLUMNWIDTH, 0));
  return cell;
}

void RowsWidget::giveText(LVITEMW& item) const {
  if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0 || item.iItem >= list_.count()) return;
  const std::wstring text = toWide(list_.cell(item.iItem, item.iSubItem));
  lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
}

std::optional<LRESULT> RowsWidget::notify(const NMHDR& header) {
  if (header.code == LVN_GETDISPINFOW) {
    giveText(reinterpret_cast<NMLVDISPINFOW&>(const_cast<NMHDR&>(header)).item);
    return 0;
  }
  if (header.code == NM_CUSTOMDRAW)
    return drawCell(list_, scale(), reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
  return std::nullopt;
}

void RowsWidget::press(POINT at, bool twice) {
  SetFocus(window());
  LVHITTESTINFO hit{};
  hit.pt = at;
  send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const int row = hit.iItem;
  if (row < 0 || row >= list_.count()) return;
  act([&] { twice ? list_.doubleClick(row) : list_.click(row, std::max(0, hit.iSubItem)); });
}

void RowsWidget::key(int key) {
  if (ListView::takesKey(key)) return act([this, key] { list_.key(key); });
  inherited(WM_KEYDOWN, static_cast<WPARAM>(key), 0);
  const auto reached =
      static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  act([this, reached] { list_.reach(reached); });
}

// Presses and keys are answered here: the window's own answers drag rows and search for letters.
std::optional<LRESULT> RowsWidget::message(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      press({GET_X_LPARAM(l), GET_Y_LPARAM(l)}, message == WM_LBUTTONDBLCLK);
      return 0;
    case WM_RBUTTONDOWN:
    case WM_CHAR:
      return 0;
    case WM_KEYDOWN:
      key(static_cast<int>(w));
      return 0;
    case WM_NOTIFY: {
      const UINT code = reinterpret_cast<const NMHDR*>(l)->code;
      if (code == HDN_BEGINTRACKW || code == HDN_BEGINTRACKA) return TRUE;  // widths are declared
      return std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

}  // namespace

std::unique_ptr<Widget> makeWidget(ListView& list, const Seat& seat) {
  return std::make_unique<RowsWidget>(list, seat);
}

}  // namespace korvane::win32
