// The bitmap button and its split variant, driven by messages as the system sends them.
#include "toolkit/BitmapButton.h"

#include <memory>

#include "tests/pages/PaintRecorder.h"
#include "tests/toolkit/ControlHost.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr UINT kId = 7;
constexpr int kSize = 16;
constexpr COLORREF kNormal = 0x0000FF;
constexpr COLORREF kPushed = 0x00FF00;
constexpr COLORREF kHot = 0xFF0000;
constexpr COLORREF kDisabled = 0x808080;
constexpr COLORREF kNothing = 0xFFFFFF;

HIMAGELIST MakeImages(const std::vector<COLORREF>& colors) {
  const OwnedBitmap strip = MakeStrip(kSize, kSize, colors);
  const HIMAGELIST list = ImageList_Create(kSize, kSize, ILC_COLOR24, static_cast<int>(colors.size()), 0);
  ImageList_Add(list, strip.get(), nullptr);
  return list;
}

template <class Button>
class ButtonOn : public Button {
 public:
  explicit ButtonOn(ControlHost& host, u32 style = Button::kHover, const wchar_t* title = L"") {
    Button::SetExtendedStyle(style);
    Button::SetImageList(MakeImages({kNormal, kPushed, kHot, kDisabled}));
    Button::SetImages(0, 1, 2, 3);
    Button::SetColors(1, 2, 3, 4);
    const RECT place = {10, 10, 50, 40};
    Button::Create(host.m_hWnd, &place, title, WS_CHILD | WS_VISIBLE, 0, kId);
    host.Take();
  }
  COLORREF ImageAt(int x, int y) const {
    const Canvas canvas(60, 60);
    SendMessageW(this->m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.dc()), PRF_CLIENT);
    return canvas.At(x, y);
  }
  COLORREF Image() const { return ImageAt(8, 8); }
  Lines Calls() const {
    PaintRecorder recorder;
    SendMessageW(this->m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(recorder.dc()), PRF_CLIENT);
    return recorder.Calls();
  }
  HWND Tip() const { return this->ToolTip; }
};
using TestButton = ButtonOn<BitmapButton>;

struct LookCase {
  const char* what;
  u32 style;
  const char* state;  // under the pointer, focused, pressed, checked, disabled
  COLORREF image;
  int color;
  const char* missing = "";  // images: pushed, hot, disabled, all
};

TEST(BitmapButton, EachStateHasItsImageAndItsColour) {
  constexpr u32 kLit = BitmapButton::kHover;
  const LookCase cases[] = {
      {"at rest", kLit, "", kNormal, 1},
      {"under the pointer", kLit, "u", kHot, 2},
      {"focus doesn't light a hover button", kLit, "f", kNormal, 1},
      {"pressed goes before the pointer", kLit, "up", kPushed, 3},
      {"disabled", kLit, "d", kDisabled, 4},
      {"disabled under the pointer stays lit", kLit, "ud", kHot, 2},
      {"checked", kLit, "c", kPushed, 3},
      {"checked goes before disabled", kLit, "cd", kPushed, 3},
      {"plain focus", 0, "f", kHot, 2},
      {"a plain button doesn't see the pointer", 0, "u", kNormal, 1},
      {"plain pressed", 0, "p", kPushed, 3},
      {"no hot image, its colour all the same", kLit, "u", kNormal, 2, "h"},
      {"no pushed image", kLit, "p", kNormal, 3, "p"},
      {"checked falls back to the hot image", kLit, "c", kHot, 3, "p"},
      {"checked without both", kLit, "c", kNormal, 3, "ph"},
      {"no disabled image", kLit, "d", kNormal, 4, "d"},
      {"no image at all", kLit, "u", kNothing, 2, "a"},
  };
  ControlHost host;
  for (const LookCase& c : cases) {
    SCOPED_TRACE(c.what);
    TestButton button(host, c.style, L"x");
    const std::string missing = c.missing;
    const auto unless = [&](char image, int index) {
      return missing.find(image) == missing.npos && missing != "a" ? index : BitmapButton::kNoImage;
    };
    button.SetImages(unless('a', 0), unless('p', 1), unless('h', 2), unless('d', 3));
    for (const char* state = c.state; *state; ++state) {
      if (*state == 'u') Mouse(button.m_hWnd, WM_MOUSEMOVE, 5, 5);
      if (*state == 'f') SendMessageW(button.m_hWnd, WM_SETFOCUS, 0, 0);
      if (*state == 'p' && c.style == kLit) Mouse(button.m_hWnd, WM_LBUTTONDOWN, 5, 5);
      if (*state == 'p' && c.style != kLit) SendMessageW(button.m_hWnd, WM_KEYDOWN, VK_SPACE, 0);
      if (*state == 'c') button.SetChecked(true);
      if (*state == 'd') EnableWindow(button.m_hWnd, FALSE);
    }
    EXPECT_EQ(button.ImageAt(2, 2), c.image);
    EXPECT_THAT(button.Calls().back(), HasSubstr("00000" + std::to_string(c.color) + " transparent x"));
  }
}

