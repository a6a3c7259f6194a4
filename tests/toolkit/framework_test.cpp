// Windows, their objects and their messages.
#include <gmock/gmock.h>

#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/toolkit/HandleLevel.h"
#include "tests/toolkit/ToolkitEnvironment.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/WindowBase.h"

namespace {

using testing::ElementsAre;

constexpr UINT kPing = WM_USER + 1;
constexpr UINT kNest = WM_USER + 2;
constexpr UINT kAct = WM_USER + 3;

// A window that notes what reaches it and does what a test tells it.
class ProbeWindow : public RegisteredWindow<ProbeWindow> {
 public:
  static WindowClassInfo& WindowClass() {
    static WindowClassInfo info = DescribeWindowClass(nullptr, CS_DBLCLKS, COLOR_WINDOW + 1);
    return info;
  }

  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) override {
    Messages.push_back(message);
    SawOwnHandle = SawOwnHandle && window == m_hWnd;
    MessageMap map(this, window, message, wParam, lParam, result);
    return map.On(kPing, &ProbeWindow::OnPing) || map.On(kPing, &ProbeWindow::OnPingAgain) ||
           map.On(kNest, &ProbeWindow::OnNest) || map.OnRange(kAct, kAct, &ProbeWindow::OnAct) ||
           map.On(WM_CREATE, &ProbeWindow::OnCreate) || map.ReflectToChild() || map.DefaultReflected();
  }
  void OnFinalMessage(HWND window) override {
    Final = window;
    const std::function<void()> act = AtEnd;
    if (act) act();
  }

  std::vector<UINT> Messages;
  std::vector<UINT> Current;
  bool SawOwnHandle = true;
  HWND Final = nullptr;
  bool PassOn = false;
  LRESULT CreateResult = 0;
  std::function<void()> Act;
  std::function<void()> AtEnd;

 private:
  LRESULT OnPing(MessageArgs& args) {
    Current.push_back(CurrentMessage()->Message);
    args.handled = !PassOn;
    return 11;
  }
  LRESULT OnPingAgain(MessageArgs&) { return 22; }
  LRESULT OnNest(MessageArgs& args) {
    const WindowMessage* const mine = CurrentMessage();
    const LRESULT inner = SendMessageW(m_hWnd, kPing, 0, 0);
    EXPECT_EQ(mine, CurrentMessage());
    Current.push_back(CurrentMessage()->Message);
    return inner + static_cast<LRESULT>(args.WParam);
  }
  LRESULT OnAct(MessageArgs&) {
    const std::function<void()> act = Act;
    act();
    return 33;
  }
  LRESULT OnCreate(MessageArgs& args) {
    if (Act) OnAct(args);
    return CreateResult;
  }
};

class ProbeButton : public RegisteredWindow<ProbeButton> {
 public:
  static WindowClassInfo& WindowClass() {
    static WindowClassInfo info = DescribeWindowClass(L"ProbeButton", 0, 0, L"BUTTON");
    return info;
  }
  bool ProcessWindowMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result, DWORD) override {
    MessageMap map(this, window, message, wParam, lParam, result);
    return map.DefaultReflected();
  }
};

class OrphanWindow : public ProbeWindow {
 public:
  HWND Create() {
    static WindowClassInfo info = DescribeWindowClass(L"Orphan", 0, 0, L"NoSuchBaseClass");
    return CreateOfClass(info, nullptr, nullptr, L"", WS_POPUP, 0, 0);
  }
};

