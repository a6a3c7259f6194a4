// The popup beside a taskbar of the test's own. Ticks are sent and not waited for, with periods so long that each one
// is a single step.
#include "notifier/TaskbarNotifier.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "notifier/BitmapRegion.h"
#include "toolkit/Toolkit.h"

bool operator==(const RECT& a, const RECT& b) {
  return EqualRect(&a, &b) != 0;
}
void PrintTo(const RECT& r, std::ostream* out) {
  *out << r.left << "," << r.top << " to " << r.right << "," << r.bottom;
}

namespace {

constexpr int kSlow = 400'000;  // milliseconds
constexpr COLORREF kWhite = RGB(255, 255, 255);

const int kScreenWidth = GetSystemMetrics(SM_CXSCREEN);
const int kScreenHeight = GetSystemMetrics(SM_CYSCREEN);

RECT Box(int left, int top, int width, int height) {
  return {left, top, left + width, top + height};
}

RECT PlaceOf(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  return rect;
}

// A file of 24 bits a pixel, whose pixels `colourAt` tells; it goes with this.
class BitmapFile {
 public:
  BitmapFile(int width, int height, const std::function<COLORREF(int, int)>& colourAt) {
    wchar_t folder[MAX_PATH];
    wchar_t path[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"zqn", 0, path);
    m_Path = path;
    const int stride = (width * 3 + 3) / 4 * 4;
    std::string bits(static_cast<size_t>(stride * height), '\0');
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const COLORREF colour = colourAt(x, y);
        char* const pixel = &bits[static_cast<size_t>((height - 1 - y) * stride + x * 3)];
        pixel[0] = static_cast<char>(GetBValue(colour));
        pixel[1] = static_cast<char>(GetGValue(colour));
        pixel[2] = static_cast<char>(GetRValue(colour));
      }
    }
    BITMAPINFOHEADER info = {sizeof info, width, height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    BITMAPFILEHEADER head = {0x4D42, 0, 0, 0, sizeof head + sizeof info};
    head.bfSize = head.bfOffBits + static_cast<DWORD>(bits.size());
    const auto bytes = [](const auto& of) { return std::string(reinterpret_cast<const char*>(&of), sizeof of); };
    const std::string content = bytes(head) + bytes(info) + bits;
    FILE* const file = _wfopen(path, L"wb");
    fwrite(content.data(), 1, content.size(), file);
    fclose(file);
  }
  ~BitmapFile() { DeleteFileW(m_Path); }

  JW_String m_Path;
};

const BitmapFile& Skin() {
  static const BitmapFile file(40, 30, [](int, int) { return kWhite; });
  return file;
}

// What the parent of a popup heard.
std::vector<std::pair<WPARAM, LPARAM>> g_Clicks;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kMsgNotifierClick) g_Clicks.emplace_back(wParam, lParam);
  return DefWindowProcW(window, message, wParam, lParam);
}

// Without activation, which costs seconds where there is no window manager.
HWND MakeWindow(const wchar_t* className, WNDPROC procedure, const RECT& rect) {
  WNDCLASSW info = {};
  info.lpfnWndProc = procedure;
  info.hInstance = GetModuleHandleW(nullptr);
  info.lpszClassName = className;
  RegisterClassW(&info);
  const HWND window =
      CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, className, nullptr, WS_POPUP, rect.left, rect.top,
                      rect.right - rect.left, rect.bottom - rect.top, nullptr, nullptr, info.hInstance, nullptr);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

void PumpUntil(const std::function<bool()>& done, DWORD deadline = 5000) {
  for (const DWORD start = GetTickCount(); !done() && GetTickCount() - start < deadline;) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
}

int CountWindows(const wchar_t* className) {
  int count = 0;
  for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, className, nullptr)) != nullptr;) ++count;
  return count;
}

class NotifierTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { InitToolkit(GetModuleHandleW(nullptr)); }
  static void TearDownTestSuite() { TermToolkit(); }

  void SetUp() override {
    g_Clicks.clear();
    m_hParent = MakeWindow(L"NotifierTestParent", &ParentProc, {});
  }
  void TearDown() override {
    TaskbarNotifier::CloseAll();
    DestroyWindow(m_hTaskbar);
    DestroyWindow(m_hParent);
    EXPECT_EQ(CountWindows(L"HidenParentTaskbarNotifierClass"), 0) << "the objects end with their windows";
  }

  void PutTaskbar(const RECT& rect) {
    if (m_hTaskbar) DestroyWindow(m_hTaskbar);
    m_hTaskbar = MakeWindow(L"Shell_TrayWnd", &DefWindowProcW, rect);
    ASSERT_EQ(FindWindowW(L"Shell_TrayWnd", nullptr), m_hTaskbar);
  }
  void PutTaskbarAtBottom() { PutTaskbar(Box(0, kScreenHeight - 40, kScreenWidth, 40)); }

  std::unique_ptr<TaskbarNotifier> Popup(const JW_String& skin = Skin().m_Path) {
    auto popup = std::make_unique<TaskbarNotifier>();
    EXPECT_TRUE(popup->Create(m_hParent));
    popup->SetSkin(skin, TaskbarNotifier::kNoTransparency, 0, 0);
    return popup;
  }

  // Sends ticks, as long as there is a window.
  static void Tick(const TaskbarNotifier& popup, WPARAM timer, int times = 1) {
    for (int i = 0; i < times && popup.m_hWnd; ++i) SendMessageW(popup.m_hWnd, WM_TIMER, timer, 0);
  }
  static void SlideOut(const TaskbarNotifier& popup) { Tick(popup, 1, 31); }

  HWND m_hParent = nullptr;
  HWND m_hTaskbar = nullptr;
};

TEST_F(NotifierTest, SlidesOutOfTheTaskbarAndBackAtEachSide) {
  const int right = kScreenWidth;
  const int bottom = kScreenHeight;
  const struct {
    const char* side;
    RECT taskbar, firstTick, out, back;
    bool ends;
  } cases[] = {
      {"left", Box(0, 0, 60, bottom), Box(61, bottom - 1, 40, 1), Box(61, bottom - 30, 40, 30),
       Box(61, bottom - 10, 40, 10), false},
      {"top", Box(0, 0, right, 50), Box(right - 41, 21, 40, 1), Box(right - 41, 50, 40, 30),
       Box(right - 41, 80, 40, 10), true},
      {"right", Box(right - 60, 0, 60, bottom), Box(right - 101, bottom - 1, 40, 1),
       Box(right - 101, bottom - 30, 40, 30), Box(right - 101, bottom - 10, 40, 10), false},
      {"bottom", Box(0, bottom - 50, right, 50), Box(right - 41, bottom - 51, 40, 1),
       Box(right - 41, bottom - 80, 40, 30), Box(right - 41, bottom - 65, 40, 15), true},
      {"bottom, 19 pixels off",
       {-19, bottom - 50, right + 19, bottom},
       Box(right - 22, bottom - 51, 40, 1),
       Box(right - 22, bottom - 80, 40, 30),
       Box(right - 22, bottom - 65, 40, 15),
       true},
      {"none",
       {},
       Box(right - 41, bottom - 1, 40, 1),
       Box(right - 41, bottom - 30, 40, 30),
       Box(right - 41, bottom - 15, 40, 15),
       true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.side);
    PutTaskbar(c.taskbar);
    const auto popup = Popup();
    popup->Show(L"text", kSlow, kSlow, 20);
    EXPECT_TRUE(IsWindowVisible(popup->m_hWnd));
    Tick(*popup, 1);
    EXPECT_EQ(PlaceOf(popup->m_hWnd), c.firstTick);
    SlideOut(*popup);
    EXPECT_EQ(PlaceOf(popup->m_hWnd), c.out);
    Tick(*popup, 2);
    EXPECT_EQ(PlaceOf(popup->m_hWnd), c.out);
    Tick(*popup, 3);
    EXPECT_EQ(PlaceOf(popup->m_hWnd), c.back);
    Tick(*popup, 3, 500);
    EXPECT_EQ(popup->m_hWnd == nullptr, c.ends);
  }
}

