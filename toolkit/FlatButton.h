// A button that takes its looks from one bitmap strip, or from a plain colour and a thin 3D frame where it has none.
//
// It works like any push button of the system. Its parent has to send WM_DRAWITEM back to it (MessageMap's
// ReflectToChild), or nothing is drawn.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "toolkit/WindowBase.h"

class FlatButton : public RegisteredWindow<FlatButton> {
 public:
  FlatButton();
  ~FlatButton() override;

  static WindowClassInfo& WindowClass();

  // A horizontal strip: normal, hot and, with `threeFrames`, pressed and disabled in one. The bitmap stays the caller's
  // and has to outlive its use here; null brings the plain look back.
  void SetBitmap(HBITMAP strip, bool threeFrames);
  void SetColors(COLORREF back, COLORREF text, COLORREF disabledText);
  // The font stays the caller's; null stands for the system's own.
  void SetFont(HFONT font);
  void SetText(const wchar_t* text);
  // An empty or null text takes the tip away.
  void SetToolTipText(const wchar_t* text);
  // Shows the third frame. Whether the button reacts is the window's own state.
  void SetDisabled(bool disabled);

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  HBITMAP Bitmap = nullptr;
  COLORREF BackColor;
  COLORREF TextColor = 0xFFFFFF;
  COLORREF DisabledColor;
  int Tracking = 0;
  int Hover = 0;
  JW_String ToolTipText;
  HWND ToolTip = nullptr;
  int ThreeFrames = 0;
  JW_String Text;
  HFONT Font;
  int Disabled = 0;
  int Flat = 1;  // no look depends on it

 private:
  LRESULT OnCreate(MessageArgs& args);
  LRESULT OnDestroy(MessageArgs& args);
  LRESULT OnMouseMessage(MessageArgs& args);
  LRESULT OnMouseMove(MessageArgs& args);
  LRESULT OnMouseHover(MessageArgs& args);
  LRESULT OnMouseLeave(MessageArgs& args);
  LRESULT OnDrawItem(MessageArgs& args);

  void Invalidate();
  bool DrawFrame(HDC dc, UINT itemState) const;
  void DrawPlain(HDC dc, const RECT& rect, UINT itemState) const;
  void DrawCaption(HDC dc, RECT rect, UINT itemState) const;
};
