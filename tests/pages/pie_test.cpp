// The pie chart: geometry, labels, legend, colours and the pointer.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "files/VotePalette.h"
#include "pages/VotePieChart.h"
#include "pages/VoteText.h"
#include "platform/Resources.h"
#include "tests/pages/PaintRecorder.h"
#include "tests/pages/TestOwner.h"

namespace {

class Chart : public VotePieChart {
 public:
  using VotePieChart::Font;
  using VotePieChart::PieRect;
  using VotePieChart::Slices;
};

std::string Text(const POINT& point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}
std::string Text(const RECT& rect) {
  return Text(POINT{rect.left, rect.top}) + "," + Text(POINT{rect.right, rect.bottom});
}
std::wstring Text(const JW_String& text) {
  return text.GetString();
}

// A question whose option i has the id i + 1 and counts[i] answers, and a chart of it as the page places it.
class PieTest : public testing::Test {
 protected:
  static constexpr RECT kView = {0, 0, 800, 400};

  static void SetUpTestSuite() {
    s_hTexts = LoadLibraryExW(L"ZQVoteRes.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(s_hTexts);
    platform::SetResourceModule(s_hTexts);
  }
  static void TearDownTestSuite() {
    platform::SetResourceModule(nullptr);
    FreeLibrary(s_hTexts);
  }

  PieTest() {
    chart.SetOwner(owner.Get());
    chart.SetLeft(15);
    chart.SetTop(50);
    chart.SetWidth(210);
    chart.SetHeight(210);
  }

  void Show(const std::vector<int>& counts) {
    item = std::make_unique<VoteItemEntry>(VoteItemRecord());
    for (size_t i = 0; i < counts.size(); ++i) {
      VoteOptionRecord option;
      option.OptionID = static_cast<u32>(i) + 1;
      item->AddOption(option);
      if (counts[i] > 0) Answer(option.OptionID, counts[i]);
    }
    item->RebuildOptionOrder();
    chart.SetItem(item.get());
    EXPECT_TRUE(chart.Recalc());
  }
  void Answer(u32 optionId, int count) {
    item->m_Tally.m_OptionCount[optionId] = count;
    item->m_Tally.m_nAnswers += count;
  }
  const VoteSliceInfo& Slice(int n) const { return *chart.Slices[n]; }
  COLORREF KeyColor(const BitmapCanvas& canvas, int n) const {
    return GetPixel(canvas.dc(), Slice(n).KeyRect.left + 2, Slice(n).KeyRect.top + 2);
  }
  // Halfway from the centre to the rim, where no label stands.
  COLORREF SliceColor(const BitmapCanvas& canvas, int n) const {
    return GetPixel(canvas.dc(), (Slice(n).Mid.x + 120) / 2, (Slice(n).Mid.y + 155) / 2);
  }

  static inline HMODULE s_hTexts = nullptr;
  TestOwner owner;
  std::unique_ptr<VoteItemEntry> item;
  Chart chart;
};

TEST_F(PieTest, LabelsHaveFewerDigitsOnSmallSlices) {
  const struct {
    int count, total;
    const wchar_t* label;
    const wchar_t* legend;
  } cases[] = {
      {1, 1, L"100.00%", L" 1 vote(s)  100.00%  "}, {1, 3, L"33.33%", L" 1 vote(s)  33.33%  "},
      {6, 100, L"6.00%", L" 6 vote(s)  6.00%  "},   {599, 10000, L"6.0%", L" 599 vote(s)  5.99%  "},
      {2, 100, L"2.0%", L" 2 vote(s)  2.00%  "},    {199, 10000, L"1%", L" 199 vote(s)  1.99%  "},
      {5, 1000, L"0%", L" 5 vote(s)  0.50%  "},
  };
  for (const auto& it : cases) {
    Show({it.count, it.total - it.count});
    EXPECT_EQ(Text(Slice(0).Label), it.label);
    EXPECT_EQ(Text(Slice(0).Legend), it.legend);
  }
}

TEST_F(PieTest, RunsClockwiseFromThreeOClock) {
  Show({1, 1, 1, 1});
  ASSERT_EQ(chart.Slices.GetSize(), 4);
  const char* const starts[] = {"225,155", "120,260", "15,155", "120,50"};
  for (int n = 0; n < 4; ++n) {
    EXPECT_EQ(Text(Slice(n).Start), starts[n]);
    EXPECT_EQ(Text(Slice(n).End), starts[(n + 1) % 4]);
  }
  EXPECT_EQ(Text(Slice(2).Mid), "46,81");
  const int width = MeasureTextWidth(L"25.00%", chart.Font.get());
  EXPECT_EQ(Text(Slice(2).LabelRect), Text(RECT{60 - width / 2, 95, 60 + width, 107}));

  // Answers without a choice keep the pie open by their share.
  Show({1});
  EXPECT_EQ(Text(Slice(0).End), Text(Slice(0).Start));
  EXPECT_EQ(Text(Slice(0).Mid), "15,155");
  Answer(VoteAnswerRecord::kNoOption, 1);
  chart.Recalc();
  EXPECT_EQ(Text(Slice(0).End), "15,155");

  // The radius follows the height and not the size.
  chart.SetHeight(100);
  chart.SetSize(300);
  chart.Recalc();
  EXPECT_EQ(Text(chart.PieRect), "15,50,315,350");
  EXPECT_EQ(Text(Slice(0).Start), "215,200");
}

TEST_F(PieTest, LegendOpensAColumnAfterElevenLines) {
  std::vector<int> counts(28, 1);
  counts[0] = 100;  // the widest line
  counts[5] = 0;    // no line
  Show(counts);
  ASSERT_EQ(chart.Slices.GetSize(), 27);
  const int widest = MeasureTextWidth(Slice(0).Legend, chart.Font.get());
  EXPECT_EQ(Text(Slice(0).KeyRect), "243,50,259,66");
  EXPECT_EQ(Text(Slice(0).LegendRect), Text(RECT{265, 50, 266 + widest, 66}));
  EXPECT_EQ(Text(Slice(10).KeyRect), "243,240,259,256");
  const int second = 243 + widest + 22;
  EXPECT_EQ(Text(Slice(11).KeyRect), Text(RECT{second, 50, second + 16, 66}));
  const int third = second + MeasureTextWidth(Slice(11).Legend, chart.Font.get()) + 22;
  EXPECT_EQ(Slice(22).KeyRect.left, third);
  // Letters are those of the option rows, also of rows past 'Z'.
  EXPECT_EQ(Slice(4).Letter, L'E');
  EXPECT_EQ(Slice(5).Letter, L'G');
  EXPECT_EQ(Slice(25).Letter, L'[');
  EXPECT_EQ(Slice(26).OptionID, 28u);

  const BitmapCanvas canvas(800, 400);
  EXPECT_TRUE(chart.Paint(canvas.dc(), kView, 0));
  for (int n = 0; n < 20; ++n) EXPECT_EQ(KeyColor(canvas, n), kVotePalette[n % 16]) << n;
}

TEST_F(PieTest, PaintsSliceLabelKeyAndLegendInTurn) {
  Show({0, 3, 1});
  PaintRecorder recorder;
  EXPECT_TRUE(chart.Paint(recorder.dc(), kView, 10));
  const auto calls = recorder.Calls();
  ASSERT_EQ(calls.size(), 10u);
  EXPECT_EQ(calls[0], "pie 15,40,225,250 from 120,40 to 225,145 00FFE4");
  EXPECT_NE(calls[1].find("000000 transparent 75.00%"), std::string::npos) << calls[1];
  EXPECT_EQ(calls[2], "rectangle 243,40,259,56 00FFE4");
  EXPECT_NE(calls[3].find("000000 transparent B"), std::string::npos) << calls[3];
  EXPECT_EQ(calls[4].substr(0, 9), "text 265,");
  EXPECT_NE(calls[4].find(" 3 vote(s)  75.00%  "), std::string::npos) << calls[4];
  EXPECT_EQ(calls[5], "pie 15,40,225,250 from 225,145 to 120,40 A52949");
}

TEST_F(PieTest, ShowsATextWithoutAnswers) {
  EXPECT_FALSE(chart.Recalc()) << "no question";
  Show({0, 0});
  chart.SetItem(nullptr);
  EXPECT_FALSE(chart.Recalc());
  PaintRecorder recorder;
  EXPECT_FALSE(chart.Paint(recorder.dc(), kView, 300)) << "scrolled out";
  EXPECT_TRUE(chart.Paint(recorder.dc(), kView, 0));
  chart.SetOwner(nullptr);
  EXPECT_FALSE(chart.Paint(recorder.dc(), kView, 0));
  const auto calls = recorder.Calls();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_NE(calls[0].find("transparent No answers yet"), std::string::npos);
  const int left = 120 - MeasureTextWidth(L"No answers yet", chart.Font.get()) / 2;
  EXPECT_EQ(calls[0].substr(0, calls[0].find(',')), "text " + std::to_string(left));
}

TEST_F(PieTest, TurnsTheKeyUnderThePointerWhite) {
  Show({1, 0, 2});
  const BitmapCanvas canvas(800, 400);
  const RECT key = Slice(1).KeyRect;
  EXPECT_FALSE(chart.HitTest(120, 155)) << "the pie";
  EXPECT_TRUE(chart.HitTest(key.left, key.top));
  EXPECT_FALSE(chart.HitTest(key.right, key.top));
  EXPECT_FALSE(chart.HitTest(key.left, key.bottom));
  const struct {
    int event;
    bool hot, repaint;
  } cases[] = {
      {kMouseDown, false, false}, {kMouseOver, true, true}, {kMouseUp, true, false}, {kMouseLeave, false, true}};
  for (const auto& it : cases) {
    owner.Validate();
    chart.OnMouse(it.event, key.left + 5, key.top + 5);
    EXPECT_EQ(owner.IsInvalid(), it.repaint) << it.event;
    chart.Paint(canvas.dc(), kView, 0);
    EXPECT_EQ(KeyColor(canvas, 0), kVotePalette[0]);
    EXPECT_EQ(SliceColor(canvas, 0), kVotePalette[0]);
    EXPECT_EQ(KeyColor(canvas, 1), it.hot ? 0xFFFFFF : kVotePalette[1]) << it.event;
    EXPECT_EQ(SliceColor(canvas, 1), it.hot ? 0xFFFFFF : kVotePalette[1]) << it.event;
  }
}

TEST_F(PieTest, KeepsASliceNarrowerThanAPixelOffTheOthers) {
  const BitmapCanvas canvas(800, 400);
  Show({50000, 49999, 1});
  chart.Paint(canvas.dc(), kView, 0);
  EXPECT_EQ(SliceColor(canvas, 0), kVotePalette[0]);
  EXPECT_EQ(SliceColor(canvas, 1), kVotePalette[1]);
  EXPECT_EQ(KeyColor(canvas, 2), kVotePalette[2]);
}

}  // namespace
