// Two buttons that step a number and tell the parent as the system's up-down control does.
//
// A step sends WM_NOTIFY with the control's id and an NMUPDOWN whose code is UDN_DELTAPOS, `iPos` the new position and
// `iDelta` -1 or 1. Unlike the system's control it sends after the position has changed, and the parent can't refuse.
// The parent may destroy the control while it is told.
#pragma once

#include "toolkit/FlatButton.h"
#include "toolkit/WindowBase.h"

class UpDownCtrl : public RegisteredWindow<UpDownCtrl> {
 public:
  static constexpr UINT kDownId = 9000;
  static constexpr UINT kUpId = 9001;

  UpDownCtrl();
  ~UpDownCtrl() override;

  static WindowClassInfo& WindowClass();

  void SetRange(int min, int max);
  void GetRange(int& min, int& max) const;
  // Neither checked against the range nor told to the parent.
  void SetPos(int pos) { Pos = pos; }
  int GetPos() const { return Pos; }
  // With a step above 1 the last step may pass the limit.
  void SetStep(int step) { Step = step; }
  void SetBackColor(COLORREF color);
  // Buttons side by side, or else one above the other.
  void SetHorizontal(bool horizontal);

  // For their looks. The windows are this control's.
  FlatButton& DownButton() { return Down; }
  FlatButton& UpButton() { return Up; }

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  FlatButton Down;
  FlatButton Up;
  int Max = 0;
  int Min = 0;
  int Pos = 0;
  int Step = 1;
  COLORREF BackColor;
  int Horizontal = 1;

 private:
  LRESULT OnCreate(MessageArgs& args);
  LRESULT OnSize(MessageArgs& args);
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnEraseBackground(MessageArgs& args);
  LRESULT OnDown(MessageArgs& args);
  LRESULT OnUp(MessageArgs& args);

  void PlaceButtons(int width, int height);
  void MoveBy(int direction);
};
