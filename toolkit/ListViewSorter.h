// Sorts the rows of a list view by one column.
//
// A list view's comparison sees only the rows' item data, so for the sorter's short life each row carries a sort
// record in place of its data. Construct, Sort, destroy; no row may come or go in between. The destructor puts the
// item data back. Rows whose item data is 0 compare equal to all others.
#pragma once

#include "platform/windows/Windows.h"

class ListViewSorter {
 public:
  // Text compares without regard to case; `numeric` compares the numbers that the texts begin with, 0 where there is
  // none. `list` must outlive the sorter.
  ListViewSorter(const HWND* list, int column, bool numeric);
  virtual ~ListViewSorter();
  ListViewSorter(const ListViewSorter&) = delete;
  ListViewSorter& operator=(const ListViewSorter&) = delete;

  void Sort(bool ascending);

 private:
  int Column;
  const HWND* List;
  bool Numeric;
  int RowCount;
};
