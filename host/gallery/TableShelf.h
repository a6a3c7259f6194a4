// The gallery's two tables: a grid with merged cells, and a list view that a click on a header sorts.
#pragma once

#include "host/gallery/GalleryTexts.h"
#include "toolkit/GridCtrl.h"

constexpr UINT kListId = 0x300;

class TableShelf {
 public:
  void CreateGrid(HWND parent, const GalleryTexts& texts, const RECT& rect);
  void CreateList(HWND parent, const GalleryTexts& texts, const RECT& rect);
  // By the column, the other way around if it is sorted by it already.
  void SortBy(int column);

 private:
  GridTableCtrl m_Grid;
  HWND m_hList = nullptr;  // the parent's
  int m_nSorted = -1;
  bool m_bAscending = false;
};
