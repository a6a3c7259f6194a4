// A block of wrapped text in one font and colour.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "pages/VoteDrawItem.h"

class VoteTextItem : public VoteDrawItem {
 public:
  // In Tahoma, black.
  VoteTextItem();

  // The height becomes that of the wrapped text, 0 for an empty one. Always true.
  bool Recalc() override;
  bool Paint(HDC dc, RECT clip, int scrollY) override;
  void SetWidth(int width) override { Width = width; }
  void SetTop(int top) override { Top = top; }
  void SetLeft(int left) override { Left = left; }

  void SetText(const JW_String& text) { Text = text; }
  // The font stays the caller's.
  void SetFont(HFONT font) { Font = font; }
  const JW_String& GetText() const { return Text; }

 protected:
  JW_String Text;
  HFONT Font;

 public:
  COLORREF Color = 0;
};
