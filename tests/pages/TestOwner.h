// A window that owns page elements, and a bitmap to paint them into.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "pages/VoteCommandPost.h"
#include "pages/VoteDrawItem.h"
#include "toolkit/GdiHandles.h"

// Remembers which element went away last, and collects the commands that are posted to it.
class TestOwner {
 public:
  TestOwner() {
    WNDCLASSW description = {};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"PageElementTestOwner";
    RegisterClassW(&description);
    m_hWnd = CreateWindowExW(0, description.lpszClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, 400, 400, Frame(), nullptr,
                             description.hInstance, nullptr);
    SetWindowLongPtrW(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(m_pState.get()));
  }
  ~TestOwner() { DestroyWindow(m_hWnd); }
  TestOwner(const TestOwner&) = delete;
  TestOwner& operator=(const TestOwner&) = delete;

  HWND Get() const { return m_hWnd; }
  const void* LastDestroyed() const { return m_pState->lastDestroyed; }
  void Validate() const { ValidateRect(m_hWnd, nullptr); }
  bool IsInvalid() const { return GetUpdateRect(m_hWnd, nullptr, FALSE) != 0; }

  // The commands that wait in the queue, oldest first.
  std::vector<VoteUiCommand> TakeCommands() {
    std::vector<VoteUiCommand> commands;
    for (MSG message; PeekMessageW(&message, m_hWnd, kMsgUiCommand, kMsgUiCommand, PM_REMOVE);) {
      const std::unique_ptr<VoteUiCommand> command(reinterpret_cast<VoteUiCommand*>(message.wParam));
      commands.push_back(*command);
    }
    return commands;
  }

 private:
  struct State {
    const void* lastDestroyed = nullptr;
  };

  // One for the whole program: without a window manager each top-level window takes Wine two seconds.
  static HWND Frame() {
    static const HWND frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 400,
                                              400, nullptr, nullptr, nullptr, nullptr);
    return frame;
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const state = reinterpret_cast<State*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == kMsgElementDestroyed && state) state->lastDestroyed = reinterpret_cast<void*>(wParam);
    return DefWindowProcW(window, message, wParam, lParam);
  }

  HWND m_hWnd;
  std::unique_ptr<State> m_pState = std::make_unique<State>();
};

// A 24-bit picture in memory, filled with one colour.
class BitmapCanvas {
 public:
  BitmapCanvas(int width, int height, COLORREF color = 0xFFFFFF) : m_nWidth(width), m_nHeight(height) {
    const BITMAPINFO info = {{sizeof(BITMAPINFOHEADER), width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0}, {}};
    void* bits = nullptr;
    m_Bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    m_hOld = SelectObject(m_Context.get(), m_Bitmap.get());
    Fill(color);
  }
  ~BitmapCanvas() { SelectObject(m_Context.get(), m_hOld); }
  BitmapCanvas(const BitmapCanvas&) = delete;
  BitmapCanvas& operator=(const BitmapCanvas&) = delete;

  HDC dc() const { return m_Context.get(); }
  void Fill(COLORREF color) const {
    const RECT all = {0, 0, m_nWidth, m_nHeight};
    SetBkColor(dc(), color);
    ExtTextOutW(dc(), 0, 0, ETO_OPAQUE, &all, nullptr, 0, nullptr);
  }
  // The picture, no longer selected for drawing; it stays this object's.
  HBITMAP ReleaseSelected() const {
    SelectObject(dc(), m_hOld);
    return m_Bitmap.get();
  }

 private:
  int m_nWidth;
  int m_nHeight;
  MemoryContext m_Context{nullptr};
  OwnedBitmap m_Bitmap;
  HGDIOBJ m_hOld;
};
