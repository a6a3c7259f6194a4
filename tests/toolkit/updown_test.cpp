// The flat button and the up-down control made of two of them.
#include "toolkit/UpDownCtrl.h"

#include <memory>

#include "tests/toolkit/ControlHost.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr COLORREF kFirst = 0x0000FF;
constexpr COLORREF kSecond = 0x00FF00;
constexpr COLORREF kThird = 0xFF0000;

class TestFlatButton : public FlatButton {
 public:
  // Paints the item into a canvas of its own; the state is that of the system.
  void Draw(const Canvas& canvas, UINT itemState) const {
    DRAWITEMSTRUCT item = {};
    item.hwndItem = m_hWnd;
    item.itemState = itemState;
    item.hDC = canvas.dc();
    item.rcItem = {0, 0, 20, 12};
    EXPECT_EQ(SendMessageW(m_hWnd, WM_DRAWITEM + kReflected, 1, reinterpret_cast<LPARAM>(&item)), TRUE);
  }
  HWND Tip() const { return ToolTip; }
};

TEST(FlatButton, TakesItsFrameByState) {
  ControlHost host;
  TestFlatButton button;
  button.Create(host.m_hWnd, nullptr, nullptr, WS_CHILD | WS_VISIBLE, 0, 5);
  EXPECT_EQ(GetWindowLongW(button.m_hWnd, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
  const OwnedBitmap three = MakeStrip(10, 8, {kFirst, kSecond, kThird});
  const OwnedBitmap two = MakeStrip(10, 8, {kFirst, kSecond});
  const auto look = [&](HBITMAP strip, bool threeFrames, bool hover, UINT itemState, bool disabled = false) {
    button.SetBitmap(strip, threeFrames);
    button.SetDisabled(disabled);
    SendMessageW(button.m_hWnd, hover ? WM_MOUSEHOVER : WM_MOUSELEAVE, 0, 0);
    const Canvas canvas(40, 20);
    button.Draw(canvas, itemState);
    EXPECT_EQ(canvas.At(10, 4), 0xFFFFFFu) << "one frame only";
    return canvas.At(4, 4);
  };
  EXPECT_EQ(look(three.get(), true, false, 0), kFirst);
  EXPECT_EQ(look(three.get(), true, true, 0), kSecond);
  EXPECT_EQ(look(three.get(), true, true, ODS_SELECTED), kThird);
  EXPECT_EQ(look(three.get(), true, true, 0, true), kThird);
  EXPECT_EQ(look(two.get(), false, false, ODS_SELECTED), kFirst) << "two frames have no pressed look";
  EXPECT_EQ(look(two.get(), false, true, ODS_SELECTED, true), kSecond);
}

TEST(FlatButton, DrawsAThinFrameWithoutABitmap) {
  ControlHost host;
  TestFlatButton button;
  button.Create(host.m_hWnd, nullptr, nullptr, WS_CHILD, 0, 5);
  button.SetColors(kFirst, kSecond, kThird);
  const COLORREF light = GetSysColor(COLOR_3DHIGHLIGHT);
  const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
  const auto expectFrame = [&](UINT itemState, COLORREF topLeft, COLORREF bottomRight) {
    const Canvas canvas(40, 20);
    button.Draw(canvas, itemState);
    EXPECT_EQ(canvas.At(10, 6), kFirst);
    for (const POINT p : {POINT{0, 0}, POINT{19, 0}, POINT{0, 11}}) EXPECT_EQ(canvas.At(p.x, p.y), topLeft);
    for (const POINT p : {POINT{19, 11}, POINT{19, 1}, POINT{1, 11}}) EXPECT_EQ(canvas.At(p.x, p.y), bottomRight);
    EXPECT_EQ(canvas.At(20, 12), 0xFFFFFFu);
  };
  expectFrame(0, kFirst, kFirst);
  expectFrame(ODS_SELECTED, shadow, light);
  SendMessageW(button.m_hWnd, WM_MOUSEHOVER, 0, 0);
  expectFrame(0, light, shadow);
  expectFrame(ODS_SELECTED, shadow, light);

  // A full block shows the caption's colour, a row lower when pressed.
  button.SetText(L"\x2588");
  const auto captionTop = [&](UINT itemState, COLORREF color) {
    const Canvas canvas(40, 20);
    button.Draw(canvas, itemState);
    for (int y = 0; y < 12; ++y) {
      for (int x = 0; x < 20; ++x) {
        if (canvas.At(x, y) == color) return y;
      }
    }
    return -1;
  };
  EXPECT_GE(captionTop(0, kSecond), 0);
  EXPECT_EQ(captionTop(ODS_DISABLED, kSecond), -1);
  EXPECT_GE(captionTop(ODS_DISABLED, kThird), 0);

  const HWND tip = button.Tip();
  button.SetToolTipText(L"Next");
  EXPECT_EQ(SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
  button.DestroyWindow();
  EXPECT_FALSE(IsWindow(tip));
}

constexpr UINT kId = 33;

class TestUpDown : public UpDownCtrl {
 public:
  explicit TestUpDown(ControlHost& host, int width = 27, int height = 16) {
    const RECT place = {5, 5, 5 + width, 5 + height};
    Create(host.m_hWnd, &place, nullptr, WS_CHILD | WS_VISIBLE, 0, kId);
  }
  RECT Place(FlatButton& button) const {
    RECT rect;
    GetWindowRect(button.m_hWnd, &rect);
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }
};

void Click(const FlatButton& button) {
  Mouse(button.m_hWnd, WM_LBUTTONDOWN, 3, 3);
  Mouse(button.m_hWnd, WM_LBUTTONUP, 3, 3);
}

TEST(UpDownCtrl, StepsWithinItsRangeAndTellsAfterwards) {
  ControlHost host;
  TestUpDown control(host);
  Click(control.UpButton());
  Click(control.DownButton());
  EXPECT_THAT(host.Take(), IsEmpty()) << "an empty range has no steps";

  control.SetRange(-1, 5);
  Click(control.DownButton());
  Click(control.DownButton());
  EXPECT_THAT(host.Take(), ElementsAre("notify 33 pos -1 delta -1"));
  control.SetStep(4);
  Click(control.UpButton());
  Click(control.UpButton());
  Click(control.UpButton());
  EXPECT_THAT(host.Take(), ElementsAre("notify 33 pos 3 delta 1", "notify 33 pos 7 delta 1"))
      << "a larger step may pass the limit";
  control.SetPos(100);
  EXPECT_THAT(host.Take(), IsEmpty());
  EXPECT_EQ(control.GetPos(), 100);
  control.SetStep(1);
  Click(control.DownButton());
  Mouse(control.DownButton().m_hWnd, WM_LBUTTONDBLCLK, 3, 3);
  Mouse(control.DownButton().m_hWnd, WM_LBUTTONUP, 3, 3);
  EXPECT_EQ(control.GetPos(), 98) << "a quick second click steps as well";
}

TEST(UpDownCtrl, LaysItsButtonsOutAndFillsTheRest) {
  ControlHost host;
  struct {
    int width, height;
    bool horizontal;
    RECT down, up;
  } const cases[] = {
      {27, 16, true, {0, 0, 12, 16}, {14, 0, 26, 16}},
      {27, 17, false, {0, 0, 27, 7}, {0, 9, 27, 16}},
      {1, 16, true, {0, 0, 0, 16}, {2, 0, 2, 16}},
      {0, 0, false, {0, 0, 0, 0}, {0, 2, 0, 2}},
  };
  for (const auto& c : cases) {
    TestUpDown control(host, c.width, c.height);
    control.SetHorizontal(c.horizontal);
    const RECT down = control.Place(control.DownButton());
    const RECT up = control.Place(control.UpButton());
    EXPECT_TRUE(EqualRect(&down, &c.down)) << c.width << " " << down.right << " " << down.bottom;
    EXPECT_TRUE(EqualRect(&up, &c.up)) << c.width << " " << up.left << " " << up.top << " " << up.right;
  }
  TestUpDown control(host);
  control.SetBackColor(kSecond);
  UpdateWindow(control.m_hWnd);
  const WindowContext context(control.m_hWnd);
  EXPECT_EQ(GetPixel(context.get(), 12, 8), kSecond) << "between the buttons";
  EXPECT_EQ(GetPixel(context.get(), 26, 8), kSecond) << "an odd width leaves a pixel";
}

TEST(UpDownCtrl, MayEndWhileItTellsItsParentAndLeavesNoHandles) {
  ControlHost host;
  for (const bool deletes : {false, true}) {
    auto control = std::make_unique<TestUpDown>(host);
    control->SetRange(0, 9);
    const HWND window = control->m_hWnd;
    const HWND button = control->UpButton().m_hWnd;
    host.m_OnTold = [&] { deletes ? control.reset() : control->DestroyWindow(); };
    Mouse(button, WM_LBUTTONDOWN, 3, 3);
    Mouse(button, WM_LBUTTONUP, 3, 3);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(button));
  }
  ExpectLevelHandles([&] {
    TestUpDown control(host);
    Mouse(control.UpButton().m_hWnd, WM_MOUSEMOVE, 3, 3);
    UpdateWindow(control.m_hWnd);
  });
}

}  // namespace
