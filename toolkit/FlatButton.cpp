#include "toolkit/FlatButton.h"

#include "toolkit/GdiHandles.h"
#include "toolkit/ToolTip.h"

namespace {

void FillColor(HDC dc, const RECT& rect, COLORREF color) {
  SetBkColor(dc, color);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

// One pixel on each side. The corners that two colours share belong to the top and to the left.
void DrawThinEdge(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight) {
  FillColor(dc, {rect.left, rect.top, rect.right, rect.top + 1}, topLeft);
  FillColor(dc, {rect.left, rect.top, rect.left + 1, rect.bottom}, topLeft);
  FillColor(dc, {rect.right - 1, rect.top + 1, rect.right, rect.bottom}, bottomRight);
  FillColor(dc, {rect.left + 1, rect.bottom - 1, rect.right, rect.bottom}, bottomRight);
}

}  // namespace

FlatButton::FlatButton()
    : BackColor(GetSysColor(COLOR_3DFACE)),
      DisabledColor(GetSysColor(COLOR_GRAYTEXT)),
      Font(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))) {}

FlatButton::~FlatButton() {
  // While the window lives its procedure still reaches this class.
  DestroyWindow();
}

WindowClassInfo& FlatButton::WindowClass() {
  static WindowClassInfo info =
      DescribeWindowClass(nullptr, CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, COLOR_WINDOW + 1, L"BUTTON");
  return info;
}

void FlatButton::SetBitmap(HBITMAP strip, bool threeFrames) {
  Bitmap = strip;
  ThreeFrames = threeFrames;
  Invalidate();
}

void FlatButton::SetColors(COLORREF back, COLORREF text, COLORREF disabledText) {
  BackColor = back;
  TextColor = text;
  DisabledColor = disabledText;
  Invalidate();
}

void FlatButton::SetFont(HFONT font) {
  Font = font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
  Invalidate();
}

void FlatButton::SetText(const wchar_t* text) {
  Text = text;
  Invalidate();
}

void FlatButton::SetToolTipText(const wchar_t* text) {
  ToolTipText = text;
  SetToolTipTool(ToolTip, m_hWnd, ToolTipText);
}

void FlatButton::SetDisabled(bool disabled) {
  Disabled = disabled;
  Invalidate();
}

bool FlatButton::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_CREATE, &FlatButton::OnCreate) || map.On(WM_DESTROY, &FlatButton::OnDestroy) ||
         map.OnRange(WM_MOUSEFIRST, WM_MOUSEWHEEL, &FlatButton::OnMouseMessage) ||
         map.On(WM_MOUSEMOVE, &FlatButton::OnMouseMove) || map.On(WM_MOUSEHOVER, &FlatButton::OnMouseHover) ||
         map.On(WM_MOUSELEAVE, &FlatButton::OnMouseLeave) || map.OnReflected(WM_DRAWITEM, &FlatButton::OnDrawItem) ||
         map.DefaultReflected();
}

void FlatButton::Invalidate() {
  // Without a window the whole screen would be meant.
  if (m_hWnd) InvalidateRect(m_hWnd, nullptr, TRUE);
}

LRESULT FlatButton::OnCreate(MessageArgs& args) {
  const LONG style = GetWindowLongW(m_hWnd, GWL_STYLE);
  SetWindowLongW(m_hWnd, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_OWNERDRAW);
  Tracking = Hover = 0;
  ToolTip = CreateToolTip(m_hWnd);
  SetToolTipTool(ToolTip, m_hWnd, ToolTipText);
  args.handled = false;
  return 0;
}

LRESULT FlatButton::OnDestroy(MessageArgs& args) {
  if (IsWindow(ToolTip)) ::DestroyWindow(ToolTip);
  ToolTip = nullptr;
  args.handled = false;
  return 0;
}

LRESULT FlatButton::OnMouseMessage(MessageArgs& args) {
  RelayToToolTip(ToolTip, args);
  args.handled = false;
  return 0;
}

LRESULT FlatButton::OnMouseMove(MessageArgs& args) {
  if (!Tracking) {
    TRACKMOUSEEVENT track = {sizeof(track), TME_HOVER | TME_LEAVE, m_hWnd, 1};
    Tracking = _TrackMouseEvent(&track);
  }
  args.handled = false;
  return 0;
}

LRESULT FlatButton::OnMouseHover(MessageArgs&) {
  Hover = 1;
  Invalidate();
  return 0;
}

LRESULT FlatButton::OnMouseLeave(MessageArgs& args) {
  Tracking = Hover = 0;
  Invalidate();
  args.handled = false;
  return 0;
}

LRESULT FlatButton::OnDrawItem(MessageArgs& args) {
  const auto* const item = reinterpret_cast<const DRAWITEMSTRUCT*>(args.LParam);
  const SavedContext saved(item->hDC);
  if (!DrawFrame(item->hDC, item->itemState)) DrawPlain(item->hDC, item->rcItem, item->itemState);
  if (!Text.IsEmpty()) DrawCaption(item->hDC, item->rcItem, item->itemState);
  return TRUE;
}

// False without a bitmap that can be drawn.
bool FlatButton::DrawFrame(HDC dc, UINT itemState) const {
  BITMAP strip;
  if (!Bitmap || !GetObjectW(Bitmap, sizeof(strip), &strip)) return false;
  const MemoryContext source(dc);
  const Selection selection(source.get(), Bitmap);
  const int width = strip.bmWidth / (ThreeFrames ? 3 : 2);
  const bool isThird = ThreeFrames && (Disabled || (itemState & ODS_SELECTED));
  const int frame = isThird ? 2 : (Hover ? 1 : 0);
  BitBlt(dc, 0, 0, width, strip.bmHeight, source.get(), frame * width, 0, SRCCOPY);
  return true;
}

void FlatButton::DrawPlain(HDC dc, const RECT& rect, UINT itemState) const {
  FillColor(dc, rect, BackColor);
  const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
  const COLORREF light = GetSysColor(COLOR_3DHIGHLIGHT);
  if (itemState & ODS_SELECTED) {
    DrawThinEdge(dc, rect, shadow, light);
  } else if (Hover) {
    DrawThinEdge(dc, rect, light, shadow);
  }
}

void FlatButton::DrawCaption(HDC dc, RECT rect, UINT itemState) const {
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, itemState & ODS_DISABLED ? DisabledColor : TextColor);
  const Selection font(dc, Font);
  if (itemState & ODS_SELECTED) ++rect.top;
  DrawTextW(dc, Text, Text.GetLength(), &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}
