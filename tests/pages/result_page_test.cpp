// A question's page and its option rows: texts, layout, buttons, marks and what a click does.
#include "pages/VoteResultPage.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "JW_Base/Include/JW_Utf8.h"
#include "pages/VoteText.h"
#include "resources/ResourceIds.h"
#include "tests/dialogs/Picture.h"
#include "tests/dialogs/TestVote.h"
#include "tests/pages/PaintRecorder.h"
#include "tests/pages/TestOwner.h"

namespace {

constexpr RECT kEverything = {-10000, -10000, 10000, 10000};

std::string Utf8(const JW_String& text) {
  return JW_Utf8FromWide(text).GetString();
}

std::string BoundsOf(const VoteDrawItem& item) {
  RECT rect;
  item.GetBounds(&rect);
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}
std::string Bounds(int left, int top, int width, int height) {
  return std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(left + width) + "," +
         std::to_string(top + height);
}

class Page : public VoteResultPage {
 public:
  using VoteResultPage::Buttons;
  using VoteResultPage::Chart;
  using VoteResultPage::DetailButton;
  using VoteResultPage::NumberLabel;
  using VoteResultPage::OptionsLabel;
  using VoteResultPage::Rows;
  using VoteResultPage::StateLabel;
  using VoteResultPage::TitleLabel;
  using VoteResultPage::TypeLabel;
};

class Row : public VoteOptionRow {
 public:
  using VoteOptionRow::LetterRect;
  using VoteOptionRow::MarkRect;
  using VoteOptionRow::MouseState;
};

// Answers the question for the right to vote.
class VotingOwner {
 public:
  explicit VotingOwner(HWND window) { SetWindowSubclass(window, Procedure, 1, reinterpret_cast<DWORD_PTR>(this)); }
  int right = 1;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR self) {
    if (message == kMsgVoteRight) return reinterpret_cast<VotingOwner*>(self)->right;
    return DefSubclassProc(window, message, wParam, lParam);
  }
};

class ResultPage : public testing::Test {
 protected:
  // Question 1 with options 10, 11 and 12, on a page of its own.
  void Show(u32 type, u32 limit = 0, const std::vector<const char*>& options = {"Soup", "Salad", "Cake"}) {
    vote.Add(MakeItem(1, type, "Lunch?", limit), options);
    page->SetItem(vote.Item(1));
    page->SetOwner(owner.Get());
    for (const u32 id : vote.Item(1)->m_OptionOrder) AddRow(id);
  }
  Row* AddRow(u32 id) {
    Row* const row = new Row;
    row->SetOption(vote.Item(1)->FindOption(id));
    page->AddRow(row);
    return row;
  }
  void LayOut(int top = 0, int width = 400) {
    page->SetTop(top);
    page->SetWidth(width);
    ASSERT_TRUE(page->Recalc());
  }
  std::vector<std::string> Painted(int scroll = 0) {
    PaintRecorder recorder;
    EXPECT_TRUE(page->Paint(recorder.dc(), kEverything, scroll));
    return recorder.Calls();
  }
  // The states of the five buttons, and the caption of the middle one.
  std::string ButtonStates() const {
    std::string states;
    for (const VotePageButton* const button : page->Buttons) states += std::to_string(button->GetState());
    return page->Buttons.IsEmpty() ? "none" : states + " " + Utf8(page->Buttons[2]->GetText());
  }

  TestOwner owner;
  VotingOwner voter{owner.Get()};
  TestVote vote{owner.Get()};
  std::unique_ptr<Page> page = std::make_unique<Page>();
};

TEST_F(ResultPage, TellsTheKindInTwoWays) {
  const struct {
    u32 type, limit;
    const char* bound;
    const char* numbered;
  } cases[] = {
      {0, 2, "Type: Choose one", "Type: Choose one"},
      {2, 0, "Type: Yes or no", "Type: Yes or no"},
      {9, 0, "Type: Yes or no", "Type: Yes or no"},
      {1, 0, "Type: Choose any ", "Type: Choose any (no limit)"},
      {1, 1, "Type: Choose any (up to 1) ", "Type: Choose any (up to 1)"},
      {1, 2, "Type: Choose any (up to 2) ", "Type: Choose any (up to 2)"},
      {1, 3, "Type: Choose any (up to 3) ", "Type: Choose any (no limit)"},
      {1, 0xFFFFFFFF, "Type: Choose any ", "Type: Choose any (no limit)"},
  };
  Show(0);
  for (const auto& it : cases) {
    VoteItemEntry* const item = vote.Item(1);
    item->ItemType = it.type;
    item->MultiSelLim = it.limit;
    page->SetItem(item);
    EXPECT_EQ(Utf8(page->NumberLabel.GetText()), "Q");
    EXPECT_EQ(Utf8(page->TypeLabel.GetText()), it.bound);
    page->SetNumber(4);
    page->SetNumber(4);
    EXPECT_EQ(Utf8(page->NumberLabel.GetText()), "Q4:");
    EXPECT_EQ(Utf8(page->TypeLabel.GetText()), it.numbered);
  }
  // A row more lifts the limit's meaning, at the same number.
  vote.Item(1)->ItemType = 1;
  vote.Item(1)->MultiSelLim = 3;
  page->SetNumber(4);
  AddRow(12);
  page->SetNumber(4);
  EXPECT_EQ(Utf8(page->TypeLabel.GetText()), "Type: Choose any (up to 3)");
}

