// The grid: its table, and what it paints where.
#include "toolkit/GridCtrl.h"

#include <memory>

#include "tests/pages/PaintRecorder.h"
#include "tests/toolkit/ControlHost.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::wstring TextOf(const GridTableCtrl& grid, int row, int col) {
  return grid.GetCellText(row, col).GetString();
}

// Each cell bears its place as text.
void Number(GridTableCtrl& grid) {
  for (int row = 0; row < grid.GetRowCount(); ++row) {
    for (int col = 0; col < grid.GetColCount(); ++col) {
      grid.SetCellText(row, col, (std::to_wstring(row) + L"," + std::to_wstring(col)).c_str());
    }
  }
}

TEST(Grid, ChangesItsSizeAndKeepsItsCells) {
  GridTableCtrl grid(3, 4);
  Number(grid);
  grid.GetDefaultCell().Text = JW_W("new");
  grid.GetDefaultCell().RowSpan = 0;
  struct {
    int rows, cols;
  } const sizes[] = {{3, 6}, {5, 6}, {5, 3}, {4, 2}, {90, 2}, {90, 128}, {3, 128}, {3, 3}};
  int keptRows = 3;
  int keptCols = 4;
  for (const auto& size : sizes) {
    SCOPED_TRACE(std::to_string(size.rows) + " x " + std::to_string(size.cols));
    EXPECT_EQ(grid.SetRowCount(size.rows), 0);
    EXPECT_EQ(grid.SetColCount(size.cols), 0);
    keptRows = std::min(keptRows, size.rows);
    keptCols = std::min(keptCols, size.cols);
    for (int row = 0; row < size.rows; ++row) {
      for (int col = 0; col < size.cols; ++col) {
        const bool kept = row < keptRows && col < keptCols;
        EXPECT_EQ(TextOf(grid, row, col), kept ? std::to_wstring(row) + L"," + std::to_wstring(col) : L"new");
        EXPECT_EQ(grid.GetCell(row, col)->RowSpan, 1);
      }
    }
    EXPECT_EQ(grid.GetRowsHeight(0, size.rows - 1), size.rows * 20);
    EXPECT_EQ(grid.GetColsWidth(0, size.cols - 1), size.cols * 80);
  }
}

TEST(Grid, RefusesWhatIsOutsideItsLimits) {
  GridTableCtrl grid(4, 5);
  EXPECT_EQ(grid.SetColCount(129), -1);
  EXPECT_EQ(grid.SetColCount(-1), -1);
  EXPECT_EQ(grid.SetRowCount(-1), -1);
  EXPECT_EQ(grid.SetRowCount(4), 0);
  const int bad[][2] = {{3, 2}, {-1, 2}, {0, 4}, {-2, -1}};
  for (const auto& range : bad) {
    EXPECT_EQ(grid.GetRowsHeight(range[0], range[1]), -1);
    EXPECT_EQ(grid.GetColsWidth(range[0], range[1] + (range[1] == 4)), -1);
    EXPECT_EQ(grid.MergeCells(range[0], 0, range[1], 0), -1);
    EXPECT_EQ(grid.MergeCells(0, range[0], 0, range[1] + (range[1] == 4)), -1);
  }
  EXPECT_EQ(grid.GetColCount(), 5);
  RECT rect = {1, 2, 3, 4};
  for (const auto& [row, col] : {std::pair(4, 0), std::pair(0, 5), std::pair(-1, 0), std::pair(0, -1)}) {
    EXPECT_EQ(grid.GetCell(row, col), nullptr);
    EXPECT_EQ(grid.SetCellText(row, col, JW_W("x")), -1);
    EXPECT_EQ(grid.SetCellFillColor(row, col, 0), -1);
    EXPECT_EQ(grid.GetCellRect(&rect, row, col), -1);
    EXPECT_EQ(TextOf(grid, row, col), L"");
  }
  grid.SetRowHeight(4, 9);
  grid.SetColWidth(-1, 9);
  // The rows that stand are what the limit is tested on.
  EXPECT_EQ(grid.SetRowCount(257), 0);
  EXPECT_EQ(grid.SetRowCount(3), -1);
  EXPECT_EQ(grid.GetRowCount(), 257);
}

