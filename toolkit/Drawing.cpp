#include "toolkit/GdiHandles.h"

void DrawBitmapInRect(HBITMAP bitmap, HDC dc, const RECT& rect, bool stretch) {
  BITMAP size = {};
  if (!bitmap || !GetObjectW(bitmap, sizeof(size), &size)) return;
  const MemoryContext source(dc);
  if (!source.get()) return;
  SetMapMode(source.get(), GetMapMode(dc));
  const Selection selected(source.get(), bitmap);
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  if (stretch) {
    const int oldMode = SetStretchBltMode(dc, HALFTONE);
    StretchBlt(dc, rect.left, rect.top, width, height, source.get(), 0, 0, size.bmWidth, size.bmHeight, SRCCOPY);
    SetStretchBltMode(dc, oldMode);
  } else {
    BitBlt(dc, rect.left + (width - size.bmWidth) / 2, rect.top + (height - size.bmHeight) / 2, size.bmWidth,
           size.bmHeight, source.get(), 0, 0, SRCCOPY);
  }
}
