// Where every button of a page or of a vote's toolbar ends: checks, a question to the user, a call of the sink.
#include "resources/ResourceIds.h"
#include "votedata/VoteData.h"

namespace {

VoteIdArray OneId(u32 id) {
  VoteIdArray ids;
  ids.Add(id);
  return ids;
}

// Without anybody to ask, the answer is the one that changes nothing.
int Ask(JW_HWND owner, u32 textId, u32 flags, int unasked) {
  VoteUi* const ui = VoteData::Ui();
  return ui ? ui->Ask(owner, textId, IDS_CAPTION_VOTE, flags) : unasked;
}

}  // namespace

bool VoteData::OnUiCommand(const VoteUiCommand& cmd) {
  const VoteDataHold hold;
  if (!IsLocalUserOnline()) return false;
  if (cmd.Kind != 0) return true;
  const int topicId = static_cast<int>(cmd.TopicID);
  switch (cmd.Command) {
    case kCmdMoveUp:
    case kCmdMoveDown:
      return MoveItem(static_cast<int>(cmd.Command), topicId, cmd.ItemID);
    case kCmdToggleOpen: {
      const VoteItemEntry* const item = FindItem(cmd.ItemID);
      if (!item) return false;
      const VoteIdArray ids = OneId(cmd.ItemID);
      pVoteSink->SetItemsOpen(topicId, &ids, !item->IsOpen);
      return true;
    }
    case kCmdEditItem:
      return EditItem(topicId, cmd.ItemID);
    case kCmdRemoveItem:
      return RemoveItem(topicId, cmd.ItemID);
    case kCmdSubmit:
      return SubmitMyAnswers(topicId);
    case kCmdToggleVote:
      if (!ToggleVoteState(topicId)) OnVoteDataChanged(0, topicId, kVoteDataStartFailed);
      return true;
    case kCmdAddItem:
      if (!AddItem(topicId)) OnVoteDataChanged(0, topicId, kVoteDataAddFailed);
      return true;
    case kCmdFetch:
      pVoteSink->FetchResult(topicId);
      return true;
    case kCmdPublish:
      return pVoteSink->PublishResult(topicId) != 0 || IsLocalUserOnline();
    case kCmdReset:
      if (!CheckManager(topicId)) return false;
      pVoteSink->ResetVote(topicId);
      return true;
    case kCmdChooseVoters:
      pVoteSink->ChooseParticipants(1, FindTopic(topicId));
      return true;
    case kCmdChooseViewers:
      pVoteSink->ChooseParticipants(0, FindTopic(topicId));
      return true;
    case kCmdShowSignNames:
      return ShowSignNames(cmd.ItemID);
    case kCmdPickOption: {
      VoteTopicEntry* const topic = FindTopic(topicId);
      if (!topic) return false;
      if (topic->PickOption(cmd.ItemID, cmd.OptionID)) OnVoteDataChanged(0, topicId, kVoteDataAnswers);
      return true;
    }
    default:
      return true;
  }
}

bool VoteData::CheckManager(int topicId) {
  if (m_nRight == 0) {
    ShowTextId(IDS_STATUS_NO_RIGHT);
    return false;
  }
  const VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return false;
  if (!IsLocalManager(*topic)) {
    ShowTextId(IDS_STATUS_NOT_MANAGER);
    return false;
  }
  return true;
}

bool VoteData::ToggleVoteState(int topicId) {
  // Stopping looks at the vote that shows, not at the one named, and needs neither an answer nor the right.
  int mode = 0;
  if (!m_pCurrent || !m_pCurrent->IsStarted) {
    const int answer =
        Ask(m_hMainWnd, IDS_PROMPT_START_VOTE, vote_ui::kYesNoCancel | vote_ui::kInformation, vote_ui::kCancel);
    if (answer != vote_ui::kYes && answer != vote_ui::kNo) return false;
    if (!CheckManager(topicId)) return false;
    mode = answer == vote_ui::kYes ? 2 : 1;
  }
  if (pVoteSink) pVoteSink->SetVoteState(topicId, mode);
  return true;
}

bool VoteData::RemoveItem(int topicId, u32 itemId) {
  const int answer = Ask(m_hMainWnd, IDS_PROMPT_REMOVE_ITEM, vote_ui::kYesNo | vote_ui::kInformation, vote_ui::kNo);
  if (answer != vote_ui::kYes) return true;
  if (!CheckManager(topicId)) return false;
  const VoteIdArray ids = OneId(itemId);
  if (pVoteSink) pVoteSink->RemoveItems(topicId, &ids);
  return true;
}

bool VoteData::MoveItem(int direction, int topicId, u32 itemId) {
  const VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return false;
  VoteIdArray order(topic->m_ItemOrder);
  const int position = order.Find(itemId);
  const int neighbour = direction == 0 ? position - 1 : position + 1;
  if (position < 0 || neighbour < 0 || neighbour >= order.GetSize()) return false;
  const u32 other = order[neighbour];
  order[neighbour] = order[position];
  order[position] = other;
  if (pVoteSink) pVoteSink->SetItemOrder(topicId, &order);
  return true;
}

bool VoteData::SubmitMyAnswers(int topicId) {
  const VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic || !topic->IsStarted) return false;
  const JW_String name = UserName(m_idSelf);
  const VoteTopicEntry* const named = FindTopic(topicId);
  if (!named || !pVoteSink) return false;
  VoteAnswerList answers;
  named->BuildAnswers(m_idSelf, name, &answers);
  // A copy: the host may change the order while it is being told.
  const VoteIdArray order(named->m_ItemOrder);
  for (const u32 itemId : order) {
    VoteAnswerList ofItem;
    for (const VoteAnswerRecord& answer : answers) {
      if (answer.ItemID == itemId) ofItem.AddTail(answer);
    }
    if (!ofItem.IsEmpty()) pVoteSink->SubmitAnswers(topicId, &ofItem);
  }
  return true;
}