TEST_F(ResultPage, StandsInALineUnderALine) {
  Show(1, 2, {"Soup", "Salad", "A cake that is so long that it certainly can't stand on one line of this narrow page"});
  page->SetButtonsVisible(true);
  LayOut(50);
  const int line = page->NumberLabel.GetHeight();
  const int tall = page->Rows[2]->GetHeight();
  ASSERT_GT(tall, line);
  EXPECT_EQ(BoundsOf(page->NumberLabel), Bounds(5, 60, 90, line));
  EXPECT_EQ(BoundsOf(page->TitleLabel), Bounds(95, 60, 310, line));
  EXPECT_EQ(BoundsOf(page->TypeLabel), Bounds(5, 60 + line, 400, line));
  EXPECT_EQ(BoundsOf(page->StateLabel), Bounds(5, 60 + 2 * line, 400, line));
  EXPECT_EQ(BoundsOf(page->OptionsLabel), Bounds(5, 60 + 3 * line, 400, line));
  const int rows = 70 + 4 * line;
  EXPECT_EQ(BoundsOf(*page->Rows[0]), Bounds(77, rows, 323, line));
  EXPECT_EQ(BoundsOf(*page->Rows[2]), Bounds(77, rows + 2 * (line + 8), 323, tall));
  const Row& last = static_cast<Row&>(*page->Rows[2]);
  EXPECT_TRUE(EqualRect(&last.MarkRect, std::array{RECT{77, last.GetTop(), 107, last.GetTop() + 15}}.data()));
  EXPECT_TRUE(EqualRect(&last.LetterRect, std::array{RECT{107, last.GetTop(), 137, last.GetTop() + tall}}.data()));

  const int end = rows + 2 * (line + 8) + tall + 8;
  const std::array<std::string, 5> buttons = {Bounds(176, end, 27, 27), Bounds(205, end, 27, 27),
                                              Bounds(234, end, 50, 27), Bounds(286, end, 50, 27),
                                              Bounds(338, end, 50, 27)};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(BoundsOf(*page->Buttons[i]), buttons[static_cast<size_t>(i)]);
  EXPECT_EQ(page->GetHeight(), end + 27 - 50);
  EXPECT_EQ(page->DetailButton.GetState(), 3);

  // The chart takes the buttons beside its foot.
  vote.Publish({11, 12});
  page->SetChartVisible(true);
  LayOut(50);
  EXPECT_EQ(BoundsOf(page->Chart), Bounds(15, end + 10, 210, 210));
  EXPECT_EQ(page->GetHeight(), end + 220 - 50);
  EXPECT_EQ(BoundsOf(*page->Buttons[0]), Bounds(176, end + 220 - 27, 27, 27));
  EXPECT_EQ(BoundsOf(page->DetailButton), Bounds(307, end + 220 - 54, 81, 22));
  EXPECT_EQ(page->DetailButton.GetState(), 0);
  // Without the buttons it ends at the same place, in an unsigned vote without details.
  page->SetButtonsVisible(false);
  vote.Change([](VoteTopicRecord& topic) { topic.IsSignVote = false; });
  LayOut(50);
  EXPECT_EQ(page->GetHeight(), end + 220 - 50);
  EXPECT_EQ(page->DetailButton.GetState(), 3);

  // A new width moves the buttons at once.
  page->SetButtonsVisible(true);
  page->SetWidth(500);
  EXPECT_EQ(page->Buttons[4]->GetLeft(), 438);
}