TEST_F(NotifierTest, DividesTheTimesAndAccelerates) {
  PutTaskbarAtBottom();
  const BitmapFile skin(20, 100, [](int, int) { return kWhite; });
  const auto height = [](const TaskbarNotifier& popup) {
    return PlaceOf(popup.m_hWnd).bottom - PlaceOf(popup.m_hWnd).top;
  };

  // 400 ms make 40 intervals of 10 ms and 2 pixels, and 100 ms make 10 of 10 pixels.
  auto popup = Popup(skin.m_Path);
  const DWORD start = GetTickCount();
  popup->Show(L"text", 400, kSlow, 100);
  Tick(*popup, 1);
  const long first = height(*popup);
  EXPECT_GE(first, 2);
  EXPECT_LE(first, 2 * std::max(1L, static_cast<long>(GetTickCount() - start) / 10));
  while (GetTickCount() - start < 60) Sleep(1);
  Tick(*popup, 1, 2);
  EXPECT_GE(height(*popup), std::min(100L, first + 2 * 12)) << "the elapsed time counts from the start of the phase";
  Tick(*popup, 1, 40);
  Tick(*popup, 2);
  Tick(*popup, 3);
  EXPECT_EQ(height(*popup), 90);

  // A hide too short to be divided sets the period of the show.
  popup = Popup(skin.m_Path);
  const DWORD again = GetTickCount();
  popup->Show(L"text", kSlow, kSlow, 10);
  while (GetTickCount() - again < 60) Sleep(1);
  Tick(*popup, 1);
  EXPECT_GE(height(*popup), 6);
  SlideOut(*popup);
  Tick(*popup, 1, 70);
  Tick(*popup, 2);
  Tick(*popup, 3);
  EXPECT_EQ(height(*popup), 0) << "and moves all the way at once";

  // Times of nothing, or less, divide nothing.
  popup = Popup(skin.m_Path);
  popup->Show(L"text", -5, 0, INT_MIN);
  Tick(*popup, 1);
  EXPECT_EQ(height(*popup), 100);
  Tick(*popup, 1);
  Tick(*popup, 2);
  Tick(*popup, 3, 3);
  EXPECT_EQ(popup->m_hWnd, nullptr);
}

TEST_F(NotifierTest, ShowAgainRestartsTheStay) {
  PutTaskbarAtBottom();
  const auto popup = Popup();
  const HWND window = popup->m_hWnd;
  popup->Show(L"one", kSlow, kSlow, 20);
  SlideOut(*popup);
  const RECT out = PlaceOf(window);
  const auto isUpToDate = [window] { return GetUpdateRect(window, nullptr, FALSE) == 0; };

  popup->Show(L"two", kSlow, 50, 20);
  EXPECT_TRUE(isUpToDate()) << "the new text is painted at once";
  Tick(*popup, 2);
  Tick(*popup, 3);
  EXPECT_FALSE(PlaceOf(window) == out);
  popup->Show(L"three", kSlow, 50, 20);
  EXPECT_EQ(PlaceOf(window), out);
  EXPECT_TRUE(isUpToDate());
  PumpUntil([&] { return !popup->m_hWnd; });
  EXPECT_FALSE(IsWindow(window)) << "its own timers bring it to the end";
  popup->Show(L"four", kSlow, kSlow, 20);
  popup->Hide();
}

TEST_F(NotifierTest, GrowingPopupsPushTheOlderOnesAway) {
  for (const bool isTop : {false, true}) {
    SCOPED_TRACE(isTop);
    PutTaskbar(Box(0, isTop ? 0 : kScreenHeight - 40, kScreenWidth, 40));
    std::vector<std::unique_ptr<TaskbarNotifier>> popups;
    for (int i = 0; i < 3; ++i) {
      popups.push_back(Popup());
      popups.back()->Show(L"text", kSlow, kSlow, 20);
      SlideOut(*popups.back());
    }
    const LONG first = isTop ? 40 : kScreenHeight - 70;
    const LONG step = isTop ? 30 : -30;
    EXPECT_EQ(PlaceOf(popups[2]->m_hWnd).top, first);
    EXPECT_EQ(PlaceOf(popups[1]->m_hWnd).top, first + step);
    EXPECT_EQ(PlaceOf(popups[0]->m_hWnd).top, first + 2 * step);

    // A push from a stranger is clamped, and moves what stands further out.
    SendMessageW(popups[1]->m_hWnd, kMsgNotifierPush, 5, 0);
    EXPECT_EQ(PlaceOf(popups[0]->m_hWnd).top, first + 2 * step + step / 6);
    SendMessageW(popups[0]->m_hWnd, kMsgNotifierPush, static_cast<WPARAM>(INT_MIN), 0);
    SendMessageW(popups[0]->m_hWnd, kMsgNotifierPush, INT_MAX, 0);
  }
}