TEST(BitmapButton, ClicksOnlyWhereTheReleaseIsOnTheButton) {
  ControlHost host;
  for (const u32 style : {u32{BitmapButton::kHover}, u32{0}}) {
    SCOPED_TRACE(style);
    TestButton button(host, style);
    Mouse(button.m_hWnd, WM_LBUTTONDOWN, 5, 5);
    EXPECT_EQ(button.Image(), kPushed);
    Mouse(button.m_hWnd, WM_MOUSEMOVE, -3, 5);
    EXPECT_NE(button.Image(), kPushed);
    Mouse(button.m_hWnd, WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(button.Image(), kPushed);
    EXPECT_THAT(host.Take(), IsEmpty());
    Mouse(button.m_hWnd, WM_LBUTTONUP, 5, 5);
    EXPECT_THAT(host.Take(), ElementsAre("command 7"));
    EXPECT_NE(GetCapture(), button.m_hWnd);
    EXPECT_NE(button.Image(), kPushed);

    Mouse(button.m_hWnd, WM_LBUTTONDOWN, 5, 5);
    Mouse(button.m_hWnd, WM_MOUSEMOVE, 5, 60);
    Mouse(button.m_hWnd, WM_LBUTTONUP, 5, 60);
    EXPECT_THAT(host.Take(), IsEmpty());
  }
}

TEST(BitmapButton, SpacePressesOnlyAPlainButton) {
  ControlHost host;
  for (const u32 style : {u32{BitmapButton::kHover}, u32{0}}) {
    TestButton button(host, style);
    SendMessageW(button.m_hWnd, WM_KEYDOWN, VK_SPACE, 0);
    EXPECT_EQ(button.Image() == kPushed, style == 0);
    SendMessageW(button.m_hWnd, WM_KEYUP, VK_SPACE, 0);
    EXPECT_EQ(host.Take(), style == 0 ? Lines{"command 7"} : Lines{});
    EXPECT_NE(button.Image(), kPushed);
  }
}

TEST(BitmapButton, DoubleClickPressesAgain) {
  ControlHost host;
  TestButton button(host);
  Mouse(button.m_hWnd, WM_LBUTTONDBLCLK, 5, 5);
  EXPECT_EQ(button.Image(), kPushed);
  Mouse(button.m_hWnd, WM_LBUTTONUP, 5, 5);
  EXPECT_THAT(host.Take(), ElementsAre("command 7"));
}

TEST(BitmapButton, RepeatsWhileItIsHeld) {
  ControlHost host;
  TestButton button(host, BitmapButton::kHover | BitmapButton::kAutoRepeat);
  size_t commands = 0;
  Mouse(button.m_hWnd, WM_LBUTTONDOWN, 5, 5);
  EXPECT_TRUE(PumpUntil([&] { return (commands += host.Take().size()) >= 3; })) << commands;
  // Off the button it pauses, and the capture's end is its own at the next tick.
  Mouse(button.m_hWnd, WM_MOUSEMOVE, 300, 5);
  host.Take();
  SendMessageW(button.m_hWnd, WM_TIMER, 1001, 0);
  EXPECT_THAT(host.Take(), IsEmpty());
  ReleaseCapture();
  SendMessageW(button.m_hWnd, WM_TIMER, 1001, 0);
  EXPECT_FALSE(KillTimer(button.m_hWnd, 1001));
  // A release before the first delay leaves one click.
  Mouse(button.m_hWnd, WM_LBUTTONDOWN, 5, 5);
  Mouse(button.m_hWnd, WM_LBUTTONUP, 5, 5);
  SendMessageW(button.m_hWnd, WM_TIMER, 1000, 0);
  EXPECT_THAT(host.Take(), ElementsAre("command 7"));
  EXPECT_FALSE(KillTimer(button.m_hWnd, 1001));
}

TEST(BitmapButton, EdgesFollowTheStyleAndThePress) {
  ControlHost host;
  const COLORREF light = GetSysColor(COLOR_3DHIGHLIGHT);
  const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
  TestButton plain(host, BitmapButton::kSingleEdge);
  EXPECT_EQ(plain.ImageAt(0, 0), light);
  TestButton lit(host, BitmapButton::kHover | BitmapButton::kDoubleEdge);
  EXPECT_EQ(lit.ImageAt(0, 0), kNormal) << "no edge at rest";
  Mouse(lit.m_hWnd, WM_MOUSEMOVE, 5, 5);
  EXPECT_EQ(lit.ImageAt(1, 1), light);
  Mouse(lit.m_hWnd, WM_LBUTTONDOWN, 5, 5);
  EXPECT_EQ(lit.ImageAt(0, 0), shadow);
  EXPECT_EQ(lit.ImageAt(kSize, kSize), kNothing) << "a pushed image stays in place";
  lit.SetImages(0, BitmapButton::kNoImage, 2, 3);
  EXPECT_EQ(lit.ImageAt(kSize, kSize), kNormal) << "without one the image moves";
}

TEST(BitmapButton, CaptionIsCutAndStandsWithinItsMargins) {
  ControlHost host;
  TestButton button(host, BitmapButton::kHover, std::wstring(80, L'i').c_str());
  EXPECT_THAT(button.Calls(), ElementsAre(testing::EndsWith(" " + std::string(63, 'i'))));
  SetWindowTextW(button.m_hWnd, L"i");
  const auto place = [&] {
    int x = 0;
    int y = 0;
    sscanf(button.Calls().at(0).c_str(), "text %d,%d", &x, &y);
    return POINT{x, y};
  };
  const POINT centred = place();
  button.SetTextMargins(10, 6, 0, 0);
  EXPECT_EQ(place().x, centred.x + 5);
  EXPECT_EQ(place().y, centred.y + 3);
  button.SetMultiLine(true);
  EXPECT_EQ(place().y, 10) << "from the top, four lower";
  SetWindowTextW(button.m_hWnd, L"");
  EXPECT_THAT(button.Calls(), IsEmpty());
}

TEST(BitmapButton, TakesTheSizeOfAnImage) {
  ControlHost host;
  TestButton button(host, BitmapButton::kHover | BitmapButton::kSizeToImage);
  RECT client;
  GetClientRect(button.m_hWnd, &client);
  EXPECT_EQ(client.right, kSize);
  EXPECT_EQ(client.bottom, kSize);
  SetWindowLongW(button.m_hWnd, GWL_STYLE, GetWindowLongW(button.m_hWnd, GWL_STYLE) | WS_BORDER);
  button.SizeToImage(30, 20);
  RECT window;
  GetWindowRect(button.m_hWnd, &window);
  EXPECT_EQ(window.right - window.left, 32);
  EXPECT_EQ(window.bottom - window.top, 22) << "the child's id is no menu";
}

TEST(BitmapButton, TipFollowsItsTextAndEndsWithTheButton) {
  ControlHost host;
  TestButton button(host);
  const auto tools = [&] { return SendMessageW(button.Tip(), TTM_GETTOOLCOUNT, 0, 0); };
  EXPECT_EQ(tools(), 0);
  button.SetToolTipText(L"Start");
  button.SetToolTipText(L"Stop");
  EXPECT_EQ(tools(), 1);
  wchar_t text[80] = {};
  TOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = host.m_hWnd;
  tool.uId = reinterpret_cast<UINT_PTR>(button.m_hWnd);
  tool.lpszText = text;
  SendMessageW(button.Tip(), TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
  EXPECT_STREQ(text, L"Stop");
  button.SetToolTipText(nullptr);
  EXPECT_EQ(tools(), 0);
  const HWND tip = button.Tip();
  button.DestroyWindow();
  EXPECT_FALSE(IsWindow(tip));
}

// The parent ends the button, or its object, while the button tells it of a click.
TEST(BitmapButton, MayEndWhileItTellsItsParent) {
  struct {
    u32 style;
    UINT down, up;
    WPARAM wParam;
  } const cases[] = {
      {BitmapButton::kHover, WM_LBUTTONDOWN, WM_LBUTTONUP, 0},
      {0, WM_LBUTTONDOWN, WM_LBUTTONUP, 0},
      {0, WM_KEYDOWN, WM_KEYUP, VK_SPACE},
      {BitmapButton::kHover | BitmapButton::kAutoRepeat, WM_LBUTTONDOWN, WM_TIMER, 1000},
      {BitmapButton::kHover | BitmapButton::kAutoRepeat, WM_LBUTTONDOWN, WM_TIMER, 1001},
  };
  ControlHost host;
  for (const auto& c : cases) {
    for (const bool deletes : {false, true}) {
      auto button = std::make_unique<TestButton>(host, c.style);
      const HWND window = button->m_hWnd;
      host.m_OnTold = [&] { deletes ? button.reset() : button->DestroyWindow(); };
      SendMessageW(window, c.down, c.wParam, MAKELPARAM(5, 5));
      SendMessageW(window, c.up, c.wParam, MAKELPARAM(5, 5));
      EXPECT_FALSE(IsWindow(window)) << c.up << " " << c.wParam << (deletes ? " deleted" : " destroyed");
      EXPECT_EQ(host.Take().size(), 1u);
    }
  }
}

TEST(SplitBitmapButton, ZoneHasItsImagesAndItsMessage) {
  struct {
    const char* what;
    int downX, upX;
    Lines told;
  } const cases[] = {
      {"the face", 5, 6, {"command 7"}},
      {"the zone", 25, 26, {"zone 7"}},
      {"from the zone to the face", 25, 5, {"command 7"}},
      {"into the zone, its press still remembered", 5, 25, {"zone 7"}},
      {"into the zone", 5, 25, {"command 7"}},
      {"from the zone to the outside", 25, 300, {}},
      {"the outside, as an unsigned place", 25, -20, {}},
  };
  ControlHost host;
  ButtonOn<SplitBitmapButton> button(host);
  button.SetHotZone({20, 0, 40, 30}, MakeImages({0x111111, 0x222222, 0x333333, 0x444444}));
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Mouse(button.m_hWnd, WM_LBUTTONDOWN, c.downX, 5);
    Mouse(button.m_hWnd, WM_MOUSEMOVE, c.upX, 5);
    Mouse(button.m_hWnd, WM_LBUTTONUP, c.upX, 5);
    EXPECT_EQ(host.Take(), c.told);
    EXPECT_NE(GetCapture(), button.m_hWnd);
  }
  Mouse(button.m_hWnd, WM_MOUSEMOVE, 25, 5);
  EXPECT_EQ(button.Image(), 0x333333u);
  Mouse(button.m_hWnd, WM_MOUSEMOVE, 5, 5);
  EXPECT_EQ(button.Image(), kHot);
  // Neither list may be lost or freed twice when they change or end while exchanged.
  Mouse(button.m_hWnd, WM_MOUSEMOVE, 25, 5);
  button.SetImageList(MakeImages({kDisabled, kDisabled, kDisabled, kDisabled}));
  EXPECT_EQ(button.Image(), kDisabled);
  Mouse(button.m_hWnd, WM_MOUSEMOVE, 25, 5);
  EXPECT_EQ(button.Image(), 0x333333u);
}

TEST(BitmapButton, WorksWithoutOwnerSizeAndImages) {
  SplitBitmapButton button;
  button.SetChecked(true);
  button.SizeToImage();
  button.SetHotZone({0, 0, 9, 9}, nullptr);
  ASSERT_TRUE(button.Create(nullptr, nullptr, nullptr, WS_POPUP | WS_VISIBLE));
  button.SetExtendedStyle(BitmapButton::kHover | BitmapButton::kAutoRepeat | BitmapButton::kDoubleEdge);
  for (const UINT message :
       std::initializer_list<UINT>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP, WM_MOUSELEAVE, WM_PAINT}) {
    SendMessageW(button.m_hWnd, message, 0, 0);
  }
  button.SetImages(90, 91, -5, 93);
  button.SetImageList(MakeImages({kNormal}));
  UpdateWindow(button.m_hWnd);
}

TEST(BitmapButton, LeavesNoHandles) {
  ControlHost host;
  ExpectLevelHandles([&] {
    ButtonOn<SplitBitmapButton> button(host, BitmapButton::kHover | BitmapButton::kSizeToImage, L"Vote");
    button.SetHotZone({8, 0, 16, 16}, MakeImages({1, 2, 3, 4}));
    button.SetToolTipText(L"Start");
    Mouse(button.m_hWnd, WM_MOUSEMOVE, 10, 5);
    UpdateWindow(button.m_hWnd);
  });
}

}  // namespace
