// The windows that list questions' pages: the answer view as the vote goes on, driven by mouse, wheel and scroll bar,
// and the preview pane.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "dialogs/VoteAnswerView.h"
#include "dialogs/VoteItemPreview.h"
#include "tests/dialogs/Picture.h"
#include "tests/dialogs/TestVote.h"
#include "tests/pages/TestOwner.h"

namespace {

constexpr DWORD kViewStyle = 0x50200203;
constexpr DWORD kPreviewStyle = 0x50A00203;
constexpr UINT kClick[] = {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP};

class Environment : public testing::Environment {
 public:
  void SetUp() override {
    m_pModule = std::make_unique<TestModule>();
    SetCursorPos(1270, 890);  // off every window of the tests
  }
  void TearDown() override { m_pModule.reset(); }

 private:
  std::unique_ptr<TestModule> m_pModule;
};
const testing::Environment* const g_pEnvironment = testing::AddGlobalTestEnvironment(new Environment);

// A page with its parts laid open.
struct OpenPage : VoteResultPage {
  using VoteResultPage::Buttons;
  using VoteResultPage::DetailButton;
  using VoteResultPage::Rows;
  static const OpenPage& Of(const VoteResultPage* page) { return *static_cast<const OpenPage*>(page); }
};

class View : public VoteAnswerView {
 public:
  using VoteAnswerView::FindPage;
  using VoteAnswerView::m_btnSubmit;
  using VoteAnswerView::m_nContent;
  using VoteAnswerView::m_nScroll;
  using VoteAnswerView::m_pHot;

  const OpenPage& Page(u32 itemId) const { return OpenPage::Of(FindPage(itemId)); }
  void Open(const TestVote& vote, HWND parent, int width = 380, int height = 300) {
    m_pTopic = vote.Topic();
    const RECT rect = {0, 0, width, height};
    ASSERT_TRUE(Create(parent, &rect, nullptr, kViewStyle));
    Paint();
  }
  void Paint() const { RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(m_hWnd, message, wParam, lParam);
  }
  void Mouse(UINT message, const VoteDrawItem& target) const {
    RECT rect;
    target.GetBounds(&rect);
    Send(message, 0, MAKELPARAM(rect.left + 5, rect.top + 5 - m_nScroll));
  }
  void Click(const VoteDrawItem& target) const {
    for (const UINT message : kClick) Mouse(message, target);
  }
  bool IsScrollEnabled() const {
    // The call tells whether it changed anything.
    return EnableScrollBar(m_hWnd, SB_VERT, ESB_DISABLE_BOTH) && EnableScrollBar(m_hWnd, SB_VERT, ESB_ENABLE_BOTH);
  }
};

SCROLLINFO ScrollOf(HWND window) {
  SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(window, SB_VERT, &info);
  return info;
}

class AnswerView : public testing::Test {
 protected:
  void AddQuestions(u32 count) const {
    for (u32 id = 1; id <= count; ++id) vote.Add(MakeItem(id, id % 2, "Lunch?", 2), {"Soup", "Salad", "Cake"});
  }
  std::vector<u32> Commands() {
    std::vector<u32> commands;
    for (const VoteUiCommand& it : owner.TakeCommands()) {
      EXPECT_EQ(it.Kind, 0u);
      EXPECT_EQ(it.TopicID, kTopic);
      commands.push_back(it.Command);
    }
    return commands;
  }