TEST(Grid, CellsHaveTheRectanglesOfTheirSpans) {
  GridTableCtrl grid(4, 4);
  grid.SetRowHeight(0, 0);
  grid.SetColWidth(0, 10);
  EXPECT_EQ(grid.MergeCells(1, 1, 2, 3), 0);
  struct {
    int row, col;
    RECT rect;
  } const cases[] = {
      {0, 0, {-1, -1, 9, -1}},    {1, 0, {-1, 0, 9, 20}},    {1, 1, {10, 0, 250, 40}},
      {3, 3, {170, 40, 250, 60}}, {0, 2, {90, -1, 170, -1}},
  };
  for (const auto& c : cases) {
    RECT rect;
    EXPECT_EQ(grid.GetCellRect(&rect, c.row, c.col), 0);
    EXPECT_TRUE(EqualRect(&rect, &c.rect))
        << c.row << "," << c.col << ": " << rect.left << "," << rect.top << " " << rect.right << "," << rect.bottom;
  }
}

// The texts that a grid draws, each at its place.
Lines TextsOf(const GridTableCtrl& grid) {
  PaintRecorder recorder;
  grid.PaintTable(recorder.dc());
  return recorder.Calls();
}

TEST(Grid, DrawsEachMergedAreaOnceFromItsFirstCell) {
  GridTableCtrl grid(2, 3);
  Number(grid);
  grid.SetCellTextColor(1, 1, 0x123456);
  grid.MergeCells(0, 0, 0, 1);
  EXPECT_THAT(TextsOf(grid), ElementsAre("text 4,0 000000 transparent 0,0", "text 165,0 000000 transparent 0,2",
                                         "text 4,21 000000 transparent 1,0", "text 85,21 123456 transparent 1,1",
                                         "text 165,21 000000 transparent 1,2"));
}

TEST(Grid, BorderFillAndTextOfACell) {
  GridTableCtrl grid(3, 3);
  grid.SetCellFillColor(1, 1, 0x00FF00);
  grid.SetCellBorderColor(1, 1, 0x0000FF);
  grid.SetCellFormat(1, 1, DT_RIGHT | DT_SINGLELINE | DT_VCENTER);
  const HFONT font = static_cast<HFONT>(GetStockObject(SYSTEM_FIXED_FONT));
  grid.GetCell(1, 1)->Font = &font;
  const Canvas canvas(300, 100);
  const int saves = SaveDC(canvas.dc());
  const HGDIOBJ pen = GetCurrentObject(canvas.dc(), OBJ_PEN);
  grid.GetCell(1, 1)->DrawCell(canvas.dc(), 10, 20, 50, 40);
  EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_PEN), pen);
  EXPECT_EQ(SaveDC(canvas.dc()), saves + 1) << "nothing stays saved";
  for (const POINT p : {POINT{10, 20}, POINT{50, 20}, POINT{10, 40}, POINT{50, 40}, POINT{30, 20}, POINT{50, 30}}) {
    EXPECT_EQ(canvas.At(p.x, p.y), 0x0000FFu) << p.x << "," << p.y;
  }
  EXPECT_EQ(canvas.At(11, 21), 0x00FF00u);
  EXPECT_EQ(canvas.At(49, 39), 0x00FF00u);
  EXPECT_EQ(canvas.At(51, 41), 0xFFFFFFu);

  TEXTMETRICW metrics;
  const Selection selection(canvas.dc(), font);
  GetTextMetricsW(canvas.dc(), &metrics);
  grid.SetCellText(1, 1, JW_W("a&b"));
  PaintRecorder recorder;
  grid.GetCell(1, 1)->DrawCell(recorder.dc(), 10, 20, 90, 40);
  EXPECT_THAT(recorder.Calls(),
              ElementsAre(HasSubstr("text " + std::to_string(90 - 4 - 3 * metrics.tmAveCharWidth) + ",")))
      << "to the right, with its padding, the ampersand as it stands";
}

