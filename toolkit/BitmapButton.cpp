#include "toolkit/BitmapButton.h"

#include "toolkit/ToolTip.h"

namespace {

constexpr UINT_PTR kFirstDelayTimer = 1000;
constexpr UINT_PTR kRepeatTimer = 1001;
constexpr UINT kFallbackDelay = 250;
constexpr int kDefaultFontTenths = 80;

// A font by its height in tenths of a point, as large on this screen as it is there in logical units.
HFONT CreatePointFont(int tenths, const wchar_t* face) {
  const WindowContext screen(nullptr);
  POINT origin = {0, 0};
  POINT size = {0, GetDeviceCaps(screen.get(), LOGPIXELSY) * tenths / 720};
  DPtoLP(screen.get(), &origin, 1);
  DPtoLP(screen.get(), &size, 1);
  LOGFONTW font = {};
  font.lfHeight = -labs(size.y - origin.y);
  font.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(font.lfFaceName, face, LF_FACESIZE);
  return CreateFontIndirectW(&font);
}

// The user's settings for a key that is held.
UINT FirstDelay() {
  UINT delay = 0;
  return SystemParametersInfoW(SPI_GETKEYBOARDDELAY, 0, &delay, 0) ? (delay + 1) * 250 : kFallbackDelay;
}

UINT RepeatPeriod() {
  UINT speed = 0;
  return SystemParametersInfoW(SPI_GETKEYBOARDSPEED, 0, &speed, 0) ? 10000 / (speed * 10 + 25) : kFallbackDelay;
}

}  // namespace

BitmapButton::BitmapButton()
    : Font(CreatePointFont(kDefaultFontTenths, L"MS Sans Serif")), ColorDisabled(GetSysColor(COLOR_GRAYTEXT)) {}

BitmapButton::~BitmapButton() {
  // While the window lives its procedure still reaches this class.
  DestroyWindow();
  ReleaseImageList(ImageList);
}

WindowClassInfo& BitmapButton::WindowClass() {
  static WindowClassInfo info = DescribeWindowClass(L"ZQ__BitmapButton", 0, 0, L"BUTTON");
  return info;
}

void BitmapButton::ReleaseImageList(HIMAGELIST list) const {
  if (list && !Is(kSharedImageList)) ImageList_Destroy(list);
}

void BitmapButton::SetExtendedStyle(u32 style) {
  ExtendedStyle = style;
  Invalidate();
}

void BitmapButton::SetImageList(HIMAGELIST list) {
  if (list != ImageList) ReleaseImageList(ImageList);
  ImageList = list;
  if (Is(kSizeToImage)) SizeToImage();
  Invalidate();
}

void BitmapButton::SetImages(int normal, int pushed, int hover, int disabled) {
  ImageNormal = normal;
  ImagePushed = pushed;
  ImageHover = hover;
  ImageDisabled = disabled;
  Invalidate();
}

void BitmapButton::SetToolTipText(const wchar_t* text) {
  ToolTipText = text;
  SetToolTipTool(ToolTip, m_hWnd, ToolTipText);
}

void BitmapButton::SetColors(COLORREF normal, COLORREF hover, COLORREF pressed, COLORREF disabled) {
  ColorNormal = normal;
  ColorHover = hover;
  ColorPressed = pressed;
  ColorDisabled = disabled;
  Invalidate();
}

void BitmapButton::SetTextMargins(int left, int top, int right, int bottom) {
  TextMargins = {left, top, right, bottom};
  Invalidate();
}

void BitmapButton::SetFont(HFONT font) {
  Font.reset(font);
  Invalidate();
}

void BitmapButton::SetChecked(bool checked) {
  Checked = checked;
  Invalidate();
}

void BitmapButton::SetMultiLine(bool multiLine) {
  MultiLine = multiLine;
  Invalidate();
}

