// Wrapping of text, the base of the page elements, text items and buttons.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <random>

#include "pages/VoteCommandPost.h"
#include "pages/VoteImageButton.h"
#include "pages/VoteText.h"
#include "pages/VoteTextItem.h"
#include "tests/pages/PaintRecorder.h"
#include "tests/pages/TestOwner.h"
#include "window/VoteResources.h"

namespace {

using Lines = std::vector<std::string>;

// A font whose characters are all `Cell` wide. What it reports as its widest one may be wider.
class FixedFont {
 public:
  FixedFont() {
    const Selection selected(m_Screen.get(), Get());
    GetTextMetricsW(m_Screen.get(), &m_Metrics);
  }
  HFONT Get() const { return static_cast<HFONT>(GetStockObject(SYSTEM_FIXED_FONT)); }
  HDC Screen() const { return m_Screen.get(); }
  int Cell() const { return MeasureTextWidth(L"x", Get()); }
  int Reserve() const { return m_Metrics.tmMaxCharWidth; }
  int LineHeight() const { return m_Metrics.tmHeight; }
  // The number of lines that a height was made of.
  int LinesOf(int height) const {
    const int lines = height - m_Metrics.tmInternalLeading;
    EXPECT_EQ(lines % m_Metrics.tmHeight, 0);
    return lines / m_Metrics.tmHeight;
  }

