// How many drawing, window and kernel handles are in use, for tests that look for leaks.
#pragma once

#include <algorithm>
#include <ostream>

#include "platform/windows/Windows.h"

// Wine 8 doesn't count a process's drawing and window handles (GetGuiResources answers 0). It does fill the gaps of its
// handle tables before it uses a new place, so with more fresh handles than gaps the highest number tells how many
// handles there are. Other programs on the same desktop may move the count of window handles a little.
struct HandleLevel {
  int Gdi = 0;
  int User = 0;
  DWORD Kernel = 0;

  static HandleLevel Now() {
    HandleLevel level;
    level.Gdi =
        InUse([] { return static_cast<HANDLE>(CreateSolidBrush(0)); }, [](HANDLE brush) { DeleteObject(brush); });
    level.User = InUse([] { return static_cast<HANDLE>(CreateMenu()); },
                       [](HANDLE menu) { DestroyMenu(static_cast<HMENU>(menu)); });
    GetProcessHandleCount(GetCurrentProcess(), &level.Kernel);
    return level;
  }

  // A thousand rounds that leak anything move a count by hundreds.
  friend bool operator==(const HandleLevel& a, const HandleLevel& b) {
    return abs(a.Gdi - b.Gdi) < kTolerance && abs(a.User - b.User) < kTolerance && a.Kernel == b.Kernel;
  }
  friend std::ostream& operator<<(std::ostream& out, const HandleLevel& level) {
    return out << "gdi " << level.Gdi << ", user " << level.User << ", kernel " << level.Kernel;
  }

 private:
  static constexpr int kFresh = 1500;
  static constexpr int kTolerance = 20;

  template <class Make, class End>
  static int InUse(Make make, End end) {
    static HANDLE fresh[kFresh];
    int highest = 0;
    for (HANDLE& handle : fresh) {
      handle = make();
      highest = std::max<int>(highest, LOWORD(reinterpret_cast<UINT_PTR>(handle)));
    }
    for (const HANDLE handle : fresh) end(handle);
    return highest - kFresh;
  }
};
