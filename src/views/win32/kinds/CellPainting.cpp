#include "views/win32/kinds/CellPainting.h"

#include <algorithm>

#include "views/win32/kinds/Painting.h"

namespace korvane::win32 {
namespace {

constexpr double kLeastContrast = 2;  // below it a coloured text gets a plate behind it
constexpr int kSide = 6;              // between the edge of a cell and its text
constexpr int kPlate = 3;             // of the plate beyond the text

bool colored(const ListView& list, int col) {
  const auto index = static_cast<std::size_t>(col);
  return index < list.columns().size() && list.columns()[index].colored;
}

RECT cellRect(HWND window, int row, int col) {
  RECT cell{LVIR_BOUNDS, col, 0, 0};
  SendMessageW(window, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&cell));
  if (col == 0)
    cell.right = cell.left + static_cast<LONG>(SendMessageW(window, LVM_GETCOLUMNWIDTH, 0, 0));
  return cell;
}

void drawColored(const ListView& list, const Scale& scale, const NMLVCUSTOMDRAW& stage) {
  const auto row = static_cast<int>(stage.nmcd.dwItemSpec);
  const HDC target = stage.nmcd.hdc;
  const COLORREF ground = GetSysColor(list.row(row).selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
  const COLORREF ink = toColorRef(list.row(row).color);
  const std::wstring text = toWide(list.cell(row, stage.iSubItem));
  RECT cell = cellRect(stage.nmcd.hdr.hwndFrom, row, stage.iSubItem);
  fillRect(target, cell, ground);
  InflateRect(&cell, -scale.px(kSide), 0);
  const HGDIOBJ before = SelectObject(target, scale.listBold());
  if (contrast(static_cast<Color>(ink), static_cast<Color>(ground)) < kLeastContrast) {
    RECT plate = cell;
    SIZE size;
    GetTextExtentPoint32W(target, text.c_str(), static_cast<int>(text.size()), &size);
    plate.right = std::min(cell.right, cell.left + size.cx);
    InflateRect(&plate, scale.px(kPlate), -1);
    fillRect(target, plate, toColorRef(inkOn(list.row(row).color)));
  }
  SetBkMode(target, TRANSPARENT);
  SetTextColor(target, ink);
  DrawTextW(target, text.c_str(), static_cast<int>(text.size()), &cell,
            DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(target, before);
}

}  // namespace

LRESULT drawCell(const ListView& list, const Scale& scale, const NMLVCUSTOMDRAW& stage) {
  constexpr DWORD kCell = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
  if (stage.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (stage.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYSUBITEMDRAW;
  if (stage.nmcd.dwDrawStage != kCell) return CDRF_DODEFAULT;
  if (static_cast<int>(stage.nmcd.dwItemSpec) >= list.count()) return CDRF_DODEFAULT;
  if (!colored(list, stage.iSubItem)) return CDRF_DODEFAULT;
  drawColored(list, scale, stage);
  return CDRF_SKIPDEFAULT;
}

}  // namespace korvane::win32
