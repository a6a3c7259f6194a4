// The base of the windows that show questions' pages: one column of pages with a vertical scroll bar, painted through
// a buffer of the client area's size. Pages and their elements are no windows; their coordinates are the content's,
// that is the client's with m_nScroll added to y.
#pragma once

#include "toolkit/WindowBase.h"

class VotePageList : public RegisteredWindow<VotePageList> {
 public:
  static WindowClassInfo& WindowClass();

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                            DWORD mapId) override;

 protected:
  static constexpr int kTopMargin = 10;

  // `page` is the scroll bar's page. `lastRange` is the scroll range of the last update of any window of the derived
  // class, which keeps a window's relative place when its content or height changes. All windows of a class share it,
  // so two of them disturb each other's place.
  VotePageList(int page, int* lastRange) : m_nPage(page), m_pLastRange(lastRange) {}

  // Places everything for a client area of `width` and returns the height of the content.
  virtual int LayOut(int width) = 0;
  virtual bool HasContent() const = 0;
  // Without it a paint does nothing at all.
  virtual bool CanPaint() const { return true; }
  // `clip` is in client coordinates.
  virtual void PaintContent(HDC dc, const RECT& clip) = 0;
  // The content moved under the pointer.
  virtual void OnContentMoved() {}
  // False to stop: the window is gone.
  virtual bool OnScrollStart() { return true; }

  // Everything is laid out anew and painted.
  void Redraw();
  void InvalidateIfVisible();
  // Puts the focus here. False if the window is gone after that; the object may be gone too.
  bool TakeFocus();

  int m_nScroll = 0;
  int m_nContent = 0;
  bool m_bLayout = true;  // the pages must be laid out before the next paint
  COLORREF m_crBack = 0xFFFBF2;
  RECT m_rcClient = {};

 private:
  LRESULT OnEraseBackground(MessageArgs& args);
  LRESULT OnPaint(MessageArgs& args);
  LRESULT OnSize(MessageArgs& args);
  LRESULT OnVScroll(MessageArgs& args);
  LRESULT OnMouseWheel(MessageArgs& args);

  void LayOutIfNeeded();
  void UpdateScrollBar();
  int ClientHeight() const { return m_rcClient.bottom - m_rcClient.top; }
  // The offset that a WM_VSCROLL asks for, before it is brought into the content.
  int RequestedScroll(UINT request) const;

  const int m_nPage;
  int* const m_pLastRange;
};
