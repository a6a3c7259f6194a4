#include "pages/VoteImageButton.h"

#include "pages/VoteCommandPost.h"
#include "pages/VoteText.h"
#include "toolkit/GdiHandles.h"

VoteImageButton::VoteImageButton() : Font(PageFont()) {}

bool VoteImageButton::Paint(HDC dc, RECT clip, int scrollY) {
  if (!IsInView(clip, scrollY)) return false;
  if (ImageList && *ImageList) ImageList_Draw(*ImageList, State, dc, Left, Top - scrollY, ILD_NORMAL);
  if (!Text.IsEmpty()) {
    const SavedContext saved(dc);
    const Selection selected(dc, Font);
    SetTextColor(dc, TextColor);
    SetBkMode(dc, TRANSPARENT);
    RECT rect = ClientBounds(scrollY);
    DrawTextW(dc, Text, Text.GetLength(), &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
  return true;
}

void VoteImageButton::OnMouse(int event, int x, int y) {
  if (State == kButtonDisabled) return;
  switch (event) {
    case kMouseOver:
      if (State == kButtonPressed) return;
      State = kButtonHot;
      Invalidate();
      break;
    case kMouseLeave:
      State = kButtonNormal;
      Invalidate();
      break;
    case kMouseDown:
      if (HitTest(x, y)) State = kButtonPressed;
      Invalidate();
      break;
    case kMouseUp:
      if (State == kButtonNormal || !HitTest(x, y)) return;
      State = kButtonHot;
      Invalidate();
      OnClick();
      break;
  }
}

int VoteImageButton::SetCommand(int command) {
  return std::exchange(Command, command);
}

VoteUiCommand VoteImageButton::CommandFor(const VoteData& data) const {
  VoteUiCommand command = {};
  command.Command = static_cast<u32>(Command);
  command.TopicID = static_cast<u32>(data.CurrentTopicId());
  return command;
}

void VoteImageButton::OnClick() {
  if (const VoteData* const data = VoteData::Get()) PostVoteCommand(CommandFor(*data));
}

void VotePageButton::OnClick() {
  const VoteData* const data = VoteData::Get();
  if (!data || !Item) return;
  VoteUiCommand command = CommandFor(*data);
  command.ItemID = Item->ItemID;
  PostVoteCommand(command);
}