TEST_F(ResultPage, PaintsItsTextsInOrder) {
  Show(0);
  page->SetButtonsVisible(true);
  page->SetNumber(1);
  LayOut();
  const int line = page->NumberLabel.GetHeight();
  vote.Item(1)->IsOpen = true;
  const auto text = [](int x, int y, const char* rest) {
    return "text " + std::to_string(x) + "," + std::to_string(y) + " " + rest;
  };
  const int rows = 10 + 4 * line;
  std::vector<std::string> calls = Painted(10);
  ASSERT_EQ(calls.size(), 14u);
  calls.resize(11);  // captions stand where the font centres them
  EXPECT_EQ(calls, (std::vector<std::string>{
                       text(5, 0, "000000 transparent Q1:"),
                       text(95, 0, "FF3D00 transparent Lunch?"),
                       text(5, line, "000000 transparent Type: Choose one"),
                       text(5, 2 * line, "000000 transparent State: Voting open"),
                       text(5, 3 * line, "000000 transparent Options:"),
                       text(107, rows, "000000 transparent (A)  "),
                       text(137, rows, "000000 transparent Soup"),
                       text(107, rows + line + 8, "000000 transparent (B)  "),
                       text(137, rows + line + 8, "000000 transparent Salad"),
                       text(107, rows + 2 * (line + 8), "000000 transparent (C)  "),
                       text(137, rows + 2 * (line + 8), "000000 transparent Cake"),
                   }));
  // Nothing is drawn out of view, or without an owner or a question.
  const Picture canvas(10, 10);
  EXPECT_FALSE(page->Paint(canvas.dc(), {0, 0, 400, 300}, 1000));
  EXPECT_FALSE(page->Paint(nullptr, kEverything, 0));
  page->SetOwner(nullptr);
  EXPECT_FALSE(page->Paint(canvas.dc(), kEverything, 0));
  EXPECT_FALSE(page->Rows[0]->Paint(canvas.dc(), kEverything, 0));
  Page unbound;
  unbound.SetOwner(owner.Get());
  EXPECT_FALSE(unbound.Paint(canvas.dc(), kEverything, 0));
}

TEST_F(ResultPage, LettersRunOnBehindZ) {
  VoteOptionRow row;
  row.SetIndex(25);
  EXPECT_EQ(Utf8(row.GetLetter()), "(Z)  ");
  row.SetIndex(26);
  EXPECT_EQ(Utf8(row.GetLetter()), "([)  ");
}

TEST_F(ResultPage, ButtonsFollowRightAndStates) {
  Show(0);
  page->SetButtonsVisible(true);
  const VotePageButton* const first = page->Buttons[0];
  page->SetButtonsVisible(true);
  EXPECT_EQ(page->Buttons[0], first);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(page->Buttons[i]->GetCommand(), i);
  EXPECT_EQ(Utf8(page->Buttons[3]->GetText()) + Utf8(page->Buttons[4]->GetText()), "EditDelete");
  const struct {
    bool right, started, open, isFirst, isLast;
    const char* states;
  } cases[] = {
      {true, false, false, false, false, "00300 Close"}, {true, true, false, false, false, "00000 Open"},
      {true, true, true, true, false, "30033 Close"},    {true, true, true, false, true, "03033 Close"},
      {true, false, true, true, true, "33333 Close"},    {false, true, false, false, false, "33333 Open"},
      {false, true, true, false, false, "33333 Close"},  {false, false, false, false, false, "33333 Close"},
  };
  for (const auto& it : cases) {
    vote.data->SetOperateRight(it.right);
    vote.Topic()->IsStarted = it.started;
    vote.Item(1)->IsOpen = it.open;
    page->RefreshButtons();
    page->SetFirst(it.isFirst);
    page->SetLast(it.isLast);
    EXPECT_EQ(ButtonStates(), it.states);
  }
  // A state that isn't the disabled one stays.
  vote.data->SetOperateRight(1);
  page->SetFirst(false);
  page->Buttons[0]->SetState(2);
  page->SetFirst(false);
  EXPECT_EQ(page->Buttons[0]->GetState(), 2);
  // A question that is unbound leaves without rows and buttons, but isn't forgotten.
  page->SetItem(nullptr);
  EXPECT_EQ(ButtonStates(), "none");
  EXPECT_TRUE(page->Rows.IsEmpty());
  EXPECT_EQ(page->GetItem(), vote.Item(1));
}

TEST_F(ResultPage, KeepsItsRows) {
  Show(0);
  Row* const changed = new Row;
  changed->SetOption(vote.Item(1)->FindOption(11));
  page->ReplaceRow(changed);
  EXPECT_EQ(page->Rows[1], changed);
  EXPECT_FALSE(changed->HasOwner()) << "a replacement brings its own owner";
  Row* const stranger = new Row;
  page->ReplaceRow(stranger);
  page->ReplaceRow(nullptr);
  page->AddRow(nullptr);
  page->RemoveRow(99);
  ASSERT_EQ(page->Rows.GetSize(), 3);
  page->RemoveRow(11);
  EXPECT_EQ(page->Rows[1]->GetOptionID(), 12u);
  EXPECT_FALSE(page->UpdateRow(nullptr));
  EXPECT_TRUE(page->UpdateRow(vote.Item(1)->FindOption(12)));
  AddRow(11);
  page->SortRows();
  EXPECT_EQ(page->Rows[1]->GetOptionID(), 11u);
}

