#include "pages/VoteText.h"

#include <algorithm>

#include "JW_Base/Include/JW_Array.h"
#include "toolkit/GdiHandles.h"
#include "window/VoteResources.h"

namespace {

// The width of every part of a text, from one look at the font. Without memory, or a device context, all are 0, and
// the text stays on one line.
class PartWidths {
 public:
  PartWidths(HDC dc, const JW_String& text) : m_nLength(text.GetLength()) {
    SIZE size;
    if (m_Ends.SetSize(m_nLength) && m_nLength > 0 &&
        !GetTextExtentExPointW(dc, text, m_nLength, 0, nullptr, &m_Ends[0], &size)) {
      m_Ends.RemoveAll();
    }
  }

  int Length() const { return m_nLength; }
  int Of(int first, int count) const { return EndOf(first + count) - EndOf(first); }

 private:
  int EndOf(int position) const { return position > 0 && !m_Ends.IsEmpty() ? m_Ends[position - 1] : 0; }

  int m_nLength;
  JW_Array<int> m_Ends;  // the right edge of each character
};

// How many characters the line at `first` takes, of a rest that is wider than `available`: the first count that is
// wider, or the exact one. `step` is where the search starts. At least one, so that every search for breaks ends.
int LineLength(const PartWidths& widths, int first, int step, int available) {
  const int rest = widths.Length() - first;
  int count = std::clamp(step, 0, rest);
  const int width = widths.Of(first, count);
  if (width > available) {
    while (count > 0 && widths.Of(first, count) >= available) --count;
    return count + 1;
  }
  if (width < available) {
    do ++count;
    while (count < rest && widths.Of(first, count) <= available);
  }
  return std::max(count, 1);
}

bool SplitsSurrogates(const JW_String& text, int position) {
  return position < text.GetLength() && IS_SURROGATE_PAIR(text[position - 1], text[position]);
}

// The positions where new lines begin. The search wants a font to be selected.
JW_Array<int> FindBreaks(HDC dc, const JW_String& text, int available) {
  JW_Array<int> breaks;
  const PartWidths widths(dc, text);
  const int length = widths.Length();
  // Characters narrower than a pixel count as one pixel wide.
  const int average = std::max(widths.Of(0, length) / length, 1);
  const int step = available / average;
  for (int position = 0; position < length && widths.Of(position, length - position) > available;) {
    position += LineLength(widths, position, step, available);
    if (SplitsSurrogates(text, position)) ++position;
    if (!breaks.Add(position)) break;
  }
  return breaks;
}

JW_String InsertLineEnds(const JW_String& text, const JW_Array<int>& breaks) {
  JW_String wrapped;
  JW_WChar* out = wrapped.GetBufferSetLength(text.GetLength() + 2 * breaks.GetSize());
  if (!out) return text;
  const JW_WChar* const in = text;
  int copied = 0;
  for (const int position : breaks) {
    out = std::copy(in + copied, in + position, out);
    *out++ = L'\r';
    *out++ = L'\n';
    copied = position;
  }
  std::copy(in + copied, in + text.GetLength(), out);
  return wrapped;
}

// The metrics of the selected font; all 0 without a device context.
TEXTMETRICW MetricsOf(HDC dc) {
  TEXTMETRICW metrics = {};
  GetTextMetricsW(dc, &metrics);
  return metrics;
}

// A line may run over by one character, so the widest one is held in reserve.
int AvailableWidth(const TEXTMETRICW& metrics, int width) {
  return width - metrics.tmMaxCharWidth;
}

}  // namespace

HFONT PageFont() {
  const VoteResources* const resources = VoteResources::Instance();
  return resources ? resources->m_hFontTahoma : nullptr;
}

int MeasureTextWidth(const JW_String& text, HFONT font) {
  if (text.IsEmpty()) return 0;
  const WindowContext screen(nullptr);
  const Selection selected(screen.get(), font);
  RECT rect = {};
  DrawTextW(screen.get(), text, text.GetLength(), &rect, DT_CALCRECT | DT_SINGLELINE | DT_VCENTER);
  return rect.right - rect.left;
}

int MeasureWrappedText(HDC dc, const JW_String& text, HFONT font, int width) {
  if (text.IsEmpty()) return 1;
  const Selection selected(dc, font);
  const TEXTMETRICW metrics = MetricsOf(dc);
  const int lines = FindBreaks(dc, text, AvailableWidth(metrics, width)).GetSize() + 1;
  return metrics.tmHeight * lines + metrics.tmInternalLeading;
}

void DrawWrappedText(HDC dc, const RECT& rect, HFONT font, COLORREF color, const JW_String& text) {
  if (text.IsEmpty()) return;
  const SavedContext saved(dc);
  const Selection selected(dc, font);
  const int available = AvailableWidth(MetricsOf(dc), rect.right - rect.left);
  const JW_String wrapped = InsertLineEnds(text, FindBreaks(dc, text, available));
  SetTextColor(dc, color);
  SetBkMode(dc, TRANSPARENT);
  RECT target = rect;
  DrawTextW(dc, wrapped, wrapped.GetLength(), &target, DT_NOPREFIX);
}
