// Owners of the system's drawing handles: each releases what it holds when it ends. None can be copied; the handle
// owners can be moved. A null handle is always allowed and never released.
#pragma once

#include <utility>

#include "platform/windows/Windows.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

// One handle with its release. get() lends it, release() hands it over, reset() ends it.
template <class Handle, class Release>
class OwnedHandle {
 public:
  OwnedHandle() = default;
  explicit OwnedHandle(Handle handle) : m_Handle(handle) {}
  OwnedHandle(OwnedHandle&& other) noexcept : m_Handle(other.release()) {}
  OwnedHandle& operator=(OwnedHandle&& other) noexcept {
    reset(other.release());
    return *this;
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;
  ~OwnedHandle() { reset(); }

  Handle get() const { return m_Handle; }
  explicit operator bool() const { return m_Handle != nullptr; }
  Handle release() { return std::exchange(m_Handle, nullptr); }
  void reset(Handle handle = nullptr) {
    const Handle old = std::exchange(m_Handle, handle);
    if (old && old != handle) Release()(old);
  }

 private:
  Handle m_Handle = nullptr;
};

struct ReleaseGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct ReleaseImageList {
  void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
struct ReleaseMenu {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};

using OwnedBitmap = OwnedHandle<HBITMAP, ReleaseGdiObject>;
using OwnedBrush = OwnedHandle<HBRUSH, ReleaseGdiObject>;
using OwnedPen = OwnedHandle<HPEN, ReleaseGdiObject>;
using OwnedFont = OwnedHandle<HFONT, ReleaseGdiObject>;
using OwnedRegion = OwnedHandle<HRGN, ReleaseGdiObject>;
using OwnedImageList = OwnedHandle<HIMAGELIST, ReleaseImageList>;
using OwnedMenu = OwnedHandle<HMENU, ReleaseMenu>;

// Between BeginPaint and EndPaint of a window. get() is null if the window is gone.
class PaintContext {
 public:
  explicit PaintContext(HWND window) : m_hWindow(window), m_hDc(BeginPaint(window, &m_Paint)) {}
  ~PaintContext() {
    if (m_hDc) EndPaint(m_hWindow, &m_Paint);
  }
  PaintContext(const PaintContext&) = delete;
  PaintContext& operator=(const PaintContext&) = delete;

  HDC get() const { return m_hDc; }
  const RECT& UpdateRect() const { return m_Paint.rcPaint; }

 private:
  HWND m_hWindow;
  PAINTSTRUCT m_Paint = {};
  HDC m_hDc;
};

// The context of a window's client area, or of the screen for a null window.
class WindowContext {
 public:
  explicit WindowContext(HWND window) : m_hWindow(window), m_hDc(GetDC(window)) {}
  ~WindowContext() {
    if (m_hDc) ReleaseDC(m_hWindow, m_hDc);
  }
  WindowContext(const WindowContext&) = delete;
  WindowContext& operator=(const WindowContext&) = delete;

  HDC get() const { return m_hDc; }

 private:
  HWND m_hWindow;
  HDC m_hDc;
};

// A memory context compatible with `dc`.
class MemoryContext {
 public:
  explicit MemoryContext(HDC dc) : m_hDc(CreateCompatibleDC(dc)) {}
  ~MemoryContext() {
    if (m_hDc) DeleteDC(m_hDc);
  }
  MemoryContext(const MemoryContext&) = delete;
  MemoryContext& operator=(const MemoryContext&) = delete;

  HDC get() const { return m_hDc; }

 private:
  HDC m_hDc;
};

// An object selected into a context for as long as this lives. Selecting null does nothing. Declare it after the
// object and after the context, so that it ends first.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : m_hDc(dc), m_hOld(dc && object ? SelectObject(dc, object) : nullptr) {}
  ~Selection() {
    if (m_hOld) SelectObject(m_hDc, m_hOld);
  }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC m_hDc;
  HGDIOBJ m_hOld;
};

// Colours, modes, selections and clipping of a context, as they were, once this ends.
class SavedContext {
 public:
  explicit SavedContext(HDC dc) : m_hDc(dc), m_nState(SaveDC(dc)) {}
  ~SavedContext() {
    if (m_nState) RestoreDC(m_hDc, m_nState);
  }
  SavedContext(const SavedContext&) = delete;
  SavedContext& operator=(const SavedContext&) = delete;

 private:
  HDC m_hDc;
  int m_nState;
};

// Double buffering: draw into get(), which covers (0, 0) to (width, height), then Present() copies it to the target.
// get() is null for an empty size or where memory runs out.
class PaintBuffer {
 public:
  PaintBuffer(HDC target, int width, int height)
      : m_hTarget(target),
        m_nWidth(width),
        m_nHeight(height),
        m_Bitmap(width > 0 && height > 0 ? CreateCompatibleBitmap(target, width, height) : nullptr),
        m_Context(target),
        m_Selection(m_Context.get(), m_Bitmap.get()) {}

  HDC get() const { return m_Bitmap ? m_Context.get() : nullptr; }
  void Present() const {
    if (get()) BitBlt(m_hTarget, 0, 0, m_nWidth, m_nHeight, get(), 0, 0, SRCCOPY);
  }

 private:
  HDC m_hTarget;
  int m_nWidth;
  int m_nHeight;
  OwnedBitmap m_Bitmap;
  MemoryContext m_Context;
  Selection m_Selection;
};

// Paints a bitmap into a rectangle: stretched over all of it, or in its own size and centred. A null bitmap paints
// nothing.
void DrawBitmapInRect(HBITMAP bitmap, HDC dc, const RECT& rect, bool stretch);
