#include "toolkit/GridCell.h"

#include "toolkit/GdiHandles.h"

namespace {

// The font of a cell, selected into a context for as long as this lives.
class CellFont {
 public:
  CellFont(HDC dc, const GridCell& cell)
      : m_Made(HasFont(cell) ? OwnedFont() : Make(cell)), m_Selection(dc, HasFont(cell) ? *cell.Font : m_Made.get()) {}

 private:
  static bool HasFont(const GridCell& cell) { return cell.Font && *cell.Font; }
  static OwnedFont Make(const GridCell& cell) {
    return OwnedFont(CreateFontW(cell.FontHeight, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                 OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FF_SWISS, cell.FontName));
  }

  OwnedFont m_Made;
  Selection m_Selection;
};

void DrawBorder(HDC dc, const RECT& rect, COLORREF color) {
  const OwnedPen pen(CreatePen(PS_SOLID, 1, color));
  const Selection selection(dc, pen.get());
  MoveToEx(dc, rect.left, rect.top, nullptr);
  LineTo(dc, rect.right, rect.top);
  LineTo(dc, rect.right, rect.bottom);
  LineTo(dc, rect.left, rect.bottom);
  LineTo(dc, rect.left, rect.top);
}

}  // namespace

void GridCell::DrawCell(HDC dc, int left, int top, int right, int bottom) const {
  DrawBorder(dc, {left, top, right, bottom}, BorderColor);

  RECT rect = {left + 1, top + 1, right, bottom};
  const OwnedBrush brush(CreateSolidBrush(FillColor));
  FillRect(dc, &rect, brush.get());

  if (Text.IsEmpty()) return;
  const SavedContext saved(dc);
  SetTextColor(dc, TextColor);
  SetBkMode(dc, BkMode);
  const CellFont font(dc, *this);
  rect.left += PadLeft;
  rect.right -= PadRight;
  DrawTextW(dc, Text, Text.GetLength(), &rect, Format | DT_NOPREFIX);
}

int GridCell::NeededRight(HDC dc, const RECT& cell) const {
  const CellFont font(dc, *this);
  RECT rect = {cell.left + 1 + PadLeft, cell.top + 1, cell.right - PadRight, cell.bottom};
  DrawTextW(dc, Text, Text.GetLength(), &rect, Format | DT_NOPREFIX | DT_CALCRECT);
  return rect.right + PadRight;
}