void BitmapButton::SizeToImage(int width, int height) {
  int imageWidth = 0;
  int imageHeight = 0;
  if (ImageList) ImageList_GetIconSize(ImageList, &imageWidth, &imageHeight);
  RECT rect = {0, 0, width > 0 ? width : imageWidth, height > 0 ? height : imageHeight};
  if (!m_hWnd || rect.right <= 0 || rect.bottom <= 0) return;
  const auto style = static_cast<DWORD>(GetWindowLongW(m_hWnd, GWL_STYLE));
  const auto exStyle = static_cast<DWORD>(GetWindowLongW(m_hWnd, GWL_EXSTYLE));
  // What a child has in the place of a menu is its id.
  const bool hasMenu = (style & WS_CHILD) == 0 && GetMenu(m_hWnd);
  if (!AdjustWindowRectEx(&rect, style, hasMenu, exStyle)) return;
  SetWindowPos(m_hWnd, nullptr, 0, 0, rect.right - rect.left, rect.bottom - rect.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool BitmapButton::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                        DWORD) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.OnRange(WM_MOUSEFIRST, WM_MBUTTONDBLCLK, &BitmapButton::OnMouseMessage) ||
         map.On(WM_CREATE, &BitmapButton::OnCreate) || map.On(WM_DESTROY, &BitmapButton::OnDestroy) ||
         map.On(WM_ERASEBKGND, &BitmapButton::OnEraseBackground) || map.On(WM_PAINT, &BitmapButton::OnPaint) ||
         map.On(WM_PRINTCLIENT, &BitmapButton::OnPaint) || map.On(WM_SETFOCUS, &BitmapButton::OnSetFocus) ||
         map.On(WM_KILLFOCUS, &BitmapButton::OnKillFocus) || map.On(WM_ENABLE, &BitmapButton::OnEnable) ||
         map.On(WM_LBUTTONDOWN, &BitmapButton::OnButtonDown) ||
         map.On(WM_LBUTTONDBLCLK, &BitmapButton::OnDoubleClick) || map.On(WM_LBUTTONUP, &BitmapButton::OnButtonUp) ||
         map.On(WM_CAPTURECHANGED, &BitmapButton::OnCaptureChanged) ||
         map.On(WM_MOUSEMOVE, &BitmapButton::OnMouseMove) || map.On(WM_MOUSELEAVE, &BitmapButton::OnMouseLeave) ||
         map.On(WM_KEYDOWN, &BitmapButton::OnKeyDown) || map.On(WM_KEYUP, &BitmapButton::OnKeyUp) ||
         map.On(WM_TIMER, &BitmapButton::OnTimer) || map.DefaultReflected();
}

void BitmapButton::Invalidate() {
  // Without a window the whole screen would be meant.
  if (m_hWnd) InvalidateRect(m_hWnd, nullptr, TRUE);
}

void BitmapButton::Repaint() {
  Invalidate();
  if (m_hWnd) UpdateWindow(m_hWnd);
}

void BitmapButton::SetState(StateBit bit, bool on) {
  State = (on ? State | bit : State & ~static_cast<u32>(bit)) & 7;
  Repaint();
}

// The parent may destroy the window, and the object with it, before this returns.
void BitmapButton::SendClick() {
  const auto id = static_cast<WORD>(GetDlgCtrlID(m_hWnd));
  SendMessageW(GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(m_hWnd));
}

