#include "toolkit/ListViewSorter.h"

#include <stdlib.h>
#include <wchar.h>

#include <new>

#include "JW_Base/Include/JW_String.h"

// commctrl.h needs windows.h before it.
#include <commctrl.h>

namespace {

struct TextSortItem {
  TextSortItem(const JW_String& key, LPARAM oldData) : Key(key), OldData(oldData) {}
  virtual ~TextSortItem() = default;

  JW_String Key;
  LPARAM OldData;
};

struct NumberSortItem {
  int Key;
  LPARAM OldData;
};

constexpr int kFirstTextSize = 256;

JW_String CellText(HWND list, int row, int column) {
  LVITEMW item = {};
  item.iSubItem = column;
  JW_String text;
  for (int size = kFirstTextSize; (item.pszText = text.GetBufferSetLength(size)) != nullptr; size *= 2) {
    item.cchTextMax = size;
    const int length = static_cast<int>(
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
    // A text that fills the buffer may have been cut.
    if (length < size - 1) {
      text.ReleaseBuffer(length);
      return text;
    }
  }
  return JW_String();
}

LPARAM RowData(HWND list, int row) {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  return item.lParam;
}

void SetRowData(HWND list, int row, LPARAM data) {
  LVITEMW item = {};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  item.lParam = data;
  SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

// Whether two rows have an order at all. A row is without a record only where memory ran out.
template <class Record>
bool Comparable(const Record* a, const Record* b) {
  return a && b && a->OldData != 0 && b->OldData != 0;
}

int CompareText(LPARAM first, LPARAM second) {
  const auto* const a = reinterpret_cast<const TextSortItem*>(first);
  const auto* const b = reinterpret_cast<const TextSortItem*>(second);
  return Comparable(a, b) ? _wcsicmp(a->Key, b->Key) : 0;
}

int CompareNumber(LPARAM first, LPARAM second) {
  const auto* const a = reinterpret_cast<const NumberSortItem*>(first);
  const auto* const b = reinterpret_cast<const NumberSortItem*>(second);
  if (!Comparable(a, b) || a->Key == b->Key) return 0;
  return a->Key > b->Key ? 1 : -1;
}

int CALLBACK TextUp(LPARAM a, LPARAM b, LPARAM) {
  return CompareText(a, b);
}
int CALLBACK TextDown(LPARAM a, LPARAM b, LPARAM) {
  return CompareText(b, a);
}
int CALLBACK NumberUp(LPARAM a, LPARAM b, LPARAM) {
  return CompareNumber(a, b);
}
int CALLBACK NumberDown(LPARAM a, LPARAM b, LPARAM) {
  return CompareNumber(b, a);
}

// By Numeric, then by the direction.
constexpr PFNLVCOMPARE kComparisons[2][2] = {{&TextDown, &TextUp}, {&NumberDown, &NumberUp}};

}  // namespace

ListViewSorter::ListViewSorter(const HWND* list, int column, bool numeric)
    : Column(column),
      List(list),
      Numeric(numeric),
      RowCount(static_cast<int>(SendMessageW(*list, LVM_GETITEMCOUNT, 0, 0))) {
  for (int row = 0; row < RowCount; ++row) {
    const LPARAM oldData = RowData(*List, row);
    const JW_String text = CellText(*List, row, Column);
    void* const record = Numeric ? static_cast<void*>(new (std::nothrow) NumberSortItem{_wtoi(text), oldData})
                                 : new (std::nothrow) TextSortItem(text, oldData);
    SetRowData(*List, row, reinterpret_cast<LPARAM>(record));
  }
}

ListViewSorter::~ListViewSorter() {
  for (int row = 0; row < RowCount; ++row) {
    const LPARAM record = RowData(*List, row);
    if (!record) continue;
    if (Numeric) {
      // The records of numbers stay allocated on purpose, as the clients of this class have always found it.
      SetRowData(*List, row, reinterpret_cast<const NumberSortItem*>(record)->OldData);
    } else {
      const TextSortItem* const item = reinterpret_cast<const TextSortItem*>(record);
      SetRowData(*List, row, item->OldData);
      delete item;
    }
  }
}

void ListViewSorter::Sort(bool ascending) {
  SendMessageW(*List, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(kComparisons[Numeric][ascending]));
}
