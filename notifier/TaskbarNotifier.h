// A small skinned popup that slides out of the taskbar, stays for a while and slides back, with a text on a bitmap.
//
// It is kept on top and never takes the focus. Several may be alive at once: a growing one pushes those in its way
// away from the taskbar. All of it runs on the thread that creates it, from that thread's message loop.
//
// On a taskbar at the left or right side the popup shrinks away but its window doesn't end; see OnHideTimer.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/WindowBase.h"

// Posted to the parent when the text was clicked. wParam is 0, lParam -1 for popups of ShowNotifier.
constexpr UINT kMsgNotifierClick = 0x47B;
// Sent between notifiers: move by wParam pixels, away from the taskbar.
constexpr UINT kMsgNotifierPush = 0x47C;

class TaskbarNotifier final : public RegisteredWindow<TaskbarNotifier> {
 public:
  static constexpr u16 kNoTransparency = 0xFFFF;

  // Shows `text` on the picture in the file `bitmapPath`: out within 400 ms, then for 4 s. Where the file can't be
  // loaded nothing is seen. The popup deletes itself when its window has ended, so a caller needs the result for
  // nothing but to look at; null if no window could be made.
  static TaskbarNotifier* ShowNotifier(HWND parent, const JW_String& text, const JW_String& bitmapPath);

  // The folder of the skin beside the process's executable, with a backslash at its end; empty if that isn't known.
  static JW_String GetSkinDirectory();

  // Ends all popups of the calling thread, before the module leaves the process.
  static void CloseAll();

  static WindowClassInfo& WindowClass();

  TaskbarNotifier();
  // Ends the window as well.
  ~TaskbarNotifier() override;

  // Creates the window, still hidden. False if that fails or it exists already. `parent` gets kMsgNotifierClick; it
  // may be null and may end before the popup does.
  bool Create(HWND parent);

  // Takes the picture from a file and makes all of it the place of the text. Pixels of the colour are cut out of the
  // window, unless a component is kNoTransparency. False, with the old picture kept, if the file can't be loaded.
  bool SetSkin(const JW_String& bitmapPath, u16 red, u16 green, u16 blue);

  // Where the text stands, in pixels of the picture.
  void SetTextRect(int left, int top, int right, int bottom);

  // Shows the text: slides out during `showTime`, stays for `stayTime`, slides back during `hideTime`, in milliseconds.
  // While a popup is out already it takes the new text and stays anew. Does nothing without a window.
  void Show(const JW_String& text, int showTime, int stayTime, int hideTime);

  // Ends the window at once, and so a popup of ShowNotifier.
  void Hide();

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;
  void OnFinalMessage(HWND window) override;

 private:
  // The states beyond kHidden are the ids of the timers that run in them.
  enum NotifierState : UINT_PTR { kHidden, kAppearing, kWaiting, kDisappearing };
  enum ScreenSide { kLeft, kTop, kRight, kBottom };

  LRESULT OnEraseBackground(MessageArgs& args);
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnSetCursor(MessageArgs& args);
  LRESULT OnMouseActivate(MessageArgs& args);
  LRESULT OnMouseMove(MessageArgs& args);
  LRESULT OnMouseHover(MessageArgs& args);
  LRESULT OnMouseLeave(MessageArgs& args);
  LRESULT OnLeftButtonUp(MessageArgs& args);
  LRESULT OnTimer(MessageArgs& args);
  LRESULT OnPush(MessageArgs& args);
  LRESULT OnDestroy(MessageArgs& args);

  bool CreateHiddenParent();
  void Redraw();
  void StartTimer(NotifierState id, int period);
  void StopTimer(NotifierState id);

  // What an animation starts with, and its ticks (NotifierMotion.cpp).
  void SetSide(const RECT& taskbar);
  bool DivideSlide(int duration, int travel, int& interval, int& step) const;
  void StartAppearing(const RECT& taskbar);
  void ReturnToFullSize(const RECT& taskbar);
  void OnShowTimer();
  void OnStayTimer();
  void OnHideTimer();
  int DistanceSince(int step, int period) const;
  void ShiftAway(int pixels);
  void MoveBy(int pixels);
  void MoveTo(int x, int y);

  HWND Parent = nullptr;
  OwnedFont Font;
  OwnedFont HotFont;
  COLORREF TextColor = 0;
  COLORREF HotTextColor = 0xC80000;
  HCURSOR Cursor;
  OwnedBitmap Bitmap;
  HRGN Region = nullptr;  // the window's own; null for a rectangular window
  int BitmapWidth = 0;
  int BitmapHeight = 0;
  JW_String Text;
  RECT TextRect = {};
  UINT TextFormat = DT_CENTER | DT_VCENTER | DT_WORDBREAK | DT_NOPREFIX | DT_END_ELLIPSIS;
  bool MouseOver = false;
  NotifierState State = kHidden;
  ScreenSide TaskbarSide = kBottom;
  int MinInterval;
  int StayTime = 0;  // times in milliseconds
  int ShowInterval = 0;
  int HideInterval = 0;
  DWORD LastTick = 0;  // when the phase began
  int X = 0;           // the popup's place on the screen, which the window follows by a rule for each side
  int Y = 0;
  int CurWidth = 0;
  int CurHeight = 0;
  int ShowStep = 0;  // pixels for each interval
  int HideStep = 0;
  LPARAM ClickLParam = 0;
  WPARAM ClickWParam = 0;
  HWND HiddenParent = nullptr;  // owns the window, which so has no button on the taskbar
  bool IsSelfOwned = false;     // deletes itself when its window has ended
};