LRESULT BitmapButton::OnMouseMessage(MessageArgs& args) {
  RelayToToolTip(ToolTip, args);
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnCreate(MessageArgs& args) {
  SetWindowLongW(m_hWnd, GWL_STYLE, GetWindowLongW(m_hWnd, GWL_STYLE) | BS_OWNERDRAW);
  State = 0;
  ToolTip = CreateToolTip(m_hWnd);
  SetToolTipTool(ToolTip, m_hWnd, ToolTipText);
  if (Is(kSizeToImage) && ImageList) SizeToImage();
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnDestroy(MessageArgs& args) {
  if (IsWindow(ToolTip)) ::DestroyWindow(ToolTip);
  ToolTip = nullptr;
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnEraseBackground(MessageArgs&) {
  return 1;
}

LRESULT BitmapButton::OnSetFocus(MessageArgs& args) {
  SetState(kFocused, true);
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnKillFocus(MessageArgs& args) {
  SetState(kFocused, false);
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnEnable(MessageArgs& args) {
  Repaint();
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnButtonDown(MessageArgs&) {
  const HWND window = m_hWnd;
  LRESULT result = 0;
  if (Is(kHover)) {
    SetCapture(window);
  } else {
    result = DefWindowProc();
  }
  // Whoever lost the capture or the focus may have ended this button.
  if (!IsWindow(window)) return result;
  if (HasCapture()) SetState(kPressed, true);
  if (Is(kAutoRepeat)) SetTimer(window, kFirstDelayTimer, FirstDelay(), nullptr);
  return result;
}

LRESULT BitmapButton::OnDoubleClick(MessageArgs&) {
  const HWND window = m_hWnd;
  const LRESULT result = Is(kHover) ? 0 : DefWindowProc();
  if (IsWindow(window) && !HasCapture()) SetCapture(window);
  if (IsWindow(window) && HasCapture()) SetState(kPressed, true);
  return result;
}

LRESULT BitmapButton::OnButtonUp(MessageArgs&) {
  const HWND window = m_hWnd;
  const bool hover = Is(kHover);
  const LRESULT result = hover ? 0 : DefWindowProc();
  // A window that is gone holds no capture, so the object is there.
  if (GetCapture() != window) return result;
  if (hover && Is(kPressed)) SendClick();
  if (GetCapture() == window) ReleaseCapture();
  return result;
}

LRESULT BitmapButton::OnCaptureChanged(MessageArgs& args) {
  if (Is(kPressed)) SetState(kPressed, false);
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnMouseMove(MessageArgs& args) {
  if (HasCapture()) {
    POINT point = args.Point();
    ClientToScreen(m_hWnd, &point);
    RECT rect;
    GetWindowRect(m_hWnd, &rect);
    const bool inside = PtInRect(&rect, point);
    if (inside != Is(kPressed)) SetState(kPressed, inside);
  } else if (Is(kHover) && !Is(kUnderPointer)) {
    SetState(kUnderPointer, true);
    TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE, m_hWnd, 0};
    _TrackMouseEvent(&track);
  }
  // The class below follows the press by the pointer only where it also ends it.
  args.handled = Is(kHover);
  return 0;
}

LRESULT BitmapButton::OnMouseLeave(MessageArgs& args) {
  if (Is(kUnderPointer)) SetState(kUnderPointer, false);
  args.handled = false;
  return 0;
}

LRESULT BitmapButton::OnKeyDown(MessageArgs& args) {
  args.handled = args.WParam == VK_SPACE && Is(kHover);
  if (args.WParam == VK_SPACE && !args.handled) SetState(kPressed, true);
  return 0;
}

LRESULT BitmapButton::OnKeyUp(MessageArgs& args) {
  args.handled = args.WParam == VK_SPACE && Is(kHover);
  if (args.WParam == VK_SPACE && !args.handled) SetState(kPressed, false);
  return 0;
}

LRESULT BitmapButton::OnTimer(MessageArgs& args) {
  const HWND window = m_hWnd;
  if (args.WParam == kFirstDelayTimer) {
    KillTimer(window, kFirstDelayTimer);
    if (!Is(kPressed)) return 0;
    SendClick();
    if (IsWindow(window)) SetTimer(window, kRepeatTimer, RepeatPeriod(), nullptr);
  } else if (args.WParam == kRepeatTimer) {
    if (Is(kPressed)) {
      SendClick();
    } else if (!HasCapture()) {
      KillTimer(window, kRepeatTimer);
    }
  } else {
    args.handled = false;
  }
  return 0;
}