TEST_F(ResultPage, FindsTheElementUnderThePoint) {
  Show(0);
  page->SetButtonsVisible(true);
  vote.Publish({10});
  page->SetChartVisible(true);
  LayOut();
  const VoteDrawItem* const row = page->Rows[0];
  EXPECT_EQ(page->ItemAt(77, row->GetTop()), row);
  EXPECT_EQ(page->ItemAt(107, row->GetTop() + 15), row);
  EXPECT_EQ(page->ItemAt(108, row->GetTop()), nullptr) << "letter and text take no clicks";
  const auto at = [&](const VoteDrawItem& item) { return page->ItemAt(item.GetLeft() + 1, item.GetTop() + 1); };
  EXPECT_EQ(at(*page->Buttons[4]), page->Buttons[4]);
  EXPECT_EQ(at(page->DetailButton), &page->DetailButton);
  const int legendX = 15 + 210 + 18;
  EXPECT_EQ(page->ItemAt(legendX, page->Chart.GetTop()), &page->Chart);
  page->SetChartVisible(false);
  EXPECT_EQ(at(page->DetailButton), nullptr);
  EXPECT_EQ(page->ItemAt(legendX, page->Chart.GetTop()), &page->Chart) << "asked also where it isn't seen";
}

TEST_F(ResultPage, MarksShowLifeAndChoice) {
  Show(1, 2);
  LayOut();
  VoteOptionEntry* const option = vote.Item(1)->FindOption(10);
  const VoteResources& resources = *VoteResources::Instance();
  for (const u32 type : {0u, 1u, 2u}) {
    for (const int bits : {0, 1, 2, 3, 4, 5, 6, 7}) {
      vote.Item(1)->ItemType = type;
      vote.Item(1)->IsOpen = bits & 1;
      voter.right = (bits & 2) / 2;
      option->m_bSelected = bits & 4;
      const int image = (bits & 3) == 3 ? (bits & 4) / 4 : 3 - (bits & 4) / 4;
      const Picture painted(130, 40);
      page->Rows[0]->DrawMark(painted.dc(), 77, 10, 107, 25);
      const Picture expected(130, 40);
      ImageList_Draw(type == 1 ? resources.m_hMarkMultiple : resources.m_hMarkSingle, image, expected.dc(), 85, 8, 0);
      EXPECT_EQ(painted.Pixels(), expected.Pixels()) << type << " " << bits;
    }
  }
}

TEST_F(ResultPage, AnswersAtTheMark) {
  Show(1, 2);
  LayOut();
  Row& row = static_cast<Row&>(*page->Rows[1]);
  const VoteOptionEntry& option = *vote.Item(1)->FindOption(11);
  const auto click = [&row] {
    for (const int event : {kMouseOver, kMouseDown, kMouseUp}) row.OnMouse(event, 0, 0);
  };
  click();
  EXPECT_EQ(row.MouseState, 0) << "a closed question hears nothing";
  vote.Start();
  vote.data->SetCurrentTopic(vote.Topic());
  owner.Validate();
  click();
  EXPECT_TRUE(option.m_bSelected);
  EXPECT_TRUE(owner.IsInvalid());
  click();
  EXPECT_FALSE(option.m_bSelected);
  // Let go over the mark without a press here counts, without a move over it doesn't.
  row.OnMouse(kMouseUp, 0, 0);
  EXPECT_TRUE(option.m_bSelected);
  row.OnMouse(kMouseLeave, 0, 0);
  row.OnMouse(kMouseDown, 0, 0);
  row.OnMouse(kMouseUp, 0, 0);
  EXPECT_TRUE(option.m_bSelected);
  voter.right = 0;
  click();
  EXPECT_TRUE(option.m_bSelected);
  EXPECT_TRUE(owner.TakeCommands().empty());
  // The host drops the page within the click.
  voter.right = 1;
  vote.sink.onAsk = [this] { page.reset(); };
  click();
  EXPECT_EQ(page, nullptr);
}

TEST_F(ResultPage, SurvivesOddSizesAndTexts) {
  Show(0, 0, {"", "x", "A text"});
  page->SetButtonsVisible(true);
  page->SetChartVisible(true);
  const Picture canvas(50, 50);
  for (const int width : {0, 1, 5, 80, 140, -100}) {
    LayOut(0, width);
    page->Paint(canvas.dc(), kEverything, 0);
    page->ItemAt(0, 0);
  }
  LayOut();
  EXPECT_EQ(page->Rows[0]->GetHeight(), 1);
}

}  // namespace
