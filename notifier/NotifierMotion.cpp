// The popup's way out of the taskbar and back. The sides differ in more than direction, on purpose: users know the
// motion as it is.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cwchar>

#include "notifier/TaskbarNotifier.h"

namespace {

constexpr int kNear = 20;          // pixels between a taskbar's edge and the screen's that it lies at
constexpr int kFarAway = 1 << 24;  // where positions end, far beyond every screen

constexpr DWORD kPushTimeout = 200;  // milliseconds that another process's popup has to move

bool IsNear(LONG edge, LONG screenEdge) {
  return std::abs(edge - screenEdge) < kNear;
}

// The taskbar's rectangle on the screen. Where there is none, or only an empty placeholder, the popup comes out of the
// lower edge of the screen.
RECT FindTaskbar() {
  RECT rect = {};
  const HWND taskbar = FindWindowW(L"Shell_TrayWnd", nullptr);
  if (taskbar && GetWindowRect(taskbar, &rect) && !IsRectEmpty(&rect)) return rect;
  const int height = GetSystemMetrics(SM_CYSCREEN);
  return {0, height, GetSystemMetrics(SM_CXSCREEN), height};
}

int Shifted(int position, int64_t pixels) {
  return static_cast<int>(std::clamp<int64_t>(position + pixels, -kFarAway, kFarAway));
}

bool IsNotifier(HWND window) {
  wchar_t name[64];
  return GetClassNameW(window, name, ARRAYSIZE(name)) > 0 &&
         wcscmp(name, TaskbarNotifier::WindowClass().Class.lpszClassName) == 0;
}

}  // namespace

void TaskbarNotifier::Show(const JW_String& text, int showTime, int stayTime, int hideTime) {
  if (!m_hWnd) return;
  Text = text;
  StayTime = stayTime;

  const RECT taskbar = FindTaskbar();
  SetSide(taskbar);
  // A taskbar at the top counts with the width too, although the popup grows in height there.
  const int travel = TaskbarSide == kBottom ? BitmapHeight : BitmapWidth;
  if (!DivideSlide(showTime, travel, ShowInterval, ShowStep)) {
    ShowInterval = MinInterval;
    ShowStep = travel;
  }
  if (!DivideSlide(hideTime, travel, HideInterval, HideStep)) {
    // Not HideInterval: a hide too short to be divided has always quickened the show, and keeps the timer it had.
    ShowInterval = MinInterval;
    HideStep = travel;
  }

  LastTick = GetTickCount();
  switch (State) {
    case kHidden:
      StartAppearing(taskbar);
      break;
    case kAppearing:
      Redraw();
      break;
    case kWaiting:
      Redraw();
      StopTimer(kWaiting);
      StartTimer(kWaiting, StayTime);
      break;
    case kDisappearing:
      StopTimer(kDisappearing);
      StartTimer(kWaiting, StayTime);
      ReturnToFullSize(taskbar);
      break;
  }
}

void TaskbarNotifier::SetSide(const RECT& taskbar) {
  const bool nearLeft = IsNear(taskbar.left, 0);
  const bool nearRight = IsNear(taskbar.right, GetSystemMetrics(SM_CXSCREEN));
  if (nearLeft && nearRight) {
    TaskbarSide = IsNear(taskbar.top, 0) ? kTop : kBottom;
  } else {
    TaskbarSide = nearLeft ? kLeft : kRight;
  }
}

// Divides a slide into intervals of at least MinInterval, no more than there are pixels. False if it is too short.
bool TaskbarNotifier::DivideSlide(int duration, int travel, int& interval, int& step) const {
  if (duration <= MinInterval) return false;
  int count = duration / MinInterval;
  if (travel != 0) count = std::min(count, travel);
  interval = duration / count;
  step = travel / count;
  return true;
}

void TaskbarNotifier::StartAppearing(const RECT& taskbar) {
  switch (TaskbarSide) {
    case kLeft:
      X = taskbar.right;
      Y = taskbar.bottom;
      break;
    case kTop:
      X = taskbar.right - BitmapWidth;
      Y = taskbar.bottom;
      break;
    case kRight:
      X = taskbar.left - BitmapWidth;
      Y = taskbar.bottom;
      break;
    case kBottom:
      X = taskbar.right - BitmapWidth;
      Y = taskbar.top;
      break;
  }
  CurWidth = BitmapWidth;
  CurHeight = 0;
  ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
  StartTimer(kAppearing, ShowInterval);
}

