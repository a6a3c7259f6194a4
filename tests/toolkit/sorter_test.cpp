// Sorting a real list view by a column.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/toolkit/ToolkitEnvironment.h"
#include "toolkit/GdiHandles.h"
#include "toolkit/ListViewSorter.h"

namespace {

using Rows = std::vector<std::pair<std::wstring, LPARAM>>;

class ListView {
 public:
  ListView() {
    INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    m_hWnd = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | LVS_REPORT, 0, 0, 200, 200, nullptr, nullptr, nullptr,
                             nullptr);
    for (int i = 0; i < 2; ++i) {
      LVCOLUMNW column = {};
      column.mask = LVCF_WIDTH;
      column.cx = 80;
      SendMessageW(m_hWnd, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
  }
  ~ListView() { DestroyWindow(m_hWnd); }

  // The second column holds the texts.
  void Fill(const Rows& rows) {
    SendMessageW(m_hWnd, LVM_DELETEALLITEMS, 0, 0);
    for (const auto& [text, data] : rows) {
      LVITEMW item = {};
      item.mask = LVIF_PARAM;
      item.iItem = 0x7FFFFFFF;
      item.lParam = data;
      const auto row = static_cast<WPARAM>(SendMessageW(m_hWnd, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
      item.iSubItem = 1;
      item.pszText = const_cast<wchar_t*>(text.c_str());
      SendMessageW(m_hWnd, LVM_SETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    }
  }
  std::vector<LPARAM> Data() const {
    std::vector<LPARAM> data;
    for (int row = 0; row < SendMessageW(m_hWnd, LVM_GETITEMCOUNT, 0, 0); ++row) {
      LVITEMW item = {};
      item.mask = LVIF_PARAM;
      item.iItem = row;
      SendMessageW(m_hWnd, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
      data.push_back(item.lParam);
    }
    return data;
  }
  // The rows' data in their new order; it is back in its rows by then.
  std::vector<LPARAM> Sort(bool numeric, bool ascending) {
    ListViewSorter(&m_hWnd, 1, numeric).Sort(ascending);
    return Data();
  }

 private:
  HWND m_hWnd;
};

using testing::ElementsAre;

TEST(ListViewSorter, HasFourComparisons) {
  ListView list;
  const Rows rows = {{L"10", 1}, {L"9", 2}, {L"b", 3}, {L"A", 4}, {L"-3", 5}, {L"C", 6}};
  const auto sorted = [&](bool numeric, bool ascending) {
    list.Fill(rows);
    return list.Sort(numeric, ascending);
  };
  EXPECT_THAT(sorted(false, true), ElementsAre(5, 1, 2, 4, 3, 6));
  EXPECT_THAT(sorted(false, false), ElementsAre(6, 3, 4, 2, 1, 5));
  // Texts that are no numbers count as 0, and equal rows may come in any order.
  const auto up = sorted(true, true);
  EXPECT_THAT(std::vector<LPARAM>(up.begin(), up.begin() + 1), ElementsAre(5));
  EXPECT_THAT(std::vector<LPARAM>(up.begin() + 4, up.end()), ElementsAre(2, 1));
  const auto down = sorted(true, false);
  EXPECT_THAT(std::vector<LPARAM>(down.begin(), down.begin() + 2), ElementsAre(1, 2));
  EXPECT_EQ(5, down.back());
}

TEST(ListViewSorter, RowsWithoutDataAreEqualToAll) {
  ListView list;
  for (const bool numeric : {false, true}) {
    list.Fill({{L"2", 0}, {L"1", 0}});
    EXPECT_THAT(list.Sort(numeric, true), ElementsAre(0, 0));
    list.Fill({{L"2", 7}, {L"1", 0}});
    EXPECT_THAT(list.Sort(numeric, true), ElementsAre(7, 0));
  }
  list.Fill({});
  EXPECT_THAT(list.Sort(false, true), ElementsAre());
}

TEST(ListViewSorter, ReadsTextsOfAnyLength) {
  ListView list;
  for (const size_t length : {254u, 255u, 256u, 700u}) {
    const std::wstring common(length, L'x');
    list.Fill({{common + L"b", 1}, {common + L"a", 2}, {common, 3}});
    EXPECT_THAT(list.Sort(false, true), ElementsAre(3, 2, 1)) << length;
  }
}

}  // namespace
