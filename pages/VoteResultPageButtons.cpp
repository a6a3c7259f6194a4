// The buttons of a question's page: the manager's five, and the one for details.
#include <iterator>

#include "pages/VoteResultPage.h"
#include "resources/ResourceIds.h"
#include "votedata/VoteData.h"
#include "window/VoteResources.h"

namespace {

constexpr int kButtonHeight = 27;
constexpr int kDetailWidth = 81;
constexpr int kDetailHeight = 22;
constexpr int kDetailFromRight = 93;
constexpr int kDetailLift = 54;

struct ButtonLook {
  VoteCommand command;
  int width;
  UINT caption;  // 0 for none
  HIMAGELIST VoteResources::*images;
  int fromRight;  // left edge, counted from the page's right one
};

constexpr ButtonLook kButtonLooks[] = {
    {kCmdMoveUp, 27, 0, &VoteResources::m_hItemUp, 224},
    {kCmdMoveDown, 27, 0, &VoteResources::m_hItemDown, 195},
    {kCmdToggleOpen, 50, IDS_BUTTON_CLOSE_ITEM, &VoteResources::m_hItemButton, 166},
    {kCmdEditItem, 50, IDS_BUTTON_EDIT_ITEM, &VoteResources::m_hItemButton, 114},
    {kCmdRemoveItem, 50, IDS_BUTTON_REMOVE_ITEM, &VoteResources::m_hItemButton, 62},
};

// A hot or pressed button that may be used stays as it is.
void Enable(VoteImageButton* button, bool enabled) {
  if (!enabled) {
    button->SetState(kButtonDisabled);
  } else if (button->GetState() == kButtonDisabled) {
    button->SetState(kButtonNormal);
  }
}

}  // namespace

int VoteResultPage::PlaceButtons(int y) {
  if (!ButtonsVisible) return y;
  // Beside the chart there is room at its foot.
  const int top = ChartVisible ? y - kButtonHeight : y;
  for (VotePageButton* const button : Buttons) button->SetTop(Top + top);
  return top + kButtonHeight;
}

void VoteResultPage::PlaceDetailButton(int y) {
  const bool offered = OffersDetails();
  Enable(&DetailButton, offered);
  if (offered) DetailButton.SetBounds(Top + y - kDetailLift, Width - kDetailFromRight, kDetailWidth, kDetailHeight);
}

void VoteResultPage::SetButtonsVisible(bool visible) {
  ButtonsVisible = visible;
  if (visible) {
    CreateButtons();
  } else {
    DestroyButtons();
  }
}

void VoteResultPage::CreateButtons() {
  static_assert(std::size(kButtonLooks) == kButtonCount);
  if (!Buttons.IsEmpty() || !Buttons.SetSize(kButtonCount)) return;
  const VoteResources* const resources = VoteResources::Instance();
  for (int i = 0; i < kButtonCount; ++i) {
    const ButtonLook& look = kButtonLooks[i];
    VotePageButton* const button = new VotePageButton;
    button->SetCommand(look.command);
    button->SetWidth(look.width);
    button->SetHeight(kButtonHeight);
    button->SetOwner(Owner);
    button->Item = Item;
    if (look.caption) button->SetText(TextOf(look.caption));
    if (resources) button->SetImageList(&(resources->*look.images));
    Buttons[i] = button;
  }
  MoveButtons();
  RefreshButtons();
  RefreshMoveButtons();
}

void VoteResultPage::DestroyButtons() {
  const JW_Array<VotePageButton*> buttons(static_cast<JW_Array<VotePageButton*>&&>(Buttons));
  for (VotePageButton* const button : buttons) delete button;
}

void VoteResultPage::MoveButtons() {
  for (int i = 0; i < Buttons.GetSize(); ++i) Buttons[i]->SetLeft(Width - kButtonLooks[i].fromRight);
}

void VoteResultPage::RefreshMoveButtons() {
  const VoteData* const data = VoteData::Get();
  if (!data || Buttons.IsEmpty()) return;
  Enable(Buttons[kUp], data->HasOperateRight() && !IsFirst);
  Enable(Buttons[kDown], data->HasOperateRight() && !IsLast);
}

void VoteResultPage::RefreshButtons() {
  const VoteData* const data = VoteData::Get();
  if (!data || Buttons.IsEmpty()) return;
  const VoteTopicEntry* const topic = Item ? data->FindTopic(static_cast<int>(Item->TopicID)) : nullptr;
  const bool started = topic && topic->IsStarted;
  const bool open = Item && Item->IsOpen;
  Buttons[kOpen]->SetText(TextOf(started && !open ? IDS_BUTTON_OPEN_ITEM : IDS_BUTTON_CLOSE_ITEM));
  if (data->HasOperateRight()) {
    Enable(Buttons[kOpen], started);
    // An open question can be neither edited nor deleted.
    Enable(Buttons[kEdit], !open);
    Enable(Buttons[kRemove], !open);
  } else {
    for (VotePageButton* const button : Buttons) Enable(button, false);
  }
}

void VoteResultPage::SetFirst(bool first) {
  IsFirst = first;
  RefreshMoveButtons();
}

void VoteResultPage::SetLast(bool last) {
  IsLast = last;
  RefreshMoveButtons();
}

bool VoteResultPage::OffersDetails() const {
  const VoteData* const data = ChartVisible && Item ? VoteData::Get() : nullptr;
  return data && data->IsSignVote(static_cast<int>(Item->TopicID)) && Item->m_Tally.m_nAnswers > 0;
}