// Brings a disappearing popup back. At the left and right its height stays as it is, and State stays kDisappearing
// until the popup ends.
void TaskbarNotifier::ReturnToFullSize(const RECT& taskbar) {
  switch (TaskbarSide) {
    case kLeft:
      X = taskbar.right;
      CurWidth = BitmapWidth;
      break;
    case kTop:
      Y = taskbar.bottom;
      CurHeight = BitmapHeight;
      break;
    case kRight:
      X = taskbar.left - BitmapWidth;
      CurWidth = BitmapWidth;
      break;
    case kBottom:
      Y = taskbar.top - BitmapHeight;
      CurHeight = BitmapHeight;
      break;
  }
  MoveTo(X - 1, Y);
  Redraw();
}

void TaskbarNotifier::OnShowTimer() {
  State = kAppearing;
  if (CurHeight >= BitmapHeight) {
    StopTimer(kAppearing);
    StartTimer(kWaiting, StayTime);
    State = kWaiting;
    LastTick = GetTickCount();
    return;
  }
  // LastTick stays the start of the phase, so each tick moves further than the one before: the popup accelerates.
  const int pixels = std::min(DistanceSince(ShowStep, ShowInterval), BitmapHeight - CurHeight);
  CurHeight += pixels;
  ShiftAway(pixels);
  if (pixels != 0) MoveBy(pixels);
}

// State stays kWaiting until the first tick of the timer that starts here.
void TaskbarNotifier::OnStayTimer() {
  StopTimer(kWaiting);
  StartTimer(kDisappearing, HideInterval);
  LastTick = GetTickCount();
}

void TaskbarNotifier::OnHideTimer() {
  State = kDisappearing;
  // Counted in stays and not in HideInterval: one HideStep at a time for as long as a stay lasts.
  const int pixels = DistanceSince(HideStep, StayTime);
  // At the left and right nothing changes the width that is looked at, so the timer runs on after the popup has shrunk
  // away, until a release on the cross or CloseAll ends it.
  const bool isSideways = TaskbarSide == kLeft || TaskbarSide == kRight;
  if ((isSideways ? CurWidth : CurHeight) <= 0) {
    StopTimer(kDisappearing);
    DefWindowProc();
    Hide();
    return;
  }
  CurHeight = Shifted(CurHeight, -pixels);
  if (TaskbarSide != kTop) Y = Shifted(Y, pixels);
  MoveTo(TaskbarSide == kLeft ? X + 1 : X - 1, Y);
}

// `step` pixels for each `period` of the time since the phase began, and at least one step.
int TaskbarNotifier::DistanceSince(int step, int period) const {
  const DWORD elapsed = GetTickCount() - LastTick;
  const int64_t steps = period > 0 ? std::max<int64_t>(elapsed / static_cast<DWORD>(period), 1) : 1;
  return static_cast<int>(std::min<int64_t>(step * steps, kFarAway));
}

// Changes the place without moving the window.
void TaskbarNotifier::ShiftAway(int pixels) {
  Y = Shifted(Y, TaskbarSide == kTop ? pixels : -pixels);
}

// Takes the window to its place, and pushes the popup that is in the way by as much.
void TaskbarNotifier::MoveBy(int pixels) {
  POINT probe = {X + 4, Y - 4};
  switch (TaskbarSide) {
    case kLeft:
      MoveTo(X + 1, Y);
      break;
    case kTop:
      MoveTo(X - 1, Y - BitmapHeight);
      probe.y = Y + 4;
      break;
    case kRight:
    case kBottom:
      MoveTo(X - 1, Y);
      break;
  }
  const HWND neighbour = WindowFromPoint(probe);
  if (!neighbour || !IsNotifier(neighbour)) return;
  // Handled before this returns, by a popup of this thread and by another client's that isn't hung.
  SendMessageTimeoutW(neighbour, kMsgNotifierPush, static_cast<WPARAM>(pixels), 0, SMTO_ABORTIFHUNG, kPushTimeout,
                      nullptr);
}

void TaskbarNotifier::MoveTo(int x, int y) {
  SetWindowPos(m_hWnd, HWND_TOPMOST, x, y, CurWidth, CurHeight, SWP_NOACTIVATE);
  // At once, so that fresh rows don't show what stood there before.
  UpdateWindow(m_hWnd);
}
