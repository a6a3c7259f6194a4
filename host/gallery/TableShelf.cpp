#include "host/gallery/TableShelf.h"

#include <string>

#include "toolkit/ListViewSorter.h"
#include "window/VoteResources.h"

namespace {

constexpr int kRows = 6;
constexpr int kColumns = 3;
constexpr int kCountColumn = 1;
constexpr COLORREF kHeadFill = RGB(0xD4, 0xDD, 0xF4);
constexpr COLORREF kHeadText = RGB(0x23, 0x3D, 0x7A);
constexpr COLORREF kLine = RGB(0xAD, 0xBD, 0xE4);

}  // namespace

void TableShelf::CreateGrid(HWND parent, const GalleryTexts& texts, const RECT& rect) {
  GridCell& cell = m_Grid.GetDefaultCell();
  if (const VoteResources* const resources = VoteResources::Instance()) cell.Font = &resources->m_hFontNormal;
  cell.BorderColor = kLine;
  cell.TextColor = kHeadText;
  m_Grid.SetRowCount(kRows);
  m_Grid.SetColCount(kColumns);
  const int width = rect.right - rect.left;
  m_Grid.SetColWidth(0, width - 2 * (width / 4));
  m_Grid.SetColWidth(1, width / 4);
  m_Grid.SetColWidth(2, width / 4);
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const UINT side = row == 0 ? DT_CENTER : column == 0 ? DT_LEFT : DT_RIGHT;
      m_Grid.SetCellFormat(row, column, DT_SINGLELINE | DT_VCENTER | side);
      if (row < 2) m_Grid.SetCellFillColor(row, column, kHeadFill);
      if (texts.gridCells[row][column]) m_Grid.SetCellText(row, column, texts.gridCells[row][column]);
    }
  }
  m_Grid.MergeCells(0, 0, 0, kColumns - 1);
  m_Grid.MergeCells(kRows - 1, 1, kRows - 1, kColumns - 1);
  m_Grid.Create(parent, &rect, nullptr, WS_CHILD | WS_VISIBLE);
}

void TableShelf::CreateList(HWND parent, const GalleryTexts& texts, const RECT& rect) {
  m_hList = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, rect.left,
                            rect.top, rect.right - rect.left, rect.bottom - rect.top, parent,
                            reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kListId)), nullptr, nullptr);
  ListView_SetExtendedListViewStyle(m_hList, LVS_EX_FULLROWSELECT);
  if (const VoteResources* const resources = VoteResources::Instance()) {
    SendMessageW(m_hList, WM_SETFONT, reinterpret_cast<WPARAM>(resources->m_hFontNormal), 0);
  }
  const int width = rect.right - rect.left;
  for (int column = 0; column < 2; ++column) {
    std::wstring text = texts.listColumns[column];
    LVCOLUMNW info = {};
    info.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    info.fmt = column == kCountColumn ? LVCFMT_RIGHT : LVCFMT_LEFT;
    info.cx = column == kCountColumn ? 2 * width / 5 : width - 2 * width / 5;
    info.pszText = text.data();
    ListView_InsertColumn(m_hList, column, &info);
  }
  int row = 0;
  for (const CandidateTexts& candidate : texts.candidates) {
    std::wstring name = candidate.name;
    std::wstring count = candidate.answers;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = row++;
    item.lParam = row;  // rows without data don't sort
    item.pszText = name.data();
    ListView_InsertItem(m_hList, &item);
    ListView_SetItemText(m_hList, item.iItem, kCountColumn, count.data());
  }
  SortBy(kCountColumn);
  SortBy(kCountColumn);
}

void TableShelf::SortBy(int column) {
  m_bAscending = column != m_nSorted || !m_bAscending;
  m_nSorted = column;
  ListViewSorter(&m_hList, column, column == kCountColumn).Sort(m_bAscending);
  const HWND header = ListView_GetHeader(m_hList);
  for (int i = 0; i < 2; ++i) {
    HDITEMW item = {};
    item.mask = HDI_FORMAT;
    item.fmt = HDF_STRING | (i == kCountColumn ? HDF_RIGHT : HDF_LEFT);
    if (i == column) item.fmt |= m_bAscending ? HDF_SORTUP : HDF_SORTDOWN;
    Header_SetItem(header, i, &item);
  }
}
