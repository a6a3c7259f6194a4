// The looks of BitmapButton.
#include "toolkit/BitmapButton.h"

namespace {

constexpr int kCaptionLength = 64;
constexpr int kMultiLineTop = 4;

}  // namespace

LRESULT BitmapButton::OnPaint(MessageArgs& args) {
  if (const HDC given = reinterpret_cast<HDC>(args.WParam)) {
    Paint(given);
  } else {
    const PaintContext paint(m_hWnd);
    if (paint.get()) Paint(paint.get());
  }
  return 0;
}

void BitmapButton::Paint(HDC dc) {
  const SavedContext saved(dc);
  RECT client;
  GetClientRect(m_hWnd, &client);
  DrawImage(dc, ChooseLook());
  DrawEdges(dc, client);
  if (!Is(kHover) && Is(kFocused)) {
    RECT focus = client;
    InflateRect(&focus, -2 * GetSystemMetrics(SM_CXEDGE), -2 * GetSystemMetrics(SM_CYEDGE));
    DrawFocusRect(dc, &focus);
  }
  DrawCaption(dc, client);
}

// The image of the present state; the caption's colour goes into TextColor. The colour follows the state even where
// the image has to fall back.
int BitmapButton::ChooseLook() {
  int image = kNoImage;
  TextColor = ColorNormal;
  if (Is(kPressed) || Checked) {
    image = ImagePushed;
    TextColor = ColorPressed;
  } else if (IsActive()) {
    image = ImageHover;
    TextColor = ColorHover;
  } else if (!IsWindowEnabled(m_hWnd)) {
    image = ImageDisabled;
    TextColor = ColorDisabled;
  }
  if (image != kNoImage) return image;
  return Checked && ImageHover != kNoImage ? ImageHover : ImageNormal;
}

void BitmapButton::DrawImage(HDC dc, int image) const {
  if (!ImageList || image == kNoImage) return;
  const bool moves = Is(kPressed) && (Is(kSingleEdge) || Is(kDoubleEdge)) && ImagePushed == kNoImage;
  ImageList_Draw(ImageList, image, dc, moves, moves, ILD_NORMAL);
}

void BitmapButton::DrawEdges(HDC dc, const RECT& client) const {
  if (!Is(kSingleEdge) && !Is(kDoubleEdge)) return;
  RECT rect = client;
  if (Is(kPressed)) {
    DrawEdge(dc, &rect, Is(kSingleEdge) ? BDR_SUNKENOUTER : EDGE_SUNKEN, BF_RECT);
  } else if (!Is(kHover) || Is(kUnderPointer)) {
    DrawEdge(dc, &rect, Is(kSingleEdge) ? BDR_RAISEDINNER : EDGE_RAISED, BF_RECT);
  }
}

void BitmapButton::DrawCaption(HDC dc, const RECT& client) const {
  wchar_t caption[kCaptionLength];
  const int length = GetWindowTextW(m_hWnd, caption, kCaptionLength);
  if (length <= 0) return;
  RECT rect = {client.left + TextMargins.left, client.top + TextMargins.top, client.right + TextMargins.right,
               client.bottom + TextMargins.bottom};
  UINT format = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  if (MultiLine) {
    rect.top += kMultiLineTop;
    format = DT_CENTER;
  }
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, TextColor);
  const Selection font(dc, Font.get());
  DrawTextW(dc, caption, length, &rect, format);
}
