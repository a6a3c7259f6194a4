#include "pages/VotePieChart.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>

#include "pages/VoteText.h"
#include "resources/ResourceIds.h"
#include "toolkit/GdiHandles.h"
#include "window/VoteResources.h"

namespace {

constexpr double kPi = 3.14159265;
constexpr int kFontHeight = -12;
constexpr int kLabelHeight = 12;
constexpr int kKeySize = 16;
constexpr int kLegendGap = 18;     // from the pie to the keys
constexpr int kLegendIndent = 22;  // from a key to its text, and from a column to the next
constexpr int kLegendPitch = 19;
constexpr double kLabelReach = 0.8;  // of the way from the centre to the rim
constexpr COLORREF kHotColor = 0xFFFFFF;

HFONT CreateChartFont() {
  LOGFONTW description = {};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description);
  description.lfHeight = kFontHeight;
  return CreateFontIndirectW(&description);
}

// The share of the answers that fell on an option.
double FractionOf(const VoteTally& tally, u32 optionId) {
  return tally.m_nAnswers == 0 ? 0.0 : static_cast<double>(tally.CountOf(optionId)) / tally.m_nAnswers;
}

// Small shares have fewer digits, so that their labels fit on their slices.
JW_String ShareText(double fraction) {
  JW_String text;
  if (fraction < 0.02) {
    text.Format(L"%d", static_cast<int>(fraction * 100));
  } else {
    text.Format(fraction < 0.06 ? L"%.1f" : L"%.2f", fraction * 100);
  }
  text += L"%";
  return text;
}

POINT CentreOf(const RECT& pie) {
  return {(pie.left + pie.right) / 2, (pie.top + pie.bottom) / 2};
}

struct Circle {
  POINT centre;
  double radius;

  POINT At(double angle) const {
    return {static_cast<LONG>(std::cos(angle) * radius) + centre.x,
            static_cast<LONG>(std::sin(angle) * radius) + centre.y};
  }
};

RECT LabelRectOf(const POINT& centre, const POINT& mid, int width) {
  const int x = static_cast<int>((mid.x - centre.x) * kLabelReach + centre.x);
  const int y = static_cast<int>((mid.y - centre.y) * kLabelReach + centre.y);
  return {x - width / 2, y, x + width, y + kLabelHeight};
}

// Lays out the lines of the legend, in as many columns as they need.
class LegendColumns {
 public:
  explicit LegendColumns(const RECT& pie) : m_Pie(pie), m_nX(pie.right + kLegendGap), m_nY(pie.top) {}

  // Gives the slice its place, for a text of `width`.
  void Place(VoteSliceInfo* slice, int width) {
    slice->KeyRect = {m_nX, m_nY, m_nX + kKeySize, m_nY + kKeySize};
    slice->LegendRect = {m_nX + kLegendIndent, m_nY, m_nX + kLegendIndent + width + 1, m_nY + kKeySize};
    m_nColumnWidth = std::max(m_nColumnWidth, width);
    m_nY += kLegendPitch;
    if (m_nY + kKeySize > m_Pie.bottom) {
      m_nY = m_Pie.top;
      m_nX += m_nColumnWidth + kLegendIndent;
      m_nColumnWidth = 0;
    }
  }

 private:
  const RECT& m_Pie;
  LONG m_nX;
  LONG m_nY;
  int m_nColumnWidth = 0;
};

// Whether a slice begins and ends on one ray although it is no full pie: GDI would draw a full disc, over all others.
bool IsTooNarrow(const VoteSliceInfo& slice, const RECT& pie) {
  const POINT centre = CentreOf(pie);
  const POINT start = {slice.Start.x - centre.x, slice.Start.y - centre.y};
  const POINT end = {slice.End.x - centre.x, slice.End.y - centre.y};
  const POINT mid = {slice.Mid.x - centre.x, slice.Mid.y - centre.y};
  return start.x * end.y == start.y * end.x && start.x * end.x + start.y * end.y > 0 &&
         start.x * mid.x + start.y * mid.y > 0;
}

// What is painted the same way for each slice: the same context, at the same scroll position.
class SlicePainter {
 public:
  SlicePainter(HDC dc, int scrollY) : m_hDc(dc), m_nScrollY(scrollY) {}

  void Paint(const VoteSliceInfo& slice, const RECT& pie, COLORREF color) const {
    const OwnedBrush brush(CreateSolidBrush(color));
    const Selection selected(m_hDc, brush.get());
    SetBkMode(m_hDc, OPAQUE);
    if (!IsTooNarrow(slice, pie)) {
      // Counter-clockwise from the first ray to the second.
      Pie(m_hDc, pie.left, pie.top - m_nScrollY, pie.right, pie.bottom - m_nScrollY, slice.End.x,
          slice.End.y - m_nScrollY, slice.Start.x, slice.Start.y - m_nScrollY);
    }
    SetBkMode(m_hDc, TRANSPARENT);
    Text(slice.Label, slice.LabelRect, 0);
    const RECT& key = slice.KeyRect;
    Rectangle(m_hDc, key.left, key.top - m_nScrollY, key.right, key.bottom - m_nScrollY);
    Text(JW_String(&slice.Letter, 1), key, DT_CENTER);
    Text(slice.Legend, slice.LegendRect, 0);
  }