TEST_F(NotifierTest, AnswersTheMouse) {
  PutTaskbarAtBottom();
  const BitmapFile skin(181, 100, [](int, int) { return kWhite; });
  TaskbarNotifier* const popup = TaskbarNotifier::ShowNotifier(m_hParent, L"MMMM", skin.m_Path);
  ASSERT_NE(popup, nullptr);
  const HWND window = popup->m_hWnd;
  EXPECT_EQ(GetWindow(GetWindow(window, GW_OWNER), GW_OWNER), nullptr);
  Tick(*popup, 1, 200);
  const HWND focus = GetFocus();
  const auto send = [window](UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageW(window, message, wParam, lParam);
  };
  const auto colours = [window] {
    const WindowContext dc(window);
    int black = 0, hot = 0;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 181; ++x) {
        const COLORREF colour = GetPixel(dc.get(), x, y);
        const bool isInside = x >= 10 && x < 171 && y >= 45 && y < 91;
        EXPECT_TRUE(isInside || colour == kWhite) << x << "," << y;
        black += colour == 0;
        hot += colour == 0xC80000;
      }
    }
    return std::make_pair(black > 0, hot > 0);
  };

  UpdateWindow(window);
  send(WM_MOUSEMOVE, 0, MAKELPARAM(20, 50));
  EXPECT_EQ(colours(), std::make_pair(true, false));
  send(WM_MOUSEHOVER, 0, MAKELPARAM(20, 50));
  EXPECT_EQ(colours(), std::make_pair(false, true));
  send(WM_MOUSELEAVE, 0, 0);
  EXPECT_EQ(colours(), std::make_pair(true, false));

  EXPECT_EQ(send(WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)), TRUE);
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_HAND));
  EXPECT_EQ(send(WM_MOUSEACTIVATE, 0, MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)), MA_NOACTIVATE);
  EXPECT_EQ(GetFocus(), focus);

  const POINT kept[] = {{10, 45}, {170, 90}, {171, 90}, {9, 45}, {164, 4}, {165, 3}, {180, 19}, {170, 20}};
  for (const POINT& point : kept) send(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
  PumpUntil([] { return g_Clicks.size() >= 2; });
  EXPECT_THAT(g_Clicks, testing::ElementsAre(std::make_pair(0u, -1L), std::make_pair(0u, -1L)));
  EXPECT_TRUE(IsWindow(window));
  send(WM_LBUTTONUP, 0, MAKELPARAM(165, 4));
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(NotifierTest, WithoutItsPictureNothingIsSeenAndItEnds) {
  PutTaskbarAtBottom();
  for (const wchar_t* const path : {L"", L"no such folder\\VCMsgNotify.bmp"}) {
    TaskbarNotifier* const popup = TaskbarNotifier::ShowNotifier(nullptr, L"text", path);
    ASSERT_NE(popup, nullptr);
    const HWND window = popup->m_hWnd;
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(20, 50));
    for (const WPARAM timer : {1u, 1u, 2u}) SendMessageW(window, WM_TIMER, timer, 0);
    const RECT place = PlaceOf(window);
    EXPECT_TRUE(IsRectEmpty(&place));
    SendMessageW(window, WM_TIMER, 3, 0);
    EXPECT_FALSE(IsWindow(window));
  }
  const auto popup = Popup();
  EXPECT_FALSE(popup->SetSkin(L"none.bmp", 0, 0, 0));
  EXPECT_FALSE(popup->Create(m_hParent));
  popup->Show(L"text", 0, 0, 0);
  Tick(*popup, 1);
  EXPECT_EQ(PlaceOf(popup->m_hWnd).bottom - PlaceOf(popup->m_hWnd).top, 30) << "the old picture is kept";

  const JW_String folder = TaskbarNotifier::GetSkinDirectory();
  EXPECT_THAT(std::wstring(folder), testing::EndsWith(L"\\confskin\\"));
}

