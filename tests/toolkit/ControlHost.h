// A parent that records what its controls tell it, and the means to drive and to look at them.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/toolkit/ToolkitEnvironment.h"
#include "toolkit/BitmapButton.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/WindowBase.h"

using Lines = std::vector<std::string>;

// Each notification is a line: "command 7", with " code 5" for another code than a click's, "zone 7" or
// "notify 7 pos 3 delta -1".
class ControlHost : public RegisteredWindow<ControlHost> {
 public:
  ControlHost() {
    const RECT place = {20, 20, 620, 420};
    Create(nullptr, &place, L"", WS_POPUP);
    // An active window would wait for a window manager, which a bare display hasn't.
    ShowWindow(m_hWnd, SW_SHOWNOACTIVATE);
  }
  ~ControlHost() override { DestroyWindow(); }
  static WindowClassInfo& WindowClass() {
    static WindowClassInfo info = DescribeWindowClass(nullptr, 0, COLOR_WINDOW + 1);
    return info;
  }

  // What was told since the last call, posted messages included.
  Lines Take() {
    for (MSG message; PeekMessageW(&message, m_hWnd, kSplitZoneMessage, kSplitZoneMessage, PM_REMOVE);) {
      DispatchMessageW(&message);
    }
    return std::exchange(m_Lines, {});
  }
  std::function<void()> m_OnTold;  // runs while the control waits for its parent

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) override {
    MessageMap map(this, window, message, wParam, lParam, result);
    return map.On(WM_COMMAND, &ControlHost::OnTold) || map.On(WM_NOTIFY, &ControlHost::OnTold) ||
           map.On(kSplitZoneMessage, &ControlHost::OnTold) || map.ReflectToChild();
  }

 private:
  LRESULT OnTold(MessageArgs& args) {
    const std::string id = std::to_string(LOWORD(args.WParam));
    if (args.Message == WM_COMMAND) {
      m_Lines.push_back("command " + id + (args.Code() ? " code " + std::to_string(args.Code()) : ""));
    } else if (args.Message == WM_NOTIFY) {
      const auto* const step = args.Notification<NMUPDOWN>();
      EXPECT_EQ(step->hdr.idFrom, args.WParam);
      EXPECT_EQ(step->hdr.code, 0xFFFFFD2Eu);
      m_Lines.push_back("notify " + id + " pos " + std::to_string(step->iPos) + " delta " +
                        std::to_string(step->iDelta));
    } else {
      m_Lines.push_back("zone " + id);
    }
    if (m_OnTold) std::exchange(m_OnTold, nullptr)();
    return 0;
  }

  Lines m_Lines;
};

inline LRESULT Mouse(HWND window, UINT message, int x, int y) {
  return SendMessageW(window, message, 0, MAKELPARAM(x, y));
}

// Dispatches what is queued until `done`, for five seconds at most.
inline bool PumpUntil(const std::function<bool()>& done) {
  const DWORD start = GetTickCount();
  while (!done()) {
    if (GetTickCount() - start > 5000) return false;
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
  return true;
}

// A bitmap to paint into and to probe, white at first.
class Canvas {
 public:
  Canvas(int width, int height)
      : m_Screen(nullptr),
        m_Bitmap(CreateCompatibleBitmap(m_Screen.get(), width, height)),
        m_Context(m_Screen.get()),
        m_Selection(m_Context.get(), m_Bitmap.get()) {
    PatBlt(m_Context.get(), 0, 0, width, height, WHITENESS);
  }
  HDC dc() const { return m_Context.get(); }
  COLORREF At(int x, int y) const { return GetPixel(m_Context.get(), x, y); }

 private:
  WindowContext m_Screen;
  OwnedBitmap m_Bitmap;
  MemoryContext m_Context;
  Selection m_Selection;
};

// Frames of one colour each, side by side.
inline OwnedBitmap MakeStrip(int width, int height, const std::vector<COLORREF>& colors) {
  const WindowContext screen(nullptr);
  OwnedBitmap strip(CreateCompatibleBitmap(screen.get(), width * static_cast<int>(colors.size()), height));
  const MemoryContext context(screen.get());
  const Selection selection(context.get(), strip.get());
  RECT frame = {0, 0, width, height};
  for (const COLORREF color : colors) {
    const OwnedBrush brush(CreateSolidBrush(color));
    FillRect(context.get(), &frame, brush.get());
    OffsetRect(&frame, width, 0);
  }
  return strip;
}

// Runs `cycle` a thousand times and expects no drawing handle and no window to be left over. New handles take the
// places that were freed last, so a place far behind those of before means that some were not freed.
inline void ExpectLevelHandles(const std::function<void()>& cycle) {
  const auto nextPlaces = [] {
    const OwnedBrush brush(CreateSolidBrush(0x123456));
    const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    DestroyWindow(window);
    return std::pair(LOWORD(reinterpret_cast<ULONG_PTR>(brush.get())), LOWORD(reinterpret_cast<ULONG_PTR>(window)));
  };
  for (int i = 0; i < 10; ++i) cycle();
  const auto before = nextPlaces();
  for (int i = 0; i < 1000; ++i) cycle();
  const auto after = nextPlaces();
  EXPECT_LT(std::abs(after.first - before.first), 200) << "drawing handles";
  EXPECT_LT(std::abs(after.second - before.second), 400) << "windows";
}
