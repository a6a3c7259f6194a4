#include "notifier/TaskbarNotifier.h"

#include <memory>
#include <new>

#include "notifier/BitmapRegion.h"
#include "toolkit/Toolkit.h"

namespace {

// Spelled as it always was: other programs may know the class by this name.
constexpr wchar_t kHiddenParentClass[] = L"HidenParentTaskbarNotifierClass";

// Where the skin has its cross.
constexpr RECT kCloseRect = {165, 4, 180, 20};

constexpr DWORD kHoverTime = 1;  // milliseconds

// The shortest period of a timer that the system keeps, in milliseconds.
int ShortestTimer() {
  OSVERSIONINFOW version = {};
  version.dwOSVersionInfoSize = sizeof version;
  return GetVersionExW(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT ? 10 : 50;
}

BOOL CALLBACK CloseIfNotifier(HWND window, LPARAM) {
  const bool isOurs = GetClassLongW(window, GCW_ATOM) == TaskbarNotifier::WindowClass().Atom &&
                      GetClassLongPtrW(window, GCLP_HMODULE) == reinterpret_cast<ULONG_PTR>(ToolkitInstance());
  if (isOurs) DestroyWindow(window);
  return TRUE;
}

}  // namespace

TaskbarNotifier* TaskbarNotifier::ShowNotifier(HWND parent, const JW_String& text, const JW_String& bitmapPath) {
  std::unique_ptr<TaskbarNotifier> notifier(new (std::nothrow) TaskbarNotifier);
  if (!notifier || !notifier->Create(parent)) return nullptr;
  notifier->ClickLParam = -1;
  notifier->SetSkin(bitmapPath, kNoTransparency, kNoTransparency, kNoTransparency);
  notifier->SetTextRect(10, 45, 171, 91);
  notifier->Show(text, 400, 4000, 100);
  notifier->IsSelfOwned = true;
  return notifier.release();
}

JW_String TaskbarNotifier::GetSkinDirectory() {
  wchar_t path[260];
  DWORD length = GetModuleFileNameW(nullptr, path, ARRAYSIZE(path));
  while (length > 0 && path[length - 1] != L'\\') --length;
  if (length == 0) return {};
  JW_String directory(path, static_cast<int>(length));
  directory += L"confskin\\";
  return directory;
}

void TaskbarNotifier::CloseAll() {
  EnumThreadWindows(GetCurrentThreadId(), &CloseIfNotifier, 0);
}

WindowClassInfo& TaskbarNotifier::WindowClass() {
  static WindowClassInfo info = DescribeWindowClass(L"TaskbarNotifierClass", CS_DBLCLKS, COLOR_WINDOW + 1);
  return info;
}

TaskbarNotifier::TaskbarNotifier() : Cursor(LoadCursorW(nullptr, IDC_HAND)), MinInterval(ShortestTimer()) {
  LOGFONTW font = {};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  Font.reset(CreateFontIndirectW(&font));
  font.lfUnderline = 1;
  HotFont.reset(CreateFontIndirectW(&font));
}

TaskbarNotifier::~TaskbarNotifier() {
  IsSelfOwned = false;
  DestroyWindow();
  if (HiddenParent) ::DestroyWindow(HiddenParent);
  // Refused for as long as another popup has a window of the class; the last one takes the class along.
  UnregisterClassW(kHiddenParentClass, ToolkitInstance());
}

bool TaskbarNotifier::Create(HWND parent) {
  if (m_hWnd) return false;
  Parent = parent;
  return CreateHiddenParent() && RegisteredWindow::Create(HiddenParent, nullptr, nullptr, WS_POPUP, WS_EX_TOPMOST);
}

bool TaskbarNotifier::CreateHiddenParent() {
  if (HiddenParent) return true;
  WNDCLASSEXW hidden = {};
  hidden.cbSize = sizeof hidden;
  hidden.style = CS_DBLCLKS | CS_SAVEBITS;
  hidden.lpfnWndProc = &DefWindowProcW;
  hidden.hInstance = ToolkitInstance();
  hidden.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  hidden.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  hidden.lpszClassName = kHiddenParentClass;
  // Fails where an earlier popup has registered it, which is as good.
  RegisterClassExW(&hidden);
  HiddenParent = CreateWindowExW(WS_EX_TOPMOST | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE, kHiddenParentClass, nullptr, 0, 0,
                                 0, 0, 0, nullptr, nullptr, ToolkitInstance(), nullptr);
  return HiddenParent != nullptr;
}

bool TaskbarNotifier::SetSkin(const JW_String& bitmapPath, u16 red, u16 green, u16 blue) {
  OwnedBitmap bitmap(static_cast<HBITMAP>(LoadImageW(nullptr, bitmapPath, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE)));
  BITMAP size = {};
  if (!bitmap || GetObjectW(bitmap.get(), sizeof size, &size) == 0) return false;
  Bitmap = std::move(bitmap);
  BitmapWidth = size.bmWidth;
  BitmapHeight = size.bmHeight;
  SetTextRect(0, 0, BitmapWidth, BitmapHeight);

  OwnedRegion shape;
  const bool isShaped = red != kNoTransparency && green != kNoTransparency && blue != kNoTransparency;
  if (isShaped) shape = CreateRegionFromBitmap(Bitmap.get(), RGB(red, green, blue));
  if ((shape || Region) && m_hWnd && SetWindowRgn(m_hWnd, shape.get(), TRUE)) Region = shape.release();
  return true;
}

void TaskbarNotifier::SetTextRect(int left, int top, int right, int bottom) {
  TextRect = {left, top, right, bottom};
}

void TaskbarNotifier::Hide() {
  if (!m_hWnd) return;
  if (State != kHidden) StopTimer(State);
  MoveWindow(m_hWnd, 0, 0, 0, 0, TRUE);
  ShowWindow(m_hWnd, SW_HIDE);
  State = kHidden;
  DestroyWindow();
}

bool TaskbarNotifier::ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                           DWORD) {
  MessageMap map(this, window, message, wParam, lParam, result);
  return map.On(WM_ERASEBKGND, &TaskbarNotifier::OnEraseBackground) || map.On(WM_PAINT, &TaskbarNotifier::OnPaint) ||
         map.On(WM_SETCURSOR, &TaskbarNotifier::OnSetCursor) ||
         map.On(WM_MOUSEACTIVATE, &TaskbarNotifier::OnMouseActivate) ||
         map.On(WM_MOUSEMOVE, &TaskbarNotifier::OnMouseMove) || map.On(WM_MOUSEHOVER, &TaskbarNotifier::OnMouseHover) ||
         map.On(WM_MOUSELEAVE, &TaskbarNotifier::OnMouseLeave) ||
         map.On(WM_LBUTTONUP, &TaskbarNotifier::OnLeftButtonUp) || map.On(WM_TIMER, &TaskbarNotifier::OnTimer) ||
         map.On(kMsgNotifierPush, &TaskbarNotifier::OnPush) || map.On(WM_DESTROY, &TaskbarNotifier::OnDestroy);
}