// '#' is opaque in the picture and inside the region.
TEST_F(NotifierTest, CutsTheKeyColourOutOfTheWindow) {
  using Rows = std::vector<std::string>;
  const auto regionOf = [](const Rows& picture, const OwnedRegion& region) {
    Rows seen;
    for (size_t y = 0; y < picture.size(); ++y) {
      std::string row;
      for (size_t x = 0; x < picture[y].size(); ++x) {
        row += PtInRegion(region.get(), static_cast<int>(x), static_cast<int>(y)) ? '#' : '.';
      }
      seen.push_back(row);
    }
    return seen;
  };
  std::string comb = ".";
  for (int tooth = 0; tooth < 100; ++tooth) comb += "#...";
  const std::pair<Rows, Rows> shapes[] = {
      {{".##..", ".##..", "....."}, {".##..", ".##..", "....."}},
      {{comb, comb}, {comb, comb}},
      {{"#####", "..###", "#####"}, {"#####", "..###", "#####"}},
      // A run that is closed in the last column includes it.
      {{"####.", ".###."}, {"#####", ".####"}},
      // A run opened by the last pixel goes on in the row above, and is lost above the top.
      {{"##...", "....#"}, {"..##.", "....."}},
      {{"#####", "....#"}, {"....#", "....."}},
      {{"....#"}, {"....."}},
      {{"#", "#", "#"}, {".", "#", "."}},
  };
  for (const auto& [picture, expected] : shapes) {
    const BitmapFile file(static_cast<int>(picture[0].size()), static_cast<int>(picture.size()), [&](int x, int y) {
      return picture[static_cast<size_t>(y)][static_cast<size_t>(x)] == '#' ? kWhite : RGB(255, 0, 254);
    });
    const auto popup = Popup();
    ASSERT_TRUE(popup->SetSkin(file.m_Path, 255, 0, 254));
    const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
    GetWindowRgn(popup->m_hWnd, region.get());
    EXPECT_EQ(regionOf(picture, region), expected);
    ASSERT_TRUE(popup->SetSkin(file.m_Path, 255, TaskbarNotifier::kNoTransparency, 254));
    EXPECT_EQ(GetWindowRgn(popup->m_hWnd, region.get()), ERROR) << "a skin without transparency is rectangular";
  }
  EXPECT_EQ(CreateRegionFromBitmap(nullptr, 0).get(), nullptr);
}

TEST_F(NotifierTest, LeavesNoHandleBehind) {
  PutTaskbarAtBottom();
  // Free handles are used again, so the number of a new one tells how many are in use.
  const auto nextNumbers = [this] {
    const OwnedBrush brush(CreateSolidBrush(0x123456));
    const HWND window = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, m_hParent, nullptr, nullptr, nullptr);
    DestroyWindow(window);
    return std::make_pair(LOWORD(brush.get()), LOWORD(window));
  };
  const auto openAndClose = [this](int how) {
    TaskbarNotifier* const popup = TaskbarNotifier::ShowNotifier(m_hParent, L"text", Skin().m_Path);
    ASSERT_NE(popup, nullptr);
    const HWND window = popup->m_hWnd;
    Tick(*popup, 1, 2);
    switch (how) {
      case 0:
        popup->Hide();
        break;
      case 1:
        SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(170, 10));
        break;
      case 2:
        for (int i = 0; i < 50 && IsWindow(window); ++i) SendMessageW(window, WM_TIMER, 3, 0);
        break;
      case 3:
        DestroyWindow(GetWindow(window, GW_OWNER));
        break;
      default:
        TaskbarNotifier::CloseAll();
    }
    EXPECT_FALSE(IsWindow(window)) << how;
  };
  for (int how = 0; how < 5; ++how) openAndClose(how);
  const auto before = nextNumbers();
  for (int i = 0; i < 1000; ++i) openAndClose(i % 5);
  const auto after = nextNumbers();
  EXPECT_LE(after.first, before.first + 20);
  EXPECT_LE(after.second, before.second + 20);
  WNDCLASSW info;
  EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"HidenParentTaskbarNotifierClass", &info));
}

}  // namespace
