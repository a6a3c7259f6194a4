#include "pages/VoteTextItem.h"

#include "pages/VoteText.h"
#include "toolkit/GdiHandles.h"

VoteTextItem::VoteTextItem() : Font(PageFont()) {}

bool VoteTextItem::Recalc() {
  if (Text.IsEmpty()) {
    Height = 0;
  } else {
    const WindowContext context(Owner);
    Height = MeasureWrappedText(context.get(), Text, Font, Width);
  }
  return true;
}

bool VoteTextItem::Paint(HDC dc, RECT clip, int scrollY) {
  if (!IsInView(clip, scrollY)) return false;
  DrawWrappedText(dc, ClientBounds(scrollY), Font, Color, Text);
  return true;
}