  TestOwner owner;
  TestVote vote{owner.Get()};
  std::unique_ptr<View> view = std::make_unique<View>();
};

TEST_F(AnswerView, StacksPagesInTheVotesOrder) {
  AddQuestions(2);
  view->Open(vote, owner.Get());
  vote.Add(MakeItem(3, 0, "Dinner?"), {"Fish"});
  vote.Add(MakeItem(3, 0, "Again"), {});
  VoteIdArray order;
  for (const u32 id : {3u, 1u, 2u}) order.Add(id);
  vote.data->SetItemOrder(kTopic, &order);
  view->Paint();
  RECT client;
  GetClientRect(view->m_hWnd, &client);
  EXPECT_EQ(view->Page(3).GetTop(), 10);
  EXPECT_EQ(view->Page(1).GetTop(), 10 + view->Page(3).GetHeight());
  EXPECT_EQ(view->Page(2).GetTop(), view->Page(1).GetTop() + view->Page(1).GetHeight());
  EXPECT_EQ(view->Page(2).GetWidth(), client.right);
  const int end = view->Page(2).GetTop() + view->Page(2).GetHeight();
  RECT submit;
  view->m_btnSubmit.GetBounds(&submit);
  EXPECT_EQ(submit.left, client.right / 2 - 40);
  EXPECT_EQ(submit.top, end + 40);
  EXPECT_EQ(submit.right - submit.left, 81);
  EXPECT_EQ(submit.bottom - submit.top, 22);
  EXPECT_EQ(view->m_nContent, end + 112);
  // First and last page can't be moved further.
  EXPECT_EQ(view->Page(3).Buttons[0]->GetState(), 3);
  EXPECT_EQ(view->Page(3).Buttons[1]->GetState(), 0);
  EXPECT_EQ(view->Page(2).Buttons[1]->GetState(), 3);
  // Options stand by number, however they came.
  VoteOptionList late;
  late.AddTail(MakeOption(9, 1, "Bread"));
  vote.data->AddOptions(&late);
  EXPECT_EQ(view->Page(1).Rows[0]->GetOptionID(), 9u);
  EXPECT_TRUE(view->Page(1).Rows[0]->HasOwner());
}

TEST_F(AnswerView, FollowsTheVote) {
  view->Open(vote, owner.Get());
  EXPECT_FALSE(view->IsScrollEnabled());
  AddQuestions(3);
  // Changed, with and without the options.
  VoteItemList items;
  items.AddTail(MakeItem(1, 0, "Dinner?"));
  vote.data->UpdateItems(&items, false, false);
  EXPECT_EQ(view->Page(1).Rows.GetSize(), 3);
  vote.data->UpdateItems(&items, true, false);
  EXPECT_EQ(view->Page(1).Rows.GetSize(), 0);
  VoteOptionList options;
  options.AddTail(MakeOption(20, 2, "Stew"));
  vote.data->UpdateOptions(&options, false);
  EXPECT_TRUE(view->Page(2).Rows[0]->HasOwner());
  vote.data->OnOptionRemoving(0, kTopic, 2, 20);
  EXPECT_EQ(view->Page(2).Rows[0]->GetOptionID(), 21u);
  // Gone.
  VoteIdArray ids;
  ids.Add(3);
  vote.data->RemoveItems(&ids);
  EXPECT_EQ(view->FindPage(3), nullptr);

  // Rights and the submit button.
  EXPECT_EQ(view->m_btnSubmit.GetState(), 3) << "not started";
  vote.Start();
  EXPECT_EQ(view->m_btnSubmit.GetState(), 0);
  EXPECT_EQ(view->Send(0x48C), 2);
  EXPECT_EQ(view->Send(0x496), 1);
  vote.Change([](VoteTopicRecord& topic) { topic.IsAllVote = topic.IsAllView = false; });
  EXPECT_EQ(view->m_btnSubmit.GetState(), 3);
  EXPECT_EQ(view->Send(0x48C), 0);
  EXPECT_EQ(view->Send(0x496), 0);
  vote.Change([](VoteTopicRecord& topic) {
    topic.VoterList.Add(kSelf);
    topic.ViewerList.Add(kSelf);
  });
  EXPECT_EQ(view->Send(0x48C), 2);
  EXPECT_EQ(view->Send(0x496), 1);
  // The manager's buttons come and go with the role, and follow the right and the states.
  EXPECT_EQ(view->Page(1).Buttons[2]->GetState(), 0);
  vote.data->SetOperateRight(0);
  EXPECT_EQ(view->Page(1).Buttons[2]->GetState(), 3);
  vote.data->SetOperateRight(1);
  vote.SetOpen(1, false);
  EXPECT_EQ(view->Page(1).Buttons[3]->GetState(), 0);
  vote.data->SetManager(kTopic, &kOther);
  EXPECT_TRUE(view->Page(1).Buttons.IsEmpty());
  vote.data->SetManager(kTopic, &kSelf);
  EXPECT_EQ(view->Page(1).Buttons.GetSize(), 5);

  // Events of another vote, and all without a vote, pass by.
  vote.data->OnItemRemoving(0, kTopic + 1, 1);
  EXPECT_NE(view->FindPage(1), nullptr);
  view->m_pTopic = nullptr;
  vote.data->OnItemRemoving(0, kTopic, 1);
  vote.data->OnResultStateChanged(0, kTopic, 1);
  vote.data->OnOperateRightChanged(0, 0);
  view->Paint();
  EXPECT_NE(view->FindPage(1), nullptr);
}

TEST_F(AnswerView, ShowsChartsOfOpenQuestions) {
  AddQuestions(2);
  view->Open(vote, owner.Get());
  // A digit each for page 1, page 2 and m_bResultShown.
  const auto charts = [this] {
    return view->Page(1).IsChartVisible() * 100 + view->Page(2).IsChartVisible() * 10 + view->m_bResultShown;
  };
  vote.Publish({10, 20});
  EXPECT_EQ(charts(), 111);
  vote.Start();
  EXPECT_EQ(charts(), 0);
  vote.SetOpen(2, false);
  vote.Publish({10, 20});
  EXPECT_EQ(charts(), 101);
  vote.SetOpen(1, false);
  EXPECT_EQ(charts(), 1);
  vote.data->ApplyVoteState(kTopic, 0);
  vote.Publish({10, 20});
  // Who may not see the results any more loses them; who may again waits for the next ones.
  vote.Change([](VoteTopicRecord& topic) { topic.IsAllView = false; });
  EXPECT_EQ(charts(), 1);
  vote.Publish({10, 20});
  EXPECT_EQ(charts(), 1);
}

TEST_F(AnswerView, AnswersAndPostsCommands) {
  AddQuestions(2);
  view->Open(vote, owner.Get(), 380, 900);
  vote.Publish({10, 11});
  vote.Start();
  vote.SetOpen(2, false);
  view->Paint();
  const VoteItemEntry& item = *vote.Item(1);
  const OpenPage& page = view->Page(1);
  view->Click(*page.Rows[0]);
  EXPECT_EQ(GetFocus(), view->m_hWnd);
  view->Mouse(WM_LBUTTONDBLCLK, *page.Rows[2]);
  EXPECT_EQ(item.CountSelected(), 1) << "the pointer never moved there";
  view->Click(*page.Rows[2]);
  EXPECT_TRUE(item.FindOption(10)->m_bSelected && item.FindOption(12)->m_bSelected);
  view->Click(*view->Page(2).Rows[0]);
  EXPECT_EQ(vote.Item(2)->CountSelected(), 0) << "closed";
  EXPECT_TRUE(Commands().empty()) << "answers are chosen at once";

  view->Click(view->m_btnSubmit);
  view->Click(*page.Buttons[1]);
  view->Click(*page.Buttons[2]);
  view->Click(*view->Page(2).Buttons[3]);
  view->Click(*page.Buttons[3]);  // an open question can't be edited
  EXPECT_EQ(Commands(), (std::vector<u32>{5, 1, 2, 3}));
  // Pressed here and let go elsewhere: the state goes with the pointer, and no command is sent.
  view->Mouse(WM_MOUSEMOVE, *page.Buttons[2]);
  view->Mouse(WM_LBUTTONDOWN, *page.Buttons[2]);
  view->Send(WM_LBUTTONUP, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(page.Buttons[2]->GetState(), 2);
  view->Send(WM_MOUSEMOVE, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(page.Buttons[2]->GetState(), 0);
  view->Mouse(WM_MOUSEMOVE, *page.Buttons[2]);
  view->Send(WM_MOUSELEAVE);
  EXPECT_EQ(page.Buttons[2]->GetState(), 0);
  EXPECT_TRUE(Commands().empty());

  vote.Publish({10, 11});
  view->Paint();
  view->Click(page.DetailButton);
  EXPECT_EQ(Commands(), std::vector<u32>{13});
}

TEST_F(AnswerView, Scrolls) {
  AddQuestions(5);
  view->Open(vote, owner.Get());
  const int range = view->m_nContent - 300;
  SCROLLINFO info = ScrollOf(view->m_hWnd);
  EXPECT_TRUE(view->IsScrollEnabled());
  EXPECT_EQ(info.nPage, 100u);
  EXPECT_EQ(info.nMin, 0);
  EXPECT_EQ(info.nMax, range + 100);
  const struct {
    UINT message;
    WPARAM wParam;
    int place;
  } steps[] = {
      {WM_VSCROLL, SB_LINEUP, 0},       {WM_VSCROLL, SB_LINEDOWN, 20},
      {WM_VSCROLL, SB_PAGEDOWN, 120},   {WM_VSCROLL, SB_THUMBTRACK, 120},  // where the system says that the thumb is
      {WM_VSCROLL, SB_ENDSCROLL, 120},  {WM_MOUSEWHEEL, MAKEWPARAM(0, -360), 140},
      {WM_MOUSEWHEEL, 0, 160},          {WM_MOUSEWHEEL, MAKEWPARAM(0, 1), 140},
      {WM_VSCROLL, SB_PAGEUP, 40},      {WM_VSCROLL, SB_BOTTOM, range},
      {WM_VSCROLL, SB_LINEDOWN, range}, {WM_VSCROLL, SB_TOP, 0},
  };
  for (const auto& it : steps) {
    view->Send(it.message, it.wParam);
    EXPECT_EQ(view->m_nScroll, it.place) << it.message << " " << it.wParam;
    EXPECT_EQ(ScrollOf(view->m_hWnd).nPos, it.place);
  }
  // What is seen moves by as much.
  view->Paint();
  const Picture before(view->m_hWnd);
  view->Send(WM_VSCROLL, SB_LINEDOWN);
  view->Paint();
  const Picture after(view->m_hWnd);
  for (int y = 0; y < 280; ++y) ASSERT_EQ(before.At(90, y + 20), after.At(90, y)) << y;
  // The place stays in proportion; two windows in one process disturb each other.
  view->Send(WM_VSCROLL, SB_BOTTOM);
  SetWindowPos(view->m_hWnd, nullptr, 0, 0, 380, 400, SWP_NOMOVE);
  EXPECT_EQ(view->m_nScroll, range - 100);
  View other;
  other.Open(vote, owner.Get(), 380, 400 + (range - 100) / 2);
  SetWindowPos(view->m_hWnd, nullptr, 0, 0, 380, 399, SWP_NOMOVE);
  EXPECT_EQ(view->m_nScroll, range - 99) << "twice the range, brought back into it";
  SetWindowPos(view->m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOMOVE);
  EXPECT_EQ(view->m_nScroll, range - 99) << "without a width nothing changes";
  SetWindowPos(view->m_hWnd, nullptr, 0, 0, 380, 2000, SWP_NOMOVE);
  EXPECT_EQ(view->m_nScroll, 0);
  EXPECT_FALSE(view->IsScrollEnabled());
}

TEST_F(AnswerView, ForgetsWhatIsGone) {
  AddQuestions(2);
  view->Open(vote, owner.Get(), 380, 700);
  vote.Start();
  view->Paint();
  view->Mouse(WM_MOUSEMOVE, *view->Page(1).Rows[0]);
  EXPECT_EQ(view->m_pHot, view->Page(1).Rows[0]);
  VoteIdArray ids;
  ids.Add(1);
  vote.data->RemoveItems(&ids);
  EXPECT_EQ(view->m_pHot, nullptr);
  view->Send(WM_LBUTTONUP);
  // The host ends the page, and then the whole window, while it is asked about the click.
  view->Paint();

  vote.sink.onAsk = [this] {
    VoteIdArray second;
    second.Add(2);
    vote.data->RemoveItems(&second);
  };
  view->Click(*view->Page(2).Rows[0]);
  EXPECT_EQ(view->FindPage(2), nullptr);
  vote.sink.onAsk = nullptr;
  AddQuestions(1);
  vote.SetOpen(1, true);
  view->Paint();
  vote.sink.onAsk = [this] { view.reset(); };
  View& clicked = *view;
  clicked.Click(*clicked.Page(1).Rows[0]);
  EXPECT_EQ(view, nullptr);
}

TEST_F(AnswerView, PaintsTheBackgroundAloneWithoutQuestions) {
  view->Open(vote, owner.Get(), 200, 150);
  const std::vector<unsigned> pixels = Picture(view->m_hWnd).Pixels();
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xF2FBFFu), static_cast<long>(pixels.size()));
  EXPECT_EQ(view->Send(WM_ERASEBKGND), 1);
  View idle;  // without a vote nothing is painted, and the update region doesn't stay
  const RECT rect = {0, 0, 50, 50};
  idle.Create(owner.Get(), &rect, nullptr, kViewStyle);
  idle.Paint();
  EXPECT_FALSE(GetUpdateRect(idle.m_hWnd, nullptr, FALSE));
}

class Preview : public VoteItemPreview {
 public:
  using VoteItemPreview::m_bHasItem;
  using VoteItemPreview::m_nContent;
  using VoteItemPreview::m_Options;
  using VoteItemPreview::m_Page;
};

VoteOptionList OptionList(int count) {
  VoteOptionList list;
  for (int i = 0; i < count; ++i) list.AddTail(MakeOption(static_cast<u32>(i), 1, "Soup"));
  return list;
}

TEST_F(AnswerView, PreviewShowsOneQuestion) {
  Preview preview;
  const RECT rect = {0, 0, 300, 120};
  ASSERT_TRUE(preview.Create(owner.Get(), &rect, nullptr, kPreviewStyle));
  const auto paint = [&] { RedrawWindow(preview.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); };
  paint();
  EXPECT_EQ(preview.m_nContent, 0);
  preview.ShowItem(MakeItem(1, 0, "Lunch?"), 3);
  preview.ShowOptions(OptionList(0));
  EXPECT_FALSE(preview.m_bHasItem) << "a question waits for its options";
  preview.ShowOptions(OptionList(5));
  paint();
  EXPECT_TRUE(preview.m_bHasItem);
  EXPECT_EQ(preview.m_Page.GetTop(), 10);
  EXPECT_EQ(preview.m_nContent, preview.m_Page.GetHeight() + 60);
  RECT client;
  GetClientRect(preview.m_hWnd, &client);
  const SCROLLINFO info = ScrollOf(preview.m_hWnd);
  EXPECT_EQ(info.nPage, 50u);
  EXPECT_EQ(info.nMax, preview.m_nContent - client.bottom + 50);
  SetFocus(owner.Get());
  SendMessageW(preview.m_hWnd, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
  EXPECT_EQ(ScrollOf(preview.m_hWnd).nPos, 20);
  EXPECT_EQ(GetFocus(), preview.m_hWnd);

  preview.ClearItem();
  EXPECT_FALSE(preview.m_bHasItem);
  ASSERT_EQ(preview.m_Options.GetSize(), 2);
  EXPECT_EQ(preview.m_Options[0]->OptionID, 1u);
  EXPECT_EQ(preview.m_Options[1]->OptionID, 3u);
  preview.ShowItem(MakeItem(2, 1, "Dinner?"), 4);
  EXPECT_TRUE(preview.m_bHasItem) << "options are held from before";
  paint();
}

// Runs `open` a thousand times. New handles take the places that were freed last, so places far behind those of before
// mean that some weren't freed.
template <class Open>
void ExpectLevelHandles(Open open) {
  const auto places = [] {
    const OwnedBrush brush(CreateSolidBrush(0x123456));
    const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(window);
    return std::pair<int, int>(LOWORD(reinterpret_cast<ULONG_PTR>(brush.get())),
                               LOWORD(reinterpret_cast<ULONG_PTR>(window)));
  };
  for (int i = 0; i < 10; ++i) open();
  const auto before = places();
  for (int i = 0; i < 1000; ++i) open();
  const auto after = places();
  EXPECT_LT(std::abs(after.first - before.first), 100) << "drawing handles";
  EXPECT_LT(std::abs(after.second - before.second), 100) << "windows";
}

TEST_F(AnswerView, LeavesNothingBehind) {
  AddQuestions(2);
  vote.Publish({10, 20});
  // Small as a rule, since a thousand windows have to be painted.
  ExpectLevelHandles([this, count = 0]() mutable {
    View opened;
    const bool isLarge = ++count % 50 == 0;
    opened.Open(vote, owner.Get(), isLarge ? 380 : 100, isLarge ? 300 : 40);
    opened.OnResultStateChanged(0, kTopic, 1);
    if (isLarge) opened.Paint();
    if (count % 2) opened.DestroyWindow();
  });
}

TEST_F(AnswerView, DoesWithoutResources) {
  const JW_HMODULE texts = platform::ResourceModule();
  platform::SetResourceModule(nullptr);
  VoteResources::Destroy();
  {
    View bare;
    AddQuestions(2);
    vote.Publish({10, 20});
    bare.Open(vote, owner.Get());
    bare.Click(*bare.Page(1).Rows[0]);
    for (const int size : {0, 1, 30}) {
      SetWindowPos(bare.m_hWnd, nullptr, 0, 0, size, size, SWP_NOMOVE);
      bare.Paint();
    }
    View ownerless;
    ownerless.OnItemAdded(0, kTopic, vote.Item(1));
  }
  platform::SetResourceModule(texts);
  VoteResources::Destroy();
}

// The states of a page in both languages, for people to look at, in the folder "pictures" beside this program.
TEST_F(AnswerView, HasItsPictureTaken) {
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::filesystem::path folder = std::filesystem::path(program).parent_path() / "pictures";
  std::filesystem::create_directory(folder);
  const struct {
    LANGID language;
    const char* name;
    const char* question;
    const char* many;
    std::vector<const char*> options;
  } languages[] = {
      {MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US),
       "en",
       "Where should the next meeting be held?",
       "Which days suit you?",
       {"In the large hall on the second floor", "Online",
        "At the customer's site, provided that the travel costs "
        "are approved by the end of the month and everybody finds a room"}},
      {MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED),
       "zh",
       "下次会议在哪里举行？",
       "哪几天对您合适？",
       {"二楼大会议室", "线上会议", "客户现场，前提是差旅费用在月底之前获得批准，并且每位与会者都能找到住处"}},
  };
  // The fixture's owner is too small.
  const HWND parent =
      CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 620, 800, nullptr, nullptr, nullptr, nullptr);
  for (const auto& it : languages) {
    TestModule::UseLanguage(it.language);
    VoteData::Release();
    TestVote fresh(owner.Get());
    fresh.Add(MakeItem(1, 0, it.question), it.options);
    fresh.Add(MakeItem(2, 1, it.many, 2), {"Mon", "Tue", "Wed", "Thu"});
    View shown;
    shown.Open(fresh, parent, 620, 800);
    const auto take = [&](const char* state) {
      shown.Paint();
      UpdateWindow(shown.m_hWnd);
      const std::string name = std::string("answers-") + it.name + "-" + state + ".bmp";
      EXPECT_TRUE(Picture(shown.m_hWnd).SaveBmp((folder / name).string()));
    };
    take("1-ready");
    fresh.Start();
    fresh.SetOpen(2, false);
    take("2-running");
    shown.Click(*shown.Page(1).Rows[1]);
    shown.Mouse(WM_MOUSEMOVE, *shown.Page(1).Buttons[2]);
    take("3-answered-hot");
    fresh.data->ApplyVoteState(kTopic, 0);
    fresh.Publish({10, 10, 11, 12, 12, 12, 20, 21, 21, 23});
    take("4-results");
    fresh.data->SetManager(kTopic, &kOther);
    take("5-results-participant");
    fresh.Start();
    take("6-running-participant");
  }
  DestroyWindow(parent);
  TestModule::UseLanguage(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US));
}

}  // namespace
