#include "toolkit/GridCtrl.h"

#include <utility>

#include "toolkit/GdiHandles.h"

namespace {

// Growing doubles the capacity or takes what is needed, if that is more. Shrinking gives memory back only from half the
// capacity on. False with the array unchanged if there is no memory to grow.
template <class T>
bool Resize(JW_Array<T>& array, int64_t size) {
  if (size > INT32_MAX) return false;
  const int count = static_cast<int>(size);
  JW_Array<T> smaller;
  if (count > array.GetCapacity() / 2 || !smaller.SetSize(count)) return array.SetSize(count, array.GetCapacity());
  for (int i = 0; i < count && i < array.GetSize(); ++i) smaller[i] = std::move(array[i]);
  array = std::move(smaller);
  return true;
}

bool IsRange(int first, int last, int count) {
  return first >= 0 && first <= last && last < count;
}

int Sum(const JW_Array<int>& sizes, int first, int last) {
  if (!IsRange(first, last, sizes.GetSize())) return -1;
  int sum = 0;
  for (int i = first; i <= last; ++i) sum += sizes[i];
  return sum;
}

}  // namespace

GridTableCtrl::GridTableCtrl(int rows, int cols) {
  SetRowCount(rows);
  SetColCount(cols);
}

GridTableCtrl::~GridTableCtrl() {
  // While the window lives its procedure still reaches this class.
  DestroyWindow();
}

WindowClassInfo& GridTableCtrl::WindowClass() {
  static WindowClassInfo info = DescribeWindowClass(L"GridTableCtrl", CS_DBLCLKS, COLOR_WINDOW + 1);
  return info;
}

int GridTableCtrl::SetRowCount(int count) {
  if (RowCount > kMaxRows || count < 0) return -1;
  if (count == RowCount) return 0;
  const int old = RowCount;
  if (!Resize(RowHeights, count)) return -1;
  if (!Resize(Cells, static_cast<int64_t>(count) * ColCount)) {
    RowHeights.SetSize(old);
    return -1;
  }
  RowCount = count;
  for (int row = old; row < count; ++row) RowHeights[row] = DefaultRowHeight;
  FillNewCells(old, count, 0, ColCount);
  return 0;
}

int GridTableCtrl::SetColCount(int count) {
  if (count < 0 || count > kMaxCols) return -1;
  if (count == ColCount) return 0;
  const int old = ColCount;
  if (!Resize(ColWidths, count)) return -1;
  if (count < old) {
    // Rows move together, the first one first, before their room gets smaller.
    for (int row = 1; row < RowCount; ++row) {
      for (int col = 0; col < count; ++col) std::swap(Cells[row * count + col], Cells[row * old + col]);
    }
    Resize(Cells, static_cast<int64_t>(RowCount) * count);
  } else if (!Resize(Cells, static_cast<int64_t>(RowCount) * count)) {
    ColWidths.SetSize(old);
    return -1;
  } else {
    for (int row = RowCount - 1; row > 0; --row) {
      for (int col = old - 1; col >= 0; --col) std::swap(Cells[row * count + col], Cells[row * old + col]);
    }
  }
  ColCount = count;
  for (int col = old; col < count; ++col) ColWidths[col] = DefaultColWidth;
  FillNewCells(0, RowCount, old, count);
  return 0;
}

void GridTableCtrl::FillNewCells(int row0, int row1, int col0, int col1) {
  for (int row = row0; row < row1; ++row) {
    for (int col = col0; col < col1; ++col) {
      GridCell& cell = Cells[row * ColCount + col];
      cell = DefaultCell;
      cell.RowSpan = cell.ColSpan = 1;
    }
  }
}

int GridTableCtrl::MergeCells(int row0, int col0, int row1, int col1) {
  if (!IsRange(row0, row1, RowCount) || !IsRange(col0, col1, ColCount)) return -1;
  for (int row = row0; row <= row1; ++row) {
    for (int col = col0; col <= col1; ++col) {
      GridCell& cell = Cells[row * ColCount + col];
      cell.RowSpan = cell.ColSpan = 0;
    }
  }
  GridCell& first = Cells[row0 * ColCount + col0];
  first.RowSpan = row1 - row0 + 1;
  first.ColSpan = col1 - col0 + 1;
  return 0;
}

void GridTableCtrl::SetRowHeight(int row, int height) {
  if (IsRange(row, row, RowCount)) RowHeights[row] = height;
}

void GridTableCtrl::SetColWidth(int col, int width) {
  if (IsRange(col, col, ColCount)) ColWidths[col] = width;
}

int GridTableCtrl::GetRowsHeight(int row0, int row1) const {
  return Sum(RowHeights, row0, row1);
}

int GridTableCtrl::GetColsWidth(int col0, int col1) const {
  return Sum(ColWidths, col0, col1);
}

int GridTableCtrl::GetCellRect(RECT* rect, int row, int col) const {
  const GridCell* const cell = GetCell(row, col);
  if (!cell) {
    SetRectEmpty(rect);
    return -1;
  }
  rect->left = GetColsWidth(0, col - 1);
  rect->top = GetRowsHeight(0, row - 1);
  rect->right = rect->left + GetColsWidth(col, col + cell->ColSpan - 1);
  rect->bottom = rect->top + GetRowsHeight(row, row + cell->RowSpan - 1);
  return 0;
}

GridCell* GridTableCtrl::GetCell(int row, int col) {
  return IsRange(row, row, RowCount) && IsRange(col, col, ColCount) ? &Cells[row * ColCount + col] : nullptr;
}

const GridCell* GridTableCtrl::GetCell(int row, int col) const {
  return IsRange(row, row, RowCount) && IsRange(col, col, ColCount) ? &Cells[row * ColCount + col] : nullptr;
}

int GridTableCtrl::SetCellText(int row, int col, const JW_String& text) {
  GridCell* const cell = GetCell(row, col);
  if (!cell) return -1;
  cell->Text = text;
  if (!m_hWnd) return 0;
  const WindowContext context(m_hWnd);
  if (context.get()) PaintCell(context.get(), row, col);
  return 0;
}

JW_String GridTableCtrl::GetCellText(int row, int col) const {
  const GridCell* const cell = GetCell(row, col);
  return cell ? cell->Text : JW_String();
}

int GridTableCtrl::SetCellFormat(int row, int col, UINT format) {
  GridCell* const cell = GetCell(row, col);
  if (!cell) return -1;
  cell->Format = format;
  return 0;
}

int GridTableCtrl::SetCellTextColor(int row, int col, COLORREF color) {
  GridCell* const cell = GetCell(row, col);
  if (!cell) return -1;
  cell->TextColor = color;
  return 0;
}

int GridTableCtrl::SetCellFillColor(int row, int col, COLORREF color) {
  GridCell* const cell = GetCell(row, col);
  if (!cell) return -1;
  cell->FillColor = color;
  return 0;
}

int GridTableCtrl::SetCellBorderColor(int row, int col, COLORREF color) {
  GridCell* const cell = GetCell(row, col);
  if (!cell) return -1;
  cell->BorderColor = color;
  return 0;
}