void TaskbarNotifier::OnFinalMessage(HWND) {
  if (IsSelfOwned) delete this;
}

LRESULT TaskbarNotifier::OnEraseBackground(MessageArgs& args) {
  const auto dc = reinterpret_cast<HDC>(args.WParam);
  const MemoryContext picture(dc);
  const Selection selection(picture.get(), Bitmap.get());
  // A popup that is half out shows the top of its picture.
  if (Bitmap) BitBlt(dc, 0, 0, CurWidth, CurHeight, picture.get(), 0, 0, SRCCOPY);
  return 1;
}

LRESULT TaskbarNotifier::OnPaint(MessageArgs&) {
  const PaintContext paint(m_hWnd);
  const SavedContext saved(paint.get());
  SelectObject(paint.get(), (MouseOver ? HotFont : Font).get());
  SetTextColor(paint.get(), MouseOver ? HotTextColor : TextColor);
  SetBkMode(paint.get(), TRANSPARENT);
  RECT rect = TextRect;
  DrawTextW(paint.get(), Text, Text.GetLength(), &rect, TextFormat);
  return 0;
}

LRESULT TaskbarNotifier::OnSetCursor(MessageArgs& args) {
  if (LOWORD(args.LParam) != HTCLIENT) {
    args.handled = false;
    return 0;
  }
  SetCursor(Cursor);
  return TRUE;
}

LRESULT TaskbarNotifier::OnMouseActivate(MessageArgs&) {
  // A click must not take the focus from what the user types into.
  return MA_NOACTIVATE;
}

LRESULT TaskbarNotifier::OnMouseMove(MessageArgs&) {
  TRACKMOUSEEVENT track = {sizeof track, TME_HOVER | TME_LEAVE, m_hWnd, kHoverTime};
  _TrackMouseEvent(&track);
  return 0;
}

LRESULT TaskbarNotifier::OnMouseHover(MessageArgs&) {
  if (!MouseOver) {
    MouseOver = true;
    Redraw();
  }
  return 0;
}

LRESULT TaskbarNotifier::OnMouseLeave(MessageArgs&) {
  if (MouseOver) {
    MouseOver = false;
    Redraw();
  }
  return 0;
}

LRESULT TaskbarNotifier::OnLeftButtonUp(MessageArgs& args) {
  args.handled = false;
  if (PtInRect(&TextRect, args.Point())) {
    if (Parent) PostMessageW(Parent, kMsgNotifierClick, ClickWParam, ClickLParam);
  } else if (PtInRect(&kCloseRect, args.Point())) {
    DefWindowProc();
    Hide();
  }
  return 0;
}

LRESULT TaskbarNotifier::OnTimer(MessageArgs& args) {
  switch (args.WParam) {
    case kAppearing:
      OnShowTimer();
      break;
    case kWaiting:
      OnStayTimer();
      break;
    case kDisappearing:
      OnHideTimer();
      break;
    default:
      args.handled = false;
  }
  return 0;
}

LRESULT TaskbarNotifier::OnPush(MessageArgs& args) {
  const auto pixels = static_cast<int>(args.WParam);
  ShiftAway(pixels);
  MoveBy(pixels);
  return 0;
}

LRESULT TaskbarNotifier::OnDestroy(MessageArgs& args) {
  // A popup that deletes itself destroys the hidden parent while its own window is still ending, and a parent takes
  // the windows that it owns along: without this the window would end twice.
  SetWindowLongPtrW(m_hWnd, GWLP_HWNDPARENT, 0);
  args.handled = false;
  return 0;
}

void TaskbarNotifier::Redraw() {
  RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void TaskbarNotifier::StartTimer(NotifierState id, int period) {
  SetTimer(m_hWnd, id, static_cast<UINT>(period), nullptr);
}

void TaskbarNotifier::StopTimer(NotifierState id) {
  KillTimer(m_hWnd, id);
}
