#include "toolkit/UpDownCtrl.h"

#include "toolkit/GdiHandles.h"

namespace {

constexpr DWORD kButtonStyle = WS_CHILD | WS_VISIBLE | BS_OWNERDRAW;
constexpr int kGap = 2;

static_assert(UDN_DELTAPOS == 0xFFFFFD2E);

}  // namespace

UpDownCtrl::UpDownCtrl() : BackColor(GetSysColor(COLOR_3DFACE)) {}

UpDownCtrl::~UpDownCtrl() {
  // While the window lives its procedure still reaches this class.
  DestroyWindow();
}

WindowClassInfo& UpDownCtrl::WindowClass() {
  static WindowClassInfo info =
      DescribeWindowClass(L"JW_UpDownCtrl", CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, COLOR_WINDOW + 1);
  return info;
}

void UpDownCtrl::SetRange(int min, int max) {
  Min = min;
  Max = max;
}

void UpDownCtrl::GetRange(int& min, int& max) const {
  min = Min;
  max = Max;
}

void UpDownCtrl::SetBackColor(COLORREF color) {
  BackColor = color;
  if (m_hWnd) InvalidateRect(m_hWnd, nullptr, TRUE);
}

void UpDownCtrl::SetHorizontal(bool horizontal) {
  Horizontal = horizontal;
  if (!m_hWnd) return;
  RECT client;
  GetClientRect(m_hWnd, &client);
  PlaceButtons(client.right, client.bottom);
}

bool UpDownCtrl::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_CREATE, &UpDownCtrl::OnCreate) || map.On(WM_SIZE, &UpDownCtrl::OnSize) ||
         map.On(WM_PAINT, &UpDownCtrl::OnPaint) || map.On(WM_ERASEBKGND, &UpDownCtrl::OnEraseBackground) ||
         // Of any notification code: what a quick second click sends is a double click, and has to step as well.
         map.OnCommand(kDownId, &UpDownCtrl::OnDown) || map.OnCommand(kUpId, &UpDownCtrl::OnUp) || map.ReflectToChild();
}

LRESULT UpDownCtrl::OnCreate(MessageArgs&) {
  const LRESULT result = DefWindowProc();
  const bool made = Down.Create(m_hWnd, nullptr, nullptr, kButtonStyle, 0, kDownId) &&
                    Up.Create(m_hWnd, nullptr, nullptr, kButtonStyle, 0, kUpId);
  return made ? result : -1;
}

LRESULT UpDownCtrl::OnSize(MessageArgs& args) {
  PlaceButtons(LOWORD(args.LParam), HIWORD(args.LParam));
  return 0;
}

void UpDownCtrl::PlaceButtons(int width, int height) {
  if (!Down.m_hWnd || !Up.m_hWnd) return;
  const int length = ((Horizontal ? width : height) - kGap) / 2;
  const int share = length > 0 ? length : 0;
  if (Horizontal) {
    MoveWindow(Down.m_hWnd, 0, 0, share, height, TRUE);
    MoveWindow(Up.m_hWnd, share + kGap, 0, share, height, TRUE);
  } else {
    MoveWindow(Down.m_hWnd, 0, 0, width, share, TRUE);
    MoveWindow(Up.m_hWnd, 0, share + kGap, width, share, TRUE);
  }
}

LRESULT UpDownCtrl::OnPaint(MessageArgs&) {
  const PaintContext paint(m_hWnd);
  if (!paint.get()) return 0;
  RECT client;
  GetClientRect(m_hWnd, &client);
  SetBkColor(paint.get(), BackColor);
  ExtTextOutW(paint.get(), 0, 0, ETO_OPAQUE, &client, nullptr, 0, nullptr);
  return 0;
}

LRESULT UpDownCtrl::OnEraseBackground(MessageArgs&) {
  return 1;
}

LRESULT UpDownCtrl::OnDown(MessageArgs&) {
  if (Pos > Min) MoveBy(-1);
  return 0;
}

LRESULT UpDownCtrl::OnUp(MessageArgs&) {
  if (Pos < Max) MoveBy(1);
  return 0;
}

void UpDownCtrl::MoveBy(int direction) {
  // Unsigned, so that a step beyond the largest number wraps.
  const auto step = static_cast<unsigned>(Step);
  Pos = static_cast<int>(static_cast<unsigned>(Pos) + (direction < 0 ? 0 - step : step));
  const int id = GetDlgCtrlID(m_hWnd);
  NMUPDOWN notification = {};
  notification.hdr = {m_hWnd, static_cast<UINT_PTR>(id), UDN_DELTAPOS};
  notification.iPos = Pos;
  notification.iDelta = direction;
  SendMessageW(GetParent(m_hWnd), WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&notification));
}
