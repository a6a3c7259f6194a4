// How a grid paints itself, as a whole and cell by cell.
#include "toolkit/GdiHandles.h"
#include "toolkit/GridCtrl.h"

namespace {

constexpr COLORREF kPageColor = 0xFFFBF2;

}  // namespace

bool GridTableCtrl::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                         DWORD) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_PAINT, &GridTableCtrl::OnPaint) || map.On(WM_ERASEBKGND, &GridTableCtrl::OnEraseBackground) ||
         map.ReflectToChild();
}

LRESULT GridTableCtrl::OnPaint(MessageArgs&) {
  const PaintContext paint(m_hWnd);
  if (!paint.get()) return 0;
  RECT client;
  GetClientRect(m_hWnd, &client);
  const PaintBuffer buffer(paint.get(), client.right, client.bottom);
  if (!buffer.get()) return 0;
  const OwnedBrush page(CreateSolidBrush(kPageColor));
  FillRect(buffer.get(), &client, page.get());
  PaintTable(buffer.get());
  buffer.Present();
  return 0;
}

LRESULT GridTableCtrl::OnEraseBackground(MessageArgs&) {
  return 1;
}

void GridTableCtrl::PaintTable(HDC dc) const {
  for (int row = 0; row < RowCount; ++row) {
    for (int col = 0; col < ColCount;) col = PaintCell(dc, row, col);
  }
}

int GridTableCtrl::PaintCell(HDC dc, int row, int col) const {
  const GridCell* const cell = GetCell(row, col);
  if (cell->IsCovered()) return col + 1;
  RECT rect;
  GetCellRect(&rect, row, col);
  const int next = cell->Overflow ? RunOver(dc, row, col, rect) : col + 1;
  cell->DrawCell(dc, rect.left, rect.top, rect.right, rect.bottom);
  return next;
}

// Widens `rect` over empty cells to the right until the text fits, or a cell has text, or the row ends. Returns the
// column after the last one taken.
int GridTableCtrl::RunOver(HDC dc, int row, int col, RECT& rect) const {
  const GridCell* const cell = GetCell(row, col);
  const int needed = cell->NeededRight(dc, rect);
  int next = col + cell->ColSpan;
  while (rect.right < needed && next < ColCount && GetCell(row, next)->Text.IsEmpty()) {
    rect.right += ColWidths[next];
    ++next;
  }
  return next;
}
