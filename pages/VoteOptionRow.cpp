#include "pages/VoteOptionRow.h"

#include "JW_Base/Include/JW_Utf8.h"
#include "pages/VoteText.h"
#include "toolkit/GdiHandles.h"
#include "votedata/VoteData.h"
#include "window/VoteResources.h"

namespace {

constexpr int kFirstLeft = 77;
constexpr int kColumn = 30;  // width of the mark's column and of the letter's
constexpr int kTextOffset = 2 * kColumn;
constexpr int kLowRect = 18;  // marks in rectangles below this height stand a little higher than centred
constexpr int kLowRectLift = 2;

}  // namespace

VoteOptionRow::VoteOptionRow() : Font(PageFont()) {
  VoteOptionRow::SetLeft(kFirstLeft);
}

JW_String VoteOptionRow::WideText() const {
  return Option ? JW_WideFromUtf8(Option->OptionDesc) : JW_String();
}

bool VoteOptionRow::IsMeasured() const {
  return m_nMeasuredWidth == Width && (Option ? m_strMeasured == Option->OptionDesc : m_strMeasured.IsEmpty());
}

void VoteOptionRow::Measure(HDC dc) {
  if (IsMeasured()) return;
  m_nTextHeight = MeasureWrappedText(dc, WideText(), Font, Width - kTextOffset);
  m_nMeasuredWidth = Width;
  m_strMeasured = Option ? Option->OptionDesc : JW_StringA();
}

bool VoteOptionRow::Recalc() {
  if (!IsMeasured()) Measure(WindowContext(Owner).get());
  Height = m_nTextHeight;
  MarkRect.top = LetterRect.top = Top;
  MarkRect.bottom = Top + MarkSize;
  LetterRect.bottom = Top + Height;
  return true;
}

bool VoteOptionRow::Paint(HDC dc, RECT clip, int scrollY) {
  if (!IsInView(clip, scrollY)) return false;
  DrawMark(dc, MarkRect.left, MarkRect.top - scrollY, MarkRect.right, MarkRect.bottom - scrollY);
  DrawLetter(dc, LetterRect.left, LetterRect.top - scrollY, LetterRect.right, LetterRect.bottom - scrollY);
  RECT text = ClientBounds(scrollY);
  text.left += kTextOffset;
  DrawWrappedText(dc, text, Font, TextColor, WideText());
  return true;
}

void VoteOptionRow::SetLeft(int left) {
  Left = left;
  MarkRect.left = left;
  MarkRect.right = LetterRect.left = left + kColumn;
  LetterRect.right = left + 2 * kColumn;
}

bool VoteOptionRow::HitTest(int x, int y) const {
  return x >= MarkRect.left && x <= MarkRect.right && y >= MarkRect.top && y <= MarkRect.bottom;
}

void VoteOptionRow::OnMouse(int event, int /*x*/, int /*y*/) {
  const MarkImage mark = CurrentMark();
  if (mark == kDead || mark == kDeadChosen) return;
  switch (event) {
    case kMouseOver:
      MouseState = kOver;
      break;
    case kMouseLeave:
      MouseState = kOutside;
      break;
    case kMouseDown:
      if (MouseState == kOver) MouseState = kPressed;
      break;
    case kMouseUp:
      if (MouseState != kOutside) {
        MouseState = kOver;
        const HWND owner = Owner;
        OnClick();
        // Not by Invalidate: the click may have ended this row.
        if (IsWindow(owner)) InvalidateRect(owner, nullptr, FALSE);
      }
      break;
    default:
      break;
  }
}

void VoteOptionRow::SetOption(VoteOptionEntry* option) {
  if (option) Option = option;
}

void VoteOptionRow::SetIndex(int index) {
  Letter.Format(L"(%c)  ", L'A' + index);
}

VoteOptionRow::MarkImage VoteOptionRow::CurrentMark() const {
  const bool mayVote = HasOwner() && SendMessageW(Owner, kMsgVoteRight, 0, 0) == 1;
  const bool chosen = Option && Option->m_bSelected;
  if (mayVote && Item && Item->IsOpen) return chosen ? kLiveChosen : kLive;
  return chosen ? kDeadChosen : kDead;
}

void VoteOptionRow::DrawMark(HDC dc, int left, int top, int right, int bottom) {
  const VoteResources* const resources = VoteResources::Instance();
  if (!resources) return;
  const bool multiple = Item && Item->ItemType == VoteItemRecord::kMultipleChoice;
  const HIMAGELIST marks = multiple ? resources->m_hMarkMultiple : resources->m_hMarkSingle;
  if (!marks) return;
  const int x = left + (right - left) / 2 - MarkSize / 2;
  int y = top + (bottom - top) / 2 - MarkSize / 2;
  if (bottom - top < kLowRect) y -= kLowRectLift;
  ImageList_Draw(marks, CurrentMark(), dc, x, y, ILD_NORMAL);
}

void VoteOptionRow::DrawLetter(HDC dc, int left, int top, int right, int bottom) {
  const SavedContext saved(dc);
  const Selection font(dc, Font);
  SetTextColor(dc, TextColor);
  SetBkMode(dc, TRANSPARENT);
  RECT rect = {left, top, right, bottom};
  DrawTextW(dc, Letter.GetString(), Letter.GetLength(), &rect, DT_NOPREFIX);
}

void VoteOptionRow::OnClick() {
  const VoteDataHold data;
  if (!data || !Option || !Item) return;
  VoteUiCommand command = {};
  command.Command = kCmdPickOption;
  command.TopicID = static_cast<u32>(data->CurrentTopicId());
  command.ItemID = Item->ItemID;
  command.OptionID = Option->OptionID;
  command.Object = static_cast<u32>(reinterpret_cast<uintptr_t>(Option));
  data->OnUiCommand(command);
}
