// One option on a question's page: a mark, a letter and wrapped text. A click on the mark answers.
#pragma once

#include <optional>

#include "JW_Base/Include/JW_String.h"
#include "pages/VoteDrawItem.h"
#include "votedata/VoteEntries.h"

// Sent to the owner: the result is 1 if the local user may answer.
constexpr UINT kMsgVoteRight = 0x496;

class VoteOptionRow : public VoteDrawItem {
 public:
  VoteOptionRow();

  // The height becomes that of the text, and mark and letter move to the top. Always true.
  bool Recalc() override;
  bool Paint(HDC dc, RECT clip, int scrollY) override;
  void SetWidth(int width) override { Width = width; }
  // Mark and letter follow at the next Recalc.
  void SetTop(int top) override { Top = top; }
  void SetLeft(int left) override;
  // Only the mark takes the mouse; all its edges are in.
  bool HitTest(int x, int y) const override;
  // Ignored while the mark is dead. The object may be gone on return: an answer can make the host remove the question.
  void OnMouse(int event, int x, int y) override;

  // Neither is owned. A null option is ignored.
  virtual void SetOption(VoteOptionEntry* option);
  virtual void SetItem(const VoteItemEntry* item) { Item = item; }
  // -1 without an option.
  virtual u32 GetOptionID() const { return Option ? Option->OptionID : ~0u; }
  // The place on the page makes the letter, 'A' for 0. Letters run on into what follows 'Z' in the character set.
  virtual void SetIndex(int index);
  virtual void DrawMark(HDC dc, int left, int top, int right, int bottom);
  virtual void DrawLetter(HDC dc, int left, int top, int right, int bottom);
  // Chooses the option at once, without a posted message. Nothing without an option, a question or VoteData.
  virtual void OnClick();

  // Measures the text for the present width ahead of Recalc. For many rows: to get a context costs more than to
  // measure with it.
  void Measure(HDC dc);
  const JW_String& GetLetter() const { return Letter; }

 protected:
  // Frames of the mark's strip.
  enum MarkImage { kLive = 0, kLiveChosen = 1, kDeadChosen = 2, kDead = 3 };
  // Asks the owner for the right to vote.
  MarkImage CurrentMark() const;
  JW_String WideText() const;
  bool IsMeasured() const;

  HFONT Font;
  int MarkSize = 15;
  RECT MarkRect = {};
  RECT LetterRect = {};
  VoteOptionEntry* Option = nullptr;
  const VoteItemEntry* Item = nullptr;
  COLORREF TextColor = 0;
  JW_String Letter;
  enum { kOutside = 0, kOver = 1, kPressed = 2 } MouseState = kOutside;

 private:
  // What was measured last: most layouts find the rows' texts as they were, and measuring is what a layout costs.
  std::optional<int> m_nMeasuredWidth;
  JW_StringA m_strMeasured;
  int m_nTextHeight = 0;
};