 private:
  WindowContext m_Screen{nullptr};
  TEXTMETRICW m_Metrics = {};
};

// The lines that are drawn, without colours and places.
Lines DrawnLines(const JW_String& text, HFONT font, int width) {
  PaintRecorder recorder;
  DrawWrappedText(recorder.dc(), {0, 0, width, 10000}, font, 0, text);
  Lines lines;
  for (const std::string& call : recorder.Calls()) lines.push_back(call.substr(call.rfind(' ') + 1));
  return lines;
}

TEST(WrappedText, BreaksByCharactersInAFixedFont) {
  const FixedFont font;
  const int cell = font.Cell();
  ASSERT_EQ(MeasureTextWidth(L"iiWW", font.Get()), 4 * cell);
  const struct {
    const wchar_t* text;
    int available;  // the width without the widest character, which is kept in reserve
    Lines drawn;
    int lines;  // counted; one more than drawn where a break stands at the very end
  } cases[] = {
      {L"abcdef", 6 * cell, {"abcdef"}, 1},
      {L"abcdef", 6 * cell - 1, {"abcdef"}, 2},
      {L"abcdefgh", 3 * cell, {"abc", "def", "gh"}, 3},
      {L"abcdefgh", 3 * cell + 1, {"abcd", "efgh"}, 3},
      {L"abc", cell, {"a", "b", "c"}, 3},
      {L"abc", cell - 1, {"a", "b", "c"}, 4},
      {L"abc", 0, {"a", "b", "c"}, 4},
      {L"a", -1000, {"a"}, 2},
      {L"ab\xD83D\xDE00z", 3 * cell, {"ab\xF0\x9F\x98\x80", "z"}, 2},
  };
  for (const auto& it : cases) {
    SCOPED_TRACE(testing::PrintToString(it.text) + " in " + std::to_string(it.available));
    const int width = it.available + font.Reserve();
    EXPECT_EQ(font.LinesOf(MeasureWrappedText(font.Screen(), it.text, font.Get(), width)), it.lines);
    if (width > 0) {
      EXPECT_EQ(DrawnLines(it.text, font.Get(), width), it.drawn);
    }
  }
}

// The same search, one measured text after the other.
int CountLinesByMeasuring(const JW_String& text, HFONT font, int available) {
  const auto width = [&](int first, int count) {
    return MeasureTextWidth(JW_String(text.GetString() + first, std::min(count, text.GetLength() - first)), font);
  };
  const int length = text.GetLength();
  const int full = width(0, length);
  const int step = available / (full / length);
  int lines = 1;
  for (int position = 0; width(position, length) > available;) {
    int count = step;
    if (const int w = width(position, step); w > available) {
      do --count;
      while (width(position, count) >= available);
      ++count;
    } else if (w < available) {
      do ++count;
      while (width(position, count) <= available);
    }
    position += count;
    ++lines;
  }
  return lines;
}

TEST(WrappedText, AgreesWithMeasuringLineByLineInAProportionalFont) {
  const FixedFont fixed;
  const HFONT font = VoteResources::Instance()->m_hFontTahoma;
  TEXTMETRICW metrics;
  const Selection selected(fixed.Screen(), font);
  GetTextMetricsW(fixed.Screen(), &metrics);
  std::mt19937 random(7);
  const wchar_t characters[] = L"iilWWm.,; AQ中文éÜ";
  for (int round = 0; round < 60; ++round) {
    JW_String text;
    const int length = 1 + static_cast<int>(random() % 120);
    // Runs of narrow and of wide characters, so that the search goes both ways from the average.
    for (wchar_t ch = L'i'; text.GetLength() < length; text += ch) {
      if (random() % 4 == 0) ch = characters[random() % (std::size(characters) - 1)];
    }
    const int available = 30 + static_cast<int>(random() % 300);
    const int height = MeasureWrappedText(fixed.Screen(), text, font, available + metrics.tmMaxCharWidth);
    EXPECT_EQ(height, metrics.tmHeight * CountLinesByMeasuring(text, font, available) + metrics.tmInternalLeading)
        << "round " << round;
  }
}

TEST(WrappedText, EndsForAnyText) {
  const FixedFont font;
  EXPECT_EQ(MeasureTextWidth(L"", font.Get()), 0);
  EXPECT_EQ(MeasureWrappedText(font.Screen(), L"", font.Get(), 100), 1);
  EXPECT_TRUE(DrawnLines(L"", font.Get(), 100).empty());
  EXPECT_GT(MeasureWrappedText(font.Screen(), L"\x200B\x200B\x200B", nullptr, 0), 0);  // without a width of their own
  MeasureWrappedText(nullptr, L"abc", font.Get(), 10);
  DrawWrappedText(nullptr, {0, 0, 10, 10}, font.Get(), 0, L"abc");

  JW_String endless;
  wchar_t* const units = endless.GetBufferSetLength(200000);
  std::fill(units, units + 200000, L'x');
  EXPECT_EQ(font.LinesOf(MeasureWrappedText(font.Screen(), endless, font.Get(), 0)), 200001);
}

TEST(TextItem, TakesTheHeightOfItsTextAndPaintsScrolled) {
  const TestOwner owner;
  const FixedFont font;
  VoteTextItem item;
  item.SetBounds(100, 20, 3 * font.Cell() + font.Reserve(), 77);
  item.SetFont(font.Get());
  item.Recalc();
  EXPECT_EQ(item.GetHeight(), 0);
  item.SetText(L"abcdef");
  item.Color = 0xFF3D00;
  EXPECT_TRUE(item.Recalc());
  EXPECT_EQ(font.LinesOf(item.GetHeight()), 2);

  const RECT view = {0, 0, 300, 200};
  PaintRecorder recorder;
  EXPECT_FALSE(item.Paint(recorder.dc(), view, 0)) << "no owner";
  item.SetOwner(owner.Get());
  EXPECT_FALSE(item.Paint(recorder.dc(), view, 100 + item.GetHeight())) << "scrolled out";
  EXPECT_TRUE(item.Paint(recorder.dc(), view, 99 + item.GetHeight()));
  EXPECT_TRUE(item.Paint(recorder.dc(), view, 60));
  const Lines calls = recorder.Calls();
  ASSERT_EQ(calls.size(), 4u);
  EXPECT_EQ(calls[2], "text 20,40 FF3D00 transparent abc");
  EXPECT_EQ(calls[3], "text 20," + std::to_string(40 + font.LineHeight()) + " FF3D00 transparent def");
}

TEST(DrawItem, HitsOnItsEdgesAndTellsItsOwnerAtTheEnd) {
  const TestOwner owner;
  auto item = std::make_unique<VoteTextItem>();
  item->SetBounds(10, 20, 30, 40);
  RECT bounds;
  item->GetBounds(&bounds);
  const RECT expected = {20, 10, 50, 50};
  EXPECT_TRUE(EqualRect(&bounds, &expected));
  const struct {
    int x, y;
    bool hit;
  } cases[] = {{20, 10, true}, {50, 50, true}, {51, 50, false}, {50, 51, false}, {19, 10, false}, {20, 9, false}};
  for (const auto& it : cases) EXPECT_EQ(item->HitTest(it.x, it.y), it.hit) << it.x << "," << it.y;

  item->SetOwner(owner.Get());
  owner.Validate();
  item->Invalidate();
  EXPECT_TRUE(owner.IsInvalid());
  const void* const address = item.get();
  item.reset();
  EXPECT_EQ(owner.LastDestroyed(), address);
}

class Button : public VotePageButton {
 public:
  Button() { SetBounds(10, 10, 50, 27); }
  void OnClick() override { ++clicks; }
  int clicks = 0;
};

TEST(ImageButton, FollowsTheMouse) {
  constexpr int kIn = 20, kOut = 500;
  const struct {
    int from, event, x, to, clicks;
    bool repaint;
  } cases[] = {
      {kButtonNormal, kMouseOver, kIn, kButtonHot, 0, true},
      {kButtonPressed, kMouseOver, kIn, kButtonPressed, 0, false},
      {kButtonPressed, kMouseLeave, 0, kButtonNormal, 0, true},
      {kButtonHot, kMouseDown, kIn, kButtonPressed, 0, true},
      {kButtonHot, kMouseDown, kOut, kButtonHot, 0, true},
      {kButtonPressed, kMouseUp, kIn, kButtonHot, 1, true},
      {kButtonPressed, kMouseUp, kOut, kButtonPressed, 0, false},
      {kButtonHot, kMouseUp, kIn, kButtonHot, 1, true},
      {kButtonNormal, kMouseUp, kIn, kButtonNormal, 0, false},
      {kButtonDisabled, kMouseOver, kIn, kButtonDisabled, 0, false},
      {kButtonDisabled, kMouseUp, kIn, kButtonDisabled, 0, false},
  };
  const TestOwner owner;
  for (const auto& it : cases) {
    SCOPED_TRACE(testing::Message() << "state " << it.from << " event " << it.event << " x " << it.x);
    Button button;
    button.SetOwner(owner.Get());
    button.SetState(it.from);
    owner.Validate();
    button.OnMouse(it.event, it.x, 20);
    EXPECT_EQ(button.GetState(), it.to);
    EXPECT_EQ(button.clicks, it.clicks);
    EXPECT_EQ(owner.IsInvalid(), it.repaint);
  }
}

TEST(ImageButton, PostsItsCommandForTheCurrentVote) {
  TestOwner window;
  VoteData* const data = VoteData::Get();
  VoteImageButton submit;
  EXPECT_EQ(submit.SetCommand(kCmdSubmit), -1);
  submit.OnClick();
  EXPECT_TRUE(window.TakeCommands().empty()) << "no main window";

  data->SetMainWindow(window.Get());
  submit.OnClick();
  VotePageButton edit;
  EXPECT_EQ(edit.SetCommand(kCmdEditItem), -1);
  edit.OnClick();  // without a question
  VoteItemRecord record;
  record.ItemID = 0x12345;
  const VoteItemEntry item(record);
  edit.Item = &item;
  VoteTopicRecord topic;
  topic.TopicID = 77;
  data->AddTopic(&topic);
  data->SelectTopic(77);
  edit.OnClick();
  const auto commands = window.TakeCommands();
  ASSERT_EQ(commands.size(), 2u);
  EXPECT_EQ(commands[0].Command, u32{kCmdSubmit});
  EXPECT_EQ(commands[0].TopicID, 0xFFFFFFFFu);
  EXPECT_EQ(commands[1].Command, u32{kCmdEditItem});
  EXPECT_EQ(commands[1].TopicID, 77u);
  EXPECT_EQ(commands[1].ItemID, 0x12345u);
  VoteData::Release();
}

TEST(ImageButton, PaintsTheFrameOfItsState) {
  const TestOwner owner;
  VoteImageButton button;
  button.SetOwner(owner.Get());
  button.SetBounds(104, 8, 10, 10);
  const BitmapCanvas canvas(40, 40);
  HIMAGELIST list = nullptr;
  button.SetImageList(&list);
  EXPECT_TRUE(button.Paint(canvas.dc(), {0, 0, 40, 40}, 100)) << "no list";
  // Four frames in four colours.
  const OwnedImageList frames(ImageList_Create(10, 10, ILC_COLOR24, 0, 4));
  constexpr COLORREF kFrames[] = {0x000010, 0x002000, 0x300000, 0x004040};
  for (const COLORREF color : kFrames) {
    const BitmapCanvas frame(10, 10, color);
    ImageList_Add(frames.get(), frame.ReleaseSelected(), nullptr);
  }
  list = frames.get();
  for (int state = kButtonNormal; state <= kButtonDisabled; ++state) {
    button.SetState(state);
    EXPECT_TRUE(button.Paint(canvas.dc(), {0, 0, 40, 40}, 100));
    EXPECT_EQ(GetPixel(canvas.dc(), 8, 4), kFrames[state]);
    EXPECT_EQ(GetPixel(canvas.dc(), 17, 13), kFrames[state]);
    EXPECT_EQ(GetPixel(canvas.dc(), 18, 14), 0xFFFFFFu);
  }
}

}  // namespace
