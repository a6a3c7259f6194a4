// A push button that draws itself from an image list and an optional caption, and a variant with a second zone.
//
// The button tells its parent of a click by WM_COMMAND with its id and its window. Its window may be destroyed by the
// parent while it does so. In the default style it lights up under the pointer and takes no focus from the mouse;
// without kHover it is a plain push button for mouse and keyboard.
#pragma once

#include "JW_Base/Include/JW_String.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/WindowBase.h"

// Posted to the parent for a click in the second zone of a SplitBitmapButton: the control id and the window.
constexpr UINT kSplitZoneMessage = 0x46E;

class BitmapButton : public RegisteredWindow<BitmapButton> {
 public:
  enum Style : u32 {
    kHover = 0x01,            // lights up under the pointer, and doesn't take its look from the focus
    kSingleEdge = 0x02,       // a thin 3D edge
    kDoubleEdge = 0x04,       // a thick one
    kSizeToImage = 0x08,      // the window takes the size of an image
    kSharedImageList = 0x10,  // the image list stays the owner's
    kAutoRepeat = 0x20,       // commands follow each other while the button is held
  };
  static constexpr int kNoImage = -1;

  BitmapButton();
  ~BitmapButton() override;

  static WindowClassInfo& WindowClass();

  void SetExtendedStyle(u32 style);
  u32 GetExtendedStyle() const { return ExtendedStyle; }
  // The list becomes the button's own, unless the style is kSharedImageList; the one before ends by the same rule.
  virtual void SetImageList(HIMAGELIST list);
  HIMAGELIST GetImageList() const { return ImageList; }
  // Indices in the list, kNoImage for none. `hover` is also the look of the focus without kHover.
  void SetImages(int normal, int pushed, int hover, int disabled);
  // Takes a copy. An empty or null text takes the tip away.
  void SetToolTipText(const wchar_t* text);
  void SetColors(COLORREF normal, COLORREF hover, COLORREF pressed, COLORREF disabled);
  // Added to the client rectangle, edge by edge, for the caption.
  void SetTextMargins(int left, int top, int right, int bottom);
  // The button owns the font from now on.
  void SetFont(HFONT font);
  // A checked button keeps the pressed look.
  void SetChecked(bool checked);
  bool IsChecked() const { return Checked != 0; }
  // Lets a caption run over several lines, from the top.
  void SetMultiLine(bool multiLine);

  // Makes the client area as large as one image, or as the sizes given.
  void SizeToImage(int width = 0, int height = 0);

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  enum StateBit : u32 { kUnderPointer = 1, kFocused = 2, kPressed = 4 };

  void ReleaseImageList(HIMAGELIST list) const;
  void Invalidate();

  u32 ExtendedStyle = kHover | kSizeToImage;
  HIMAGELIST ImageList = nullptr;
  int ImageNormal = kNoImage;
  int ImagePushed = kNoImage;
  int ImageHover = kNoImage;
  int ImageDisabled = kNoImage;
  HWND ToolTip = nullptr;
  JW_String ToolTipText;
  u32 State : 3 = 0;
  OwnedFont Font;
  COLORREF TextColor = 0;  // of the paint under way
  COLORREF ColorNormal = 0;
  COLORREF ColorHover = 0;
  COLORREF ColorPressed = 0;
  COLORREF ColorDisabled;
  RECT TextMargins = {};
  int Checked = 0;
  int MultiLine = 0;

 private:
  LRESULT OnMouseMessage(MessageArgs& args);
  LRESULT OnCreate(MessageArgs& args);
  LRESULT OnDestroy(MessageArgs& args);
  LRESULT OnEraseBackground(MessageArgs& args);
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnSetFocus(MessageArgs& args);
  LRESULT OnKillFocus(MessageArgs& args);
  LRESULT OnEnable(MessageArgs& args);
  LRESULT OnButtonDown(MessageArgs& args);
  LRESULT OnDoubleClick(MessageArgs& args);
  LRESULT OnButtonUp(MessageArgs& args);
  LRESULT OnCaptureChanged(MessageArgs& args);
  LRESULT OnMouseMove(MessageArgs& args);
  LRESULT OnMouseLeave(MessageArgs& args);
  LRESULT OnKeyDown(MessageArgs& args);
  LRESULT OnKeyUp(MessageArgs& args);
  LRESULT OnTimer(MessageArgs& args);

  bool Is(Style style) const { return (ExtendedStyle & style) != 0; }
  bool Is(StateBit bit) const { return (State & bit) != 0; }
  bool HasCapture() const { return m_hWnd && GetCapture() == m_hWnd; }
  bool IsActive() const { return Is(Is(kHover) ? kUnderPointer : kFocused); }
  void SetState(StateBit bit, bool on);  // and repaints at once
  void Repaint();
  void SendClick();

  void Paint(HDC dc);
  int ChooseLook();
  void DrawImage(HDC dc, int image) const;
  void DrawEdges(HDC dc, const RECT& client) const;
  void DrawCaption(HDC dc, const RECT& client) const;
};

// A bitmap button with a second active zone. While the pointer is in the zone, the button shows the zone's image list;
// a click there posts kSplitZoneMessage instead of the command.
class SplitBitmapButton : public BitmapButton {
 public:
  SplitBitmapButton() = default;
  ~SplitBitmapButton() override;

  // The zone in client coordinates, and its images in the order of the button's own. The list becomes the button's
  // own, unless the style is kSharedImageList. Without a list the zone works but looks like the button.
  void SetHotZone(const RECT& zone, HIMAGELIST list);

  void SetImageList(HIMAGELIST list) override;

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  RECT HotRect = {};
  u8 HotPressed = 0;
  HIMAGELIST HotImageList = nullptr;
  HIMAGELIST SavedImageList = nullptr;

 private:
  LRESULT OnZoneDown(MessageArgs& args);
  LRESULT OnZoneUp(MessageArgs& args);
  LRESULT OnZoneMove(MessageArgs& args);

  bool IsInZone(const MessageArgs& args) const;
  void ShowZone(bool show);

  bool m_bZoneShown = false;  // the two lists are exchanged
};
