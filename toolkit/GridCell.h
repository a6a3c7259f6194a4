// One cell of a grid: its text and its looks.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "platform/windows/Windows.h"

struct GridCell {
  // Border, fill and text. The border lies on the rectangle's edges, so that neighbours share a line; the fill and the
  // text stand within. The context comes back as it was.
  void DrawCell(HDC dc, int left, int top, int right, int bottom) const;

  // Where the cell at `cell` would have to end on the right to hold its text, paddings included.
  int NeededRight(HDC dc, const RECT& cell) const;

  bool IsCovered() const { return RowSpan == 0 || ColSpan == 0; }

  int RowSpan = 1;  // 0 is covered by a merged cell
  int ColSpan = 1;
  JW_String Text;
  COLORREF TextColor = 0;
  const HFONT* Font = nullptr;  // null or of a null font: made from the next two for each drawing
  int FontHeight = 14;
  JW_String FontName = JW_W("Arial");
  JW_String SavedText;
  int Spare1 = 0;
  int Spare2 = 0;
  int SavedFontHeight = 14;
  JW_String SavedFontName = JW_W("Arial");
  UINT Format = 0;  // DrawTextW's flags; DT_NOPREFIX is always added
  int PadLeft = 4;
  int PadRight = 4;
  int BkMode = TRANSPARENT;
  COLORREF FillColor = 0xFFFFFF;
  COLORREF BorderColor = 0xDCDCDC;
  int Extra = 0;
  u8 Overflow = 0;  // the text may run over into empty cells to the right
};
