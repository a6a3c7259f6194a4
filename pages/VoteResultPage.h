// A question as a page: number, title, kind, state, options, the chart of its answers, and the buttons of the vote's
// manager. The composer, the voter and the reader of the results see the same page with other parts switched on.
//
// The hosting window makes the page, binds it with SetItem and SetOwner, and gives it a row for each option. To lay
// out, it calls SetTop, SetWidth and Recalc, and the page is GetHeight high. Before each paint it calls SetNumber,
// SetFirst and SetLast. It sends the mouse to the element that HitTest and ItemAt find, answers kMsgVoteRight, and
// forgets an element at kMsgElementDestroyed.
#pragma once

#include <optional>

#include "JW_Base/Include/JW_Array.h"
#include "pages/VoteImageButton.h"
#include "pages/VoteOptionRow.h"
#include "pages/VotePieChart.h"
#include "pages/VoteTextItem.h"

class VoteResultPage : public VoteDrawItem {
 public:
  VoteResultPage();
  ~VoteResultPage() override;

  // Places everything below one another. False, with nothing moved, without VoteData.
  bool Recalc() override;
  bool Paint(HDC dc, RECT clip, int scrollY) override;
  // Moves the five buttons, if the width is a new one.
  void SetWidth(int width) override;
  // Both only store; the elements follow at the next Recalc.
  void SetTop(int top) override { Top = top; }
  void SetLeft(int left) override { Left = left; }
  // For the page and all that it holds.
  void SetOwner(HWND window) override;

  // Binds the question, which isn't owned, and writes the labels. Null drops rows and buttons and keeps the question.
  virtual void SetItem(const VoteItemEntry* item);
  virtual const VoteItemEntry* GetItem() const { return Item; }
  // The number's label without a number.
  virtual void ResetNumber();
  // Appends the row, which the page owns from now on, with the page's owner and question. Null is ignored.
  virtual void AddRow(VoteOptionRow* row);
  // Destroys the first row of the option, if there is one.
  virtual void RemoveRow(u32 optionId);
  // False if no row has the option's number.
  virtual bool UpdateRow(VoteOptionEntry* option);
  // Puts the row, which the page owns from now on, in the place of the one with the same option. It must come with an
  // owner and a question. A row whose option isn't here is destroyed.
  virtual void ReplaceRow(VoteOptionRow* row);
  // After AddRow and RemoveRow.
  virtual void RowsChanged() {}
  virtual void ClearRows();
  // The element at a point in content coordinates; null if there is none.
  virtual VoteDrawItem* ItemAt(int x, int y) const;
  // Sets caption and states of the buttons by the right to manage and the states of vote and question.
  virtual void RefreshButtons();
  // Creates or destroys the five buttons.
  virtual void SetButtonsVisible(bool visible);
  virtual void SetChartVisible(bool visible) { ChartVisible = visible; }
  // Whether the page stands first, or last, in its list: it can't be moved further.
  virtual void SetFirst(bool first);
  virtual void SetLast(bool last);
  // The place in the list, from 1. Writes what stands on screen: the number, and the kind of the question with the
  // number of options that may be chosen.
  virtual void SetNumber(int number);

  // Rows in ascending order of their options, as the question shows them, whatever order they were added in.
  void SortRows();
  bool AreButtonsVisible() const { return ButtonsVisible; }
  bool IsChartVisible() const { return ChartVisible; }

 protected:
  enum ButtonIndex { kUp, kDown, kOpen, kEdit, kRemove, kButtonCount };

  // What SetNumber's texts depend on.
  struct NumberSource {
    int number;
    u32 type;
    u32 limit;
    int rows;
    JW_HMODULE texts;
    bool operator==(const NumberSource&) const = default;
  };

  // Each takes the upper edge that it may use, within the page, and returns the next one.
  int PlaceLabels(int y);
  int PlaceRows(int y);
  int PlaceChart(int y);
  int PlaceButtons(int y);
  void PlaceDetailButton(int y);

  void CreateButtons();
  void DestroyButtons();
  void MoveButtons();
  void RefreshMoveButtons();
  void UpdateStateLabel();
  static JW_String TextOf(u32 id);
  JW_String TypeText() const;
  int FindRow(u32 optionId) const;
  // The answers of a signed vote are there to be looked at.
  bool OffersDetails() const;

  int TopMargin = 10;
  VoteTextItem NumberLabel;
  VoteTextItem TitleLabel;
  VoteTextItem TypeLabel;
  VoteTextItem StateLabel;
  VoteTextItem OptionsLabel;
  bool ChartVisible = false;
  bool ButtonsVisible = false;
  JW_Array<VoteOptionRow*> Rows;      // owned
  JW_Array<VotePageButton*> Buttons;  // owned; none or all of them
  VotePageButton DetailButton;
  VotePieChart Chart;
  const VoteItemEntry* Item = nullptr;
  bool IsFirst = false;
  bool IsLast = false;
  // Most paints find the texts as they should be; without this a repaint would cost with the number of all pages.
  std::optional<NumberSource> m_Numbered;
};