TEST(Window, ItsObjectIsKnownFromTheFirstMessageOn) {
  ProbeWindow parent, child;
  ASSERT_TRUE(parent.Create(nullptr, nullptr, L"text", WS_POPUP));
  ASSERT_TRUE(child.Create(parent.m_hWnd, nullptr, nullptr, WS_CHILD));
  for (const ProbeWindow* probe : {&parent, &child}) {
    EXPECT_TRUE(probe->SawOwnHandle);
    EXPECT_THAT(probe->Messages, testing::IsSupersetOf({UINT{WM_NCCREATE}, UINT{WM_CREATE}}));
    RECT rect;
    GetWindowRect(probe->m_hWnd, &rect);
    EXPECT_TRUE(IsRectEmpty(&rect));
    EXPECT_EQ(nullptr, probe->CurrentMessage());
  }
  EXPECT_EQ(reinterpret_cast<LONG_PTR>(&child), GetWindowLongPtrW(child.m_hWnd, GWLP_ID));
  EXPECT_EQ(nullptr, child.Create(parent.m_hWnd)) << "one window for one object";
  const HWND window = child.m_hWnd;
  parent.DestroyWindow();
  EXPECT_EQ(nullptr, child.m_hWnd);
  EXPECT_EQ(window, child.Final);
  child.CreateResult = -1;
  EXPECT_EQ(nullptr, child.Create(nullptr));
  EXPECT_EQ(nullptr, child.m_hWnd);
}

ProbeWindow* g_pInner = nullptr;
ProbeWindow* g_pOther = nullptr;

