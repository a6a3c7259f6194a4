// The base of all elements of a question's page. An element is no window: it paints itself into the device context of
// a hosting window, takes mouse events from it, and keeps its geometry in the window's content coordinates, which are
// its client coordinates with the scroll position added to y. Pixels throughout; all on the window's thread.
#pragma once

#include "platform/windows/Windows.h"

// Sent to the owner by the destructor of each element: wParam is the element, lParam 0, the result is ignored. The
// owner forgets the element if it is its hot one; the object is half gone and may only be compared.
constexpr UINT kMsgElementDestroyed = 0x4A0;

enum VoteMouseEvent {
  kMouseOver = 0,  // the pointer moved over the element
  kMouseLeave = 1,
  kMouseDown = 2,  // the left button
  kMouseUp = 3,
};

// Derived classes add their virtual operations to the end of the base's.
class VoteDrawItem {
 public:
  // Tells the owner, if it is still a window. Runs last for every element.
  virtual ~VoteDrawItem();

  // Computes the height and the inner geometry from the width and the content.
  virtual bool Recalc() = 0;
  // `clip` is in client coordinates; `scrollY` is subtracted from every y. False if nothing was drawn.
  virtual bool Paint(HDC dc, RECT clip, int scrollY) = 0;

  // The positions are abstract because some elements move inner rectangles along.
  virtual void SetWidth(int width) = 0;
  virtual int GetWidth() const { return Width; }
  virtual int GetHeight() const { return Height; }
  virtual void SetTop(int top) = 0;
  virtual int GetTop() const { return Top; }
  virtual void SetLeft(int left) = 0;
  virtual int GetLeft() const { return Left; }
  // Writes the four fields and moves nothing along.
  virtual void SetBounds(int top, int left, int width, int height);
  virtual void GetBounds(RECT* rect) const;

  // Inclusive on all four edges, unlike PtInRect. Content coordinates.
  virtual bool HitTest(int x, int y) const;

  // The window stays its owner's. Null takes the element out of use: it paints nothing.
  virtual void SetOwner(HWND window) { Owner = window; }
  // Whether there is an owner, and it is still a window.
  virtual bool HasOwner() const { return Owner && IsWindow(Owner); }

  // `event` is a VoteMouseEvent; x and y are content coordinates, and without meaning for kMouseLeave.
  virtual void OnMouse(int event, int x, int y);
  // The whole owner window is to be painted, without erasing.
  virtual void Invalidate();

 protected:
  VoteDrawItem() = default;
  VoteDrawItem(const VoteDrawItem&) = delete;
  VoteDrawItem& operator=(const VoteDrawItem&) = delete;

  // The element's rectangle in client coordinates.
  RECT ClientBounds(int scrollY) const;
  // Whether there is anything to paint: an owner, and a rectangle that meets `clip`.
  bool IsInView(const RECT& clip, int scrollY) const;

  int Top = 0;
  int Left = 0;
  int Width = 0;
  int Height = 0;
  HWND Owner = nullptr;
};
