// How a question's answers fell: a pie with a slice and a percentage for each option that has answers, and to its right
// a legend of coloured keys. The pointer on a key turns the key and its slice white.
#pragma once

#include "JW_Base/Include/JW_Array.h"
#include "JW_Base/Include/JW_String.h"
#include "pages/VoteDrawItem.h"
#include "toolkit/GdiHandles.h"
#include "votedata/VoteEntries.h"

struct VotePiePair {
  u32 first;
  u32 second;
};

// One slice. Content coordinates.
struct VoteSliceInfo {
  POINT Start;  // on the circle, where the slice begins; slices run clockwise on the screen
  POINT End;
  POINT Mid;
  RECT KeyRect;     // the legend's coloured key
  RECT LabelRect;   // the percentage on the slice
  RECT LegendRect;  // the legend's text
  u32 OptionID;
  JW_WChar Letter;  // of the option's place in the question
  JW_String Label;
  JW_String Legend;
};

class VotePieChart : public VoteDrawItem {
 public:
  VotePieChart();
  ~VotePieChart() override;

  // Builds the slices anew from the question's tally; nothing else does, so a paint shows the answers of the last
  // layout. False, with the slices as they were, without a question.
  bool Recalc() override;
  bool Paint(HDC dc, RECT clip, int scrollY) override;
  // Stores only: the pie's square follows SetLeft, SetTop and SetSize, and its radius the height.
  void SetWidth(int width) override { Width = width; }
  void SetTop(int top) override;
  void SetLeft(int left) override;
  // Holds on a key of the legend alone, right and bottom edges out; the pie itself takes no mouse.
  bool HitTest(int x, int y) const override;
  void OnMouse(int event, int x, int y) override;

  virtual void SetHeight(int height) { Height = height; }
  // Takes a copy, which nothing reads.
  virtual void SetPairs(const JW_Array<VotePiePair>& pairs) { Pairs = pairs; }
  // Stores only; not owned, null for none.
  virtual void SetItem(const VoteItemEntry* item) { Item = item; }
  virtual void SetSize(int size);

 protected:
  // The last slice whose key holds the point; null for none.
  const VoteSliceInfo* FindKey(POINT point) const;
  void UpdatePieRect();
  void ClearSlices();

  JW_Array<VotePiePair> Pairs;
  JW_Array<VoteSliceInfo*> Slices;  // owned
  RECT PieRect;
  int Size = 210;
  const VoteItemEntry* Item = nullptr;
  COLORREF Colors[16] = {};
  OwnedFont Font;
  int Hot = 0;
  RECT HotKeyRect = {};
};