// Comes between the entry in the list of windows being created and the first message.
LRESULT CALLBACK CreateOthersFirst(int code, WPARAM wParam, LPARAM lParam) {
  if (ProbeWindow* const inner = code == HCBT_CREATEWND ? std::exchange(g_pInner, nullptr) : nullptr) {
    inner->Create(nullptr);
    std::thread([] { g_pOther->Create(nullptr), g_pOther->DestroyWindow(); }).join();
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST(Window, CreationsWithinCreationsTakeTheNewestOfTheirThread) {
  ProbeWindow outer, inner, other, last;
  g_pInner = &inner;
  g_pOther = &other;
  outer.Act = [&] { last.Create(nullptr); };
  const HHOOK hook = SetWindowsHookExW(WH_CBT, &CreateOthersFirst, nullptr, GetCurrentThreadId());
  const HWND created = outer.Create(nullptr);
  UnhookWindowsHookEx(hook);
  EXPECT_EQ(created, outer.m_hWnd);
  EXPECT_TRUE(inner.m_hWnd && last.m_hWnd && inner.m_hWnd != created && last.m_hWnd != created);
  EXPECT_NE(nullptr, other.Final);
}

TEST(Window, ThreadsDontMixTheirObjects) {
  const auto work = [] {
    for (int i = 0; i < 200; ++i) {
      ProbeWindow probe;
      ASSERT_NE(nullptr, probe.Create(HWND_MESSAGE));
      ASSERT_EQ(11, SendMessageW(probe.m_hWnd, kPing, 0, 0));
      ASSERT_TRUE(probe.SawOwnHandle);
    }
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  for (std::thread& thread : threads) thread.join();
}

TEST(Dispatch, NestsAndPassesOn) {
  ProbeWindow probe;
  probe.Create(nullptr);
  EXPECT_EQ(11 + 5, SendMessageW(probe.m_hWnd, kNest, 5, 0));
  EXPECT_THAT(probe.Current, ElementsAre(kPing, kNest));
  EXPECT_EQ(nullptr, probe.CurrentMessage());
  probe.PassOn = true;
  EXPECT_EQ(22, SendMessageW(probe.m_hWnd, kPing, 0, 0));
  SetWindowTextW(probe.m_hWnd, L"by default");
  EXPECT_EQ(10, GetWindowTextLengthW(probe.m_hWnd));
}

TEST(Dispatch, SurvivesTheEndOfWindowAndObject) {
  ProbeWindow destroyed;
  const HWND window = destroyed.Create(nullptr);
  destroyed.Act = [&] { destroyed.DestroyWindow(); };
  EXPECT_EQ(33, SendMessageW(window, kAct, 0, 0));
  EXPECT_EQ(window, destroyed.Final);
  EXPECT_FALSE(IsWindow(window));

  auto* const suicide = new ProbeWindow;
  const HWND second = suicide->Create(nullptr);
  suicide->Act = [&] { delete suicide; };
  EXPECT_EQ(33, SendMessageW(second, kAct, 0, 0));
  EXPECT_FALSE(IsWindow(second)) << "a window doesn't outlive its object";

  auto* const atEnd = new ProbeWindow;
  const HWND third = atEnd->Create(nullptr);
  atEnd->Act = [&] { atEnd->DestroyWindow(); };
  atEnd->AtEnd = [&] { delete atEnd; };
  EXPECT_EQ(33, SendMessageW(third, kAct, 0, 0));
  EXPECT_FALSE(IsWindow(third));

  auto* const unborn = new ProbeWindow;
  unborn->CreateResult = -1;
  unborn->AtEnd = [&] { delete unborn; };
  EXPECT_EQ(nullptr, unborn->Create(nullptr));
}

struct Reflection {
  UINT Message;
  std::function<std::pair<WPARAM, LPARAM>(HWND child, WORD id)> Arguments;
  bool ReachesChild;
};

template <class T>
LPARAM Structure(HWND child, WORD id) {
  static T data;
  data = {};
  if constexpr (std::is_same_v<T, NMHDR>) {
    data.hwndFrom = child;
  } else {
    data.CtlID = id;
    if constexpr (!std::is_same_v<T, MEASUREITEMSTRUCT>) data.hwndItem = child;
  }
  return reinterpret_cast<LPARAM>(&data);
}

TEST(Reflection, FindsTheChildOfEachNotification) {
  using P = std::pair<WPARAM, LPARAM>;
  const auto handle = [](HWND child, WORD) { return P(0, reinterpret_cast<LPARAM>(child)); };
  const auto none = [](HWND, WORD) { return P(0, 0); };
  std::vector<Reflection> cases = {
      {WM_NOTIFY, [](HWND child, WORD id) { return P(id, Structure<NMHDR>(child, id)); }, true},
      {WM_NOTIFY, [](HWND, WORD id) { return P(id, Structure<NMHDR>(nullptr, id)); }, false},
      {WM_PARENTNOTIFY,
       [](HWND child, WORD id) { return P(MAKEWPARAM(WM_DESTROY, id), reinterpret_cast<LPARAM>(child)); }, true},
      {WM_PARENTNOTIFY, [](HWND, WORD id) { return P(MAKEWPARAM(WM_LBUTTONDOWN, id), MAKELPARAM(1, 1)); }, true},
      {WM_PARENTNOTIFY, [](HWND, WORD id) { return P(MAKEWPARAM(WM_LBUTTONDOWN, id + 1), 0); }, false},
      {WM_DRAWITEM, [](HWND child, WORD id) { return P(id, Structure<DRAWITEMSTRUCT>(child, id)); }, true},
      {WM_DRAWITEM, [](HWND child, WORD id) { return P(0, Structure<DRAWITEMSTRUCT>(child, id)); }, false},
      {WM_MEASUREITEM, [](HWND child, WORD id) { return P(id, Structure<MEASUREITEMSTRUCT>(child, id)); }, true},
      {WM_MEASUREITEM, [](HWND child, WORD id) { return P(0, Structure<MEASUREITEMSTRUCT>(child, id)); }, false},
      {WM_DELETEITEM, [](HWND, WORD id) { return P(id, Structure<DELETEITEMSTRUCT>(nullptr, id)); }, true},
      {WM_COMPAREITEM, [](HWND, WORD id) { return P(id, Structure<COMPAREITEMSTRUCT>(nullptr, id)); }, true},
  };
  for (const int message : {WM_COMMAND, WM_VKEYTOITEM, WM_CHARTOITEM, WM_HSCROLL, WM_VSCROLL, WM_CTLCOLORMSGBOX,
                            WM_CTLCOLOREDIT, WM_CTLCOLORSTATIC}) {
    cases.push_back({static_cast<UINT>(message), handle, true});
    cases.push_back({static_cast<UINT>(message), none, false});
  }
  cases.push_back({WM_INITMENU, handle, false});

  constexpr WORD kId = 7;
  ProbeWindow parent, child;
  parent.Create(nullptr);
  child.Create(parent.m_hWnd, nullptr, nullptr, WS_CHILD, 0, kId);
  for (const Reflection& one : cases) {
    child.Messages.clear();
    const auto [wParam, lParam] = one.Arguments(child.m_hWnd, kId);
    SendMessageW(parent.m_hWnd, one.Message, wParam, lParam);
    const bool reached = !child.Messages.empty() && child.Messages.front() == one.Message + 0x2000;
    EXPECT_EQ(one.ReachesChild, reached) << std::hex << one.Message;
  }
}

TEST(Reflection, UnusedNotificationGetsTheDefaultResult) {
  ProbeWindow parent;
  ProbeButton button;
  parent.Create(nullptr);
  button.Create(parent.m_hWnd, nullptr, nullptr, WS_CHILD, 0, 3);
  const WindowContext screen(nullptr);
  const auto wParam = reinterpret_cast<WPARAM>(screen.get());
  const auto lParam = reinterpret_cast<LPARAM>(button.m_hWnd);
  const LRESULT expected = ::DefWindowProcW(parent.m_hWnd, WM_CTLCOLORBTN, wParam, lParam);
  EXPECT_NE(0, expected);
  EXPECT_EQ(expected, SendMessageW(parent.m_hWnd, WM_CTLCOLORBTN, wParam, lParam));
}

TEST(WindowClass, IsRegisteredOnceUnderAGeneratedName) {
  ProbeWindow first, second;
  const HWND a = first.Create(nullptr);
  const HWND b = second.Create(nullptr);
  EXPECT_EQ(GetClassLongW(a, GCW_ATOM), GetClassLongW(b, GCW_ATOM));
  wchar_t name[32], expected[32];
  GetClassNameW(a, name, 32);
  wsprintfW(expected, L"ATL:%8.8X", &ProbeWindow::WindowClass());
  EXPECT_STREQ(expected, name);
}

TEST(WindowClass, ExtendsASystemClass) {
  ProbeWindow parent;
  parent.Create(nullptr);
  ProbeButton button;
  const HWND window = button.Create(parent.m_hWnd, nullptr, L"caption", WS_CHILD | BS_AUTOCHECKBOX, 0, 3);
  wchar_t name[32];
  GetClassNameW(window, name, 32);
  EXPECT_STREQ(L"ProbeButton", name);
  SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
  EXPECT_EQ(BST_CHECKED, SendMessageW(window, BM_GETCHECK, 0, 0));
  button.DestroyWindow();
  EXPECT_EQ(nullptr, button.m_hWnd);

  OrphanWindow orphan;
  EXPECT_EQ(nullptr, orphan.Create());
  EXPECT_TRUE(orphan.Messages.empty());
}

TEST(Subclassing, StandsBeforeAWindowThatExists) {
  const HWND edit = CreateWindowExW(0, L"EDIT", L"text", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  ProbeWindow probe;
  EXPECT_FALSE(probe.SubclassWindow(nullptr));
  ASSERT_TRUE(probe.SubclassWindow(edit));
  EXPECT_EQ(11, SendMessageW(edit, kPing, 0, 0));
  EXPECT_EQ(4, GetWindowTextLengthW(edit)) << "the edit answers what the map leaves";
  EXPECT_EQ(edit, probe.UnsubclassWindow());
  EXPECT_NE(11, SendMessageW(edit, kPing, 0, 0));
  ASSERT_TRUE(probe.SubclassWindow(edit));
  DestroyWindow(edit);
  EXPECT_EQ(edit, probe.Final);
}

TEST(Thunk, LiesInMemoryThatIsNeverWritable) {
  DWORD flags = 0;
  BOOL permanent = FALSE;
  SetProcessDEPPolicy(PROCESS_DEP_ENABLE);
  ASSERT_TRUE(GetProcessDEPPolicy(GetCurrentProcess(), &flags, &permanent));
  EXPECT_TRUE((flags & PROCESS_DEP_ENABLE) && permanent);
  ProbeWindow probe;
  probe.Create(nullptr);
  const LONG_PTR thunk = GetWindowLongPtrW(probe.m_hWnd, GWLP_WNDPROC);
  MEMORY_BASIC_INFORMATION memory;
  ASSERT_NE(0u, VirtualQuery(reinterpret_cast<const void*>(thunk), &memory, sizeof(memory)));
  EXPECT_EQ(DWORD{PAGE_EXECUTE_READ}, memory.Protect);
  EXPECT_EQ(11, SendMessageW(probe.m_hWnd, kPing, 0, 0));
}

TEST(Toolkit, EndsOpenWindowsAndTheirClasses) {
  ProbeWindow parent, child;
  ProbeButton button;
  const HWND window = parent.Create(nullptr);
  child.Create(window, nullptr, nullptr, WS_CHILD);
  const HWND control = button.Create(window, nullptr, nullptr, WS_CHILD, 0, 3);
  wchar_t name[32];
  GetClassNameW(window, name, 32);
  parent.Messages.clear();
  child.Messages.clear();
  const HINSTANCE instance = ToolkitInstance();
  TermToolkit();
  EXPECT_FALSE(IsWindow(window) || IsWindow(control));
  EXPECT_TRUE(parent.Messages.empty() && child.Messages.empty()) << "no code of ours runs any more";
  WNDCLASSEXW found = {};
  found.cbSize = sizeof(found);
  EXPECT_FALSE(GetClassInfoExW(instance, name, &found));
  EXPECT_FALSE(GetClassInfoExW(instance, L"ProbeButton", &found));
  InitToolkit(instance);
  EXPECT_NE(nullptr, parent.Create(nullptr));
}

TEST(Toolkit, LeavesNoHandlesBehind) {
  ProbeWindow parent;
  parent.Create(nullptr);
  const auto round = [&] {
    ProbeWindow child;
    ProbeButton button;
    child.Create(parent.m_hWnd, nullptr, nullptr, WS_CHILD);
    button.Create(child.m_hWnd, nullptr, nullptr, WS_CHILD, 0, 3);
  };
  round();
  const HandleLevel before = HandleLevel::Now();
  for (int i = 0; i < 1000; ++i) round();
  EXPECT_EQ(before, HandleLevel::Now());
  std::vector<ProbeWindow> kept(50);
  for (ProbeWindow& window : kept) window.Create(nullptr);
  EXPECT_FALSE(before == HandleLevel::Now()) << "the level does move";
}

TEST(DrawBitmapInRect, StretchesOrCentres) {
  const WindowContext screen(nullptr);
  const OwnedBitmap small(CreateCompatibleBitmap(screen.get(), 2, 2));
  const OwnedBrush red(CreateSolidBrush(RGB(255, 0, 0)));
  {
    const MemoryContext context(screen.get());
    const Selection selected(context.get(), small.get());
    const RECT all = {0, 0, 2, 2};
    FillRect(context.get(), &all, red.get());
  }
  const PaintBuffer canvas(screen.get(), 20, 20);
  const auto reds = [&](bool stretch, HBITMAP bitmap) {
    PatBlt(canvas.get(), 0, 0, 20, 20, WHITENESS);
    DrawBitmapInRect(bitmap, canvas.get(), {5, 5, 15, 15}, stretch);
    RECT found = {99, 99, -1, -1};
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 20; ++x) {
        if (GetPixel(canvas.get(), x, y) != RGB(255, 0, 0)) continue;
        found = {std::min<LONG>(found.left, x), std::min<LONG>(found.top, y), std::max<LONG>(found.right, x + 1),
                 std::max<LONG>(found.bottom, y + 1)};
      }
    }
    return std::vector<LONG>{found.left, found.top, found.right, found.bottom};
  };
  EXPECT_THAT(reds(true, small.get()), ElementsAre(5, 5, 15, 15));
  EXPECT_THAT(reds(false, small.get()), ElementsAre(9, 9, 11, 11));
  EXPECT_THAT(reds(true, nullptr), ElementsAre(99, 99, -1, -1));
}

}  // namespace