TEST(Grid, OverflowRunsIntoEmptyCellsUntilTheTextFits) {
  const struct {
    const char* what;
    int length;  // of the text in (0, 1), in characters of half a column
    const wchar_t* third;
    bool overflow;
    COLORREF second, thirdFill, fourth;  // what is seen in the columns after it
  } cases[] = {
      {"fits", 1, L"", true, 2, 3, 4},
      {"takes one", 2, L"", true, 1, 3, 4},
      {"takes two", 4, L"", true, 1, 1, 4},
      {"stops at a text", 9, L".", true, 1, 3, 4},
      {"to the end of the row", 9, L"", true, 1, 1, 1},
      {"not without leave", 9, L"", false, 2, 3, 4},
  };
  // An M of half a column.
  const OwnedFont font(
      CreateFontW(-24, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, FF_SWISS, L"Arial"));
  const HFONT handle = font.get();
  const Canvas canvas(600, 60);
  SIZE unit;
  {
    const Selection selection(canvas.dc(), handle);
    GetTextExtentPoint32W(canvas.dc(), L"M", 1, &unit);
  }
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    GridTableCtrl grid(1, 5);
    grid.SetRowHeight(0, 40);
    for (int col = 0; col < 5; ++col) {
      grid.SetColWidth(col, 2 * unit.cx);
      grid.SetCellFillColor(0, col, static_cast<COLORREF>(col));
      grid.GetCell(0, col)->Font = &handle;
      grid.SetCellTextColor(0, col, 0xABCDEF);
    }
    grid.GetCell(0, 1)->Overflow = c.overflow;
    grid.SetCellText(0, 1, std::wstring(static_cast<size_t>(c.length), L'M').c_str());
    grid.SetCellText(0, 3, c.third);
    grid.PaintTable(canvas.dc());
    const auto fill = [&](int col) { return canvas.At(2 * unit.cx * (col + 1) - 3, 36); };
    EXPECT_EQ(fill(0), 0u);
    EXPECT_EQ(fill(2), c.second);
    EXPECT_EQ(fill(3), c.thirdFill);
    EXPECT_EQ(fill(4), c.fourth);
  }
}

TEST(Grid, RepaintsOneCellAtOnceAndTheRestWhenAsked) {
  ControlHost host;
  GridTableCtrl grid(2, 2);
  const RECT place = {0, 0, 300, 100};
  grid.Create(host.m_hWnd, &place, nullptr, WS_CHILD | WS_VISIBLE);
  EXPECT_EQ(SendMessageW(grid.m_hWnd, WM_ERASEBKGND, 0, 0), 1);
  UpdateWindow(grid.m_hWnd);
  const WindowContext context(grid.m_hWnd);
  const auto at = [&](int x, int y) { return GetPixel(context.get(), x, y); };
  EXPECT_EQ(at(40, 10), 0xFFFFFFu);
  EXPECT_EQ(at(250, 80), 0xFFFBF2u) << "beside the table";
  grid.SetCellFillColor(0, 0, 0x00FF00);
  grid.SetCellFillColor(0, 1, 0x00FF00);
  EXPECT_EQ(at(40, 10), 0xFFFFFFu) << "colours don't repaint";
  grid.SetCellText(0, 0, JW_W(""));
  EXPECT_EQ(at(40, 10), 0x00FF00u);
  EXPECT_EQ(at(120, 10), 0xFFFFFFu) << "that cell alone";
  EXPECT_FALSE(GetUpdateRect(grid.m_hWnd, nullptr, FALSE));
  grid.MergeCells(0, 0, 0, 1);
  grid.SetCellText(0, 1, JW_W("hidden"));
  EXPECT_EQ(at(120, 10), 0xFFFFFFu) << "a covered cell draws nothing";
  RedrawWindow(grid.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_EQ(at(120, 10), 0x00FF00u);
}

TEST(Grid, PaintsWithoutRowsAndWithoutSizeAndLeavesNoHandles) {
  ControlHost host;
  GridTableCtrl empty;
  ASSERT_TRUE(empty.Create(host.m_hWnd, nullptr, nullptr, WS_CHILD | WS_VISIBLE));
  RedrawWindow(empty.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  GridTableCtrl shrunk(2, 4);
  shrunk.MergeCells(0, 1, 0, 3);
  shrunk.GetCell(0, 1)->Overflow = 1;
  shrunk.SetCellText(0, 1, JW_W("its span reaches beyond the table"));
  shrunk.SetColCount(2);
  EXPECT_THAT(TextsOf(shrunk).size(), 1u);

  ExpectLevelHandles([&] {
    GridTableCtrl grid(6, 6);
    const RECT place = {0, 0, 300, 100};
    grid.Create(host.m_hWnd, &place, nullptr, WS_CHILD | WS_VISIBLE);
    grid.SetCellText(0, 0, JW_W("x"));
    UpdateWindow(grid.m_hWnd);
  });
}

}  // namespace
