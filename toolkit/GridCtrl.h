// A light table that only displays: rows and columns of cells with merged areas, and text that may run over into empty
// neighbours. No selection, no editing, no scroll bars.
//
// Operations on a row, a column or a cell outside the table do nothing and return -1 or null where they return
// something. Only SetCellText repaints; the owner invalidates the window after other changes.
#pragma once

#include "JW_Base/Include/JW_Array.h"
#include "toolkit/GridCell.h"
#include "toolkit/WindowBase.h"

class GridTableCtrl : public RegisteredWindow<GridTableCtrl> {
 public:
  static constexpr int kMaxRows = 256;
  static constexpr int kMaxCols = 128;

  explicit GridTableCtrl(int rows = 0, int cols = 0);
  ~GridTableCtrl() override;

  static WindowClassInfo& WindowClass();

  // 0, or -1 with the table unchanged. The rows that stand now are tested against the limit, and not the new count: one
  // call can go beyond it, and none succeeds after that. New cells are copies of the default cell.
  int SetRowCount(int count);
  int SetColCount(int count);
  int GetRowCount() const { return RowCount; }
  int GetColCount() const { return ColCount; }

  // Makes one cell of the range, of which the first cell is drawn. The covered cells keep their contents. 0, or -1 if
  // an index is outside the table or a first one exceeds the last.
  int MergeCells(int row0, int col0, int row1, int col1);

  void SetRowHeight(int row, int height);
  void SetColWidth(int col, int width);
  // The sum over the range, with both ends; -1 for a bad range, as above.
  int GetRowsHeight(int row0, int row1) const;
  int GetColsWidth(int col0, int col1) const;

  // The rectangle of a cell with its span. In row 0 and in column 0 it begins at -1: that is what the sum over no rows
  // gives, and the pixel that a cell's contents stand within its border brings them to 0.
  int GetCellRect(RECT* rect, int row, int col) const;

  GridCell* GetCell(int row, int col);
  const GridCell* GetCell(int row, int col) const;
  // What a new cell is a copy of.
  GridCell& GetDefaultCell() { return DefaultCell; }

  // Repaints the cell at once, without waiting for a paint message.
  int SetCellText(int row, int col, const JW_String& text);
  JW_String GetCellText(int row, int col) const;
  int SetCellFormat(int row, int col, UINT format);
  int SetCellTextColor(int row, int col, COLORREF color);
  int SetCellFillColor(int row, int col, COLORREF color);
  int SetCellBorderColor(int row, int col, COLORREF color);

  void PaintTable(HDC dc) const;

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnEraseBackground(MessageArgs& args);

  JW_Array<GridCell> Cells;  // row by row
  JW_Array<int> RowHeights;
  JW_Array<int> ColWidths;
  int RowCount = 0;
  int ColCount = 0;
  int Spare1 = 0;
  int Spare2 = 0;
  GridCell DefaultCell;
  GridTableCtrl* Self = this;
  int DefaultRowHeight = 20;
  int DefaultColWidth = 80;

 private:
  void FillNewCells(int row0, int row1, int col0, int col1);
  // Draws a cell unless it is covered; returns the next column to draw.
  int PaintCell(HDC dc, int row, int col) const;
  int RunOver(HDC dc, int row, int col, RECT& rect) const;
};
