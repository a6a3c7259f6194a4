#include "dialogs/VotePageList.h"

#include <algorithm>
#include <cstdint>

#include "toolkit/GdiHandles.h"

namespace {

constexpr int kLineStep = 20;
constexpr int kPageStep = 100;
constexpr int kOverhang = 2;

void Fill(HDC dc, const RECT& rect, COLORREF color) {
  SetBkColor(dc, color);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

}  // namespace

WindowClassInfo& VotePageList::WindowClass() {
  static WindowClassInfo info = DescribeWindowClass(nullptr, CS_DBLCLKS, COLOR_WINDOW + 1);
  return info;
}

bool VotePageList::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                        DWORD /*mapId*/) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_ERASEBKGND, &VotePageList::OnEraseBackground) || map.On(WM_PAINT, &VotePageList::OnPaint) ||
         map.On(WM_SIZE, &VotePageList::OnSize) || map.On(WM_VSCROLL, &VotePageList::OnVScroll) ||
         map.On(WM_MOUSEWHEEL, &VotePageList::OnMouseWheel);
}

LRESULT VotePageList::OnEraseBackground(MessageArgs& /*args*/) {
  return 1;
}

LRESULT VotePageList::OnPaint(MessageArgs& args) {
  if (!IsWindowVisible(m_hWnd) || !CanPaint()) {
    args.handled = false;  // the default procedure takes the update region, which would ask for a paint for ever
    return 0;
  }
  const PaintContext paint(m_hWnd);
  LayOutIfNeeded();
  const PaintBuffer buffer(paint.get(), m_rcClient.right, m_rcClient.bottom);
  if (const HDC dc = buffer.get()) {
    const RECT all = {0, 0, m_rcClient.right, m_rcClient.bottom};
    Fill(dc, all, m_crBack);
    // Marks stand out of their rows by a little.
    RECT clip = paint.UpdateRect();
    InflateRect(&clip, 0, kOverhang);
    PaintContent(dc, clip);
    buffer.Present();
  }
  return 0;
}

LRESULT VotePageList::OnSize(MessageArgs& /*args*/) {
  GetClientRect(m_hWnd, &m_rcClient);
  UpdateScrollBar();
  // The class doesn't redraw by itself, and a part of the old layout would stay beside the new one.
  m_bLayout = true;
  InvalidateIfVisible();
  return 0;
}

void VotePageList::LayOutIfNeeded() {
  if (!m_bLayout) return;
  m_nContent = LayOut(m_rcClient.right);
  m_bLayout = false;
  UpdateScrollBar();
  OnContentMoved();
}

void VotePageList::UpdateScrollBar() {
  if (m_rcClient.right == 0) return;
  const int range = m_nContent - ClientHeight();
  if (range > 0 && HasContent()) {
    EnableScrollBar(m_hWnd, SB_VERT, ESB_ENABLE_BOTH);
    int64_t scroll = m_nScroll;
    if (*m_pLastRange != 0) scroll = scroll * range / *m_pLastRange;
    scroll = std::max<int64_t>(0, std::min<int64_t>({scroll, range, m_nContent}));
    m_nScroll = static_cast<int>(scroll);
    SCROLLINFO info = {
        sizeof(info), SIF_PAGE | SIF_RANGE | SIF_POS, 0, range + m_nPage, static_cast<UINT>(m_nPage), m_nScroll, 0};
    SetScrollInfo(m_hWnd, SB_VERT, &info, TRUE);
  } else {
    m_nScroll = 0;
    SetScrollPos(m_hWnd, SB_VERT, 0, FALSE);
    EnableScrollBar(m_hWnd, SB_VERT, ESB_DISABLE_BOTH);
  }
  *m_pLastRange = range;
}

int VotePageList::RequestedScroll(UINT request) const {
  switch (request) {
    case SB_LINEUP:
      return m_nScroll - kLineStep;
    case SB_LINEDOWN:
      return m_nScroll + kLineStep;
    case SB_PAGEUP:
      return m_nScroll - kPageStep;
    case SB_PAGEDOWN:
      return m_nScroll + kPageStep;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
      // The message itself has room for 16 bits of the position only.
      SCROLLINFO info = {sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
      return GetScrollInfo(m_hWnd, SB_VERT, &info) ? info.nTrackPos : m_nScroll;
    }
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return m_nContent;
    default:
      return m_nScroll;
  }
}

LRESULT VotePageList::OnVScroll(MessageArgs& args) {
  if (!OnScrollStart()) return 0;
  m_nScroll = std::max(0, std::min(RequestedScroll(LOWORD(args.WParam)), m_nContent - ClientHeight()));
  SetScrollPos(m_hWnd, SB_VERT, m_nScroll, TRUE);
  InvalidateRect(m_hWnd, nullptr, TRUE);
  return 0;
}

LRESULT VotePageList::OnMouseWheel(MessageArgs& args) {
  // A line for each message, however far the wheel went.
  const HWND window = m_hWnd;
  const UINT request = GET_WHEEL_DELTA_WPARAM(args.WParam) >= 1 ? SB_LINEUP : SB_LINEDOWN;
  SendMessageW(window, WM_VSCROLL, request, 0);
  if (IsWindow(window)) OnContentMoved();
  return 0;
}

void VotePageList::Redraw() {
  m_bLayout = true;
  InvalidateIfVisible();
}

void VotePageList::InvalidateIfVisible() {
  if (m_hWnd && IsWindowVisible(m_hWnd)) InvalidateRect(m_hWnd, nullptr, FALSE);
}

bool VotePageList::TakeFocus() {
  const HWND window = m_hWnd;
  SetFocus(window);
  return IsWindow(window);
}