  // One line in the middle of the rectangle's height.
  void Text(const JW_String& text, RECT rect, UINT flags) const {
    OffsetRect(&rect, 0, -m_nScrollY);
    DrawTextW(m_hDc, text, text.GetLength(), &rect, flags | DT_VCENTER | DT_SINGLELINE);
  }

 private:
  HDC m_hDc;
  int m_nScrollY;
};

}  // namespace

VotePieChart::VotePieChart() : Font(CreateChartFont()) {
  if (const VoteResources* const resources = VoteResources::Instance()) {
    std::copy(std::begin(resources->m_Palette), std::end(resources->m_Palette), Colors);
  }
  UpdatePieRect();
}

VotePieChart::~VotePieChart() {
  ClearSlices();
}

bool VotePieChart::Recalc() {
  if (!Item) return false;
  ClearSlices();
  const Circle circle = {CentreOf(PieRect), Height * 0.5};
  LegendColumns legend(PieRect);
  JW_String unit;
  unit.LoadString(IDS_ANSWER_UNIT);
  double angle = 0.0;
  for (int i = 0; i < Item->m_OptionOrder.GetSize(); ++i) {
    const u32 optionId = Item->m_OptionOrder[i];
    const double fraction = FractionOf(Item->m_Tally, optionId);
    if (!(fraction > 0.0)) continue;
    auto* const slice = new (std::nothrow) VoteSliceInfo;
    if (!slice || !Slices.Add(slice)) {
      delete slice;
      return false;
    }
    const double middle = kPi * fraction + angle;
    slice->Start = circle.At(angle);
    slice->Mid = circle.At(middle);
    angle = kPi * fraction + middle;
    slice->End = circle.At(angle);
    slice->OptionID = optionId;
    slice->Letter = static_cast<JW_WChar>(L'A' + i);
    slice->Label = ShareText(fraction);
    slice->LabelRect = LabelRectOf(circle.centre, slice->Mid, MeasureTextWidth(slice->Label, Font.get()));
    slice->Legend.Format(L" %d %s %0.2f%%  ", Item->m_Tally.CountOf(optionId), unit.GetString(), fraction * 100);
    legend.Place(slice, MeasureTextWidth(slice->Legend, Font.get()));
  }
  return true;
}

bool VotePieChart::Paint(HDC dc, RECT clip, int scrollY) {
  if (!IsInView(clip, scrollY)) return false;
  const SavedContext saved(dc);
  const Selection font(dc, Font.get());
  const SlicePainter painter(dc, scrollY);
  if (Slices.IsEmpty()) {
    JW_String text;
    text.LoadString(IDS_NO_ANSWERS);
    SetBkMode(dc, TRANSPARENT);
    painter.Text(text, PieRect, DT_CENTER);
  }
  for (int n = 0; n < Slices.GetSize(); ++n) {
    // By the place among the drawn slices: an option without answers shifts the colours of those after it.
    const bool hot = EqualRect(&Slices[n]->KeyRect, &HotKeyRect);
    painter.Paint(*Slices[n], PieRect, hot ? kHotColor : Colors[n % 16]);
  }
  return true;
}

void VotePieChart::SetTop(int top) {
  Top = top;
  UpdatePieRect();
}

void VotePieChart::SetLeft(int left) {
  Left = left;
  UpdatePieRect();
}

void VotePieChart::SetSize(int size) {
  Size = size;
  UpdatePieRect();
}

bool VotePieChart::HitTest(int x, int y) const {
  return FindKey({x, y}) != nullptr;
}

void VotePieChart::OnMouse(int event, int x, int y) {
  if (event == kMouseOver) {
    Hot = 1;
    if (const VoteSliceInfo* const slice = FindKey({x, y})) HotKeyRect = slice->KeyRect;
  } else if (event == kMouseLeave) {
    Hot = 0;
    HotKeyRect = {};
  } else {
    return;
  }
  Invalidate();
}

const VoteSliceInfo* VotePieChart::FindKey(POINT point) const {
  for (int n = Slices.GetSize() - 1; n >= 0; --n) {
    if (PtInRect(&Slices[n]->KeyRect, point)) return Slices[n];
  }
  return nullptr;
}

void VotePieChart::UpdatePieRect() {
  PieRect = {Left, Top, Left + Size, Top + Size};
}

void VotePieChart::ClearSlices() {
  for (VoteSliceInfo* const slice : Slices) delete slice;
  Slices.RemoveAll();
}
