#include "toolkit/BitmapButton.h"

SplitBitmapButton::~SplitBitmapButton() {
  DestroyWindow();
  ShowZone(false);
  ReleaseImageList(HotImageList);
}

void SplitBitmapButton::SetHotZone(const RECT& zone, HIMAGELIST list) {
  ShowZone(false);
  if (list != HotImageList) ReleaseImageList(HotImageList);
  HotRect = zone;
  HotImageList = list;
  Invalidate();
}

void SplitBitmapButton::SetImageList(HIMAGELIST list) {
  ShowZone(false);
  BitmapButton::SetImageList(list);
}

// The button's own handling follows in each case, with the list and the state as they are left here.
bool SplitBitmapButton::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                             DWORD mapId) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_LBUTTONDOWN, &SplitBitmapButton::OnZoneDown) || map.On(WM_LBUTTONUP, &SplitBitmapButton::OnZoneUp) ||
         map.On(WM_MOUSEMOVE, &SplitBitmapButton::OnZoneMove) ||
         BitmapButton::ProcessWindowMessage(window, message, wParam, lParam, result, mapId);
}

// Coordinates are unsigned here: a place left of or above the button is far to its right or below it.
bool SplitBitmapButton::IsInZone(const MessageArgs& args) const {
  return PtInRect(&HotRect, {LOWORD(args.LParam), HIWORD(args.LParam)});
}

void SplitBitmapButton::ShowZone(bool show) {
  if (show == m_bZoneShown || (show && !HotImageList)) return;
  m_bZoneShown = show;
  if (show) {
    SavedImageList = ImageList;
    ImageList = HotImageList;
  } else {
    ImageList = SavedImageList;
    SavedImageList = nullptr;
  }
}

LRESULT SplitBitmapButton::OnZoneDown(MessageArgs& args) {
  if (IsInZone(args)) HotPressed = 1;
  args.handled = false;
  return 0;
}

// HotPressed stays after a release elsewhere, so a later drag from the button into the zone is a click there.
LRESULT SplitBitmapButton::OnZoneUp(MessageArgs& args) {
  if (IsInZone(args) && HotPressed) {
    HotPressed = 0;
    State &= ~static_cast<u32>(kPressed) & 7;
    PostMessageW(GetParent(m_hWnd), kSplitZoneMessage, static_cast<WPARAM>(GetDlgCtrlID(m_hWnd)),
                 reinterpret_cast<LPARAM>(m_hWnd));
  }
  Invalidate();
  args.handled = false;
  return 0;
}

// A pointer that leaves the button straight from the zone leaves the zone's list in place until it comes back: no move
// tells of it.
LRESULT SplitBitmapButton::OnZoneMove(MessageArgs& args) {
  const bool shown = m_bZoneShown;
  ShowZone(IsInZone(args));
  if (shown != m_bZoneShown) Invalidate();
  args.handled = false;
  return 0;
}
