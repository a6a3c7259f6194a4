// The life of a vote after its questions are in place: starting, stopping, and counting what comes back.
#include "votedata/VoteData.h"

void VoteData::ClearItemAnswers(VoteItemEntry* item, int topicId) {
  const int itemId = static_cast<int>(item->ItemID);
  item->WipeAnswers(true);
  item->ClearSelection();
  OnItemAnswersCleared(0, topicId, itemId, 0);
}

void VoteData::ApplyVoteState(int topicId, int mode) {
  VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return;
  topic->IsStarted = mode > 0;
  topic->m_nMask |= VoteTopicRecord::kIsStarted;
  for (auto& item : topic->m_Items) {
    item.value->IsOpen = mode > 0;
    item.value->m_nMask |= VoteItemRecord::kIsOpen;
  }
  switch (mode) {
    case 0:
      topic->ClearSelection();
      topic->RestoreSelection();
      topic->CloseDetailWindows();
      break;
    case 2:
      topic->ClearSelection();
      topic->WipeAnswers(true);
      break;
    default:
      topic->CloseDetailWindows();
  }
  topic->m_nResultState = kNoResult;
  OnResultStateChanged(0, topicId, 0);
  OnVoteStateChanged(0, topicId, mode);
}

void VoteData::ResetVote(int topicId) {
  if (!FindTopic(topicId)) return;
  ApplyVoteState(topicId, 0);
  if (VoteTopicEntry* const topic = FindTopic(topicId)) {
    topic->ClearSelection();
    topic->RestoreSelection();
    topic->CloseDetailWindows();
  }
  OnVoteReset(0, topicId);
}

void VoteData::SetItemsOpen(const VoteIdArray* ids, int open) {
  for (const u32 itemId : *ids) {
    for (const u32 id : TopicIds()) {
      const int topicId = static_cast<int>(id);
      const VoteTopicEntry* const topic = FindTopic(topicId);
      VoteItemEntry* const item = topic ? topic->FindItem(itemId) : nullptr;
      if (!item) continue;
      item->IsOpen = open > 0;
      item->m_nMask |= VoteItemRecord::kIsOpen;
      ClearItemAnswers(item, topicId);
      OnItemOpenChanged(0, topicId, static_cast<int>(itemId), open);
    }
  }
}

void VoteData::ApplyAnswers(int topicId, const VoteAnswerList* answers, int mode) {
  VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return;
  const bool replaces = mode == kAnswersFetched || mode == kAnswersPublished;
  if (replaces) topic->WipeAnswers(false);
  if (replaces || mode == kAnswersPending) {
    VoteItemEntry* item = nullptr;
    for (const VoteAnswerRecord& answer : *answers) {
      if (!item || item->ItemID != answer.ItemID) item = topic->FindItem(answer.ItemID);
      if (!item) continue;
      item->m_Tally.Add(answer);
      if (answer.VoterID == m_idSelf) item->m_OwnAnswers[answer.OptionID] = answer.OptionID;
    }
    if (replaces) topic->m_nResultState = mode == kAnswersFetched ? kResultFetched : kResultPublished;
    topic->ClearSelection();
    topic->RestoreSelection();
    if (replaces) OnResultStateChanged(0, topicId, 1);
  }
  OnVoteDataChanged(0, topicId, kVoteDataAnswers);
}

void VoteData::ApplyPendingAnswers(int topicId, const VoteAnswerList* answers) {
  const VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic || !m_PendingResults.Contains(static_cast<u32>(topicId)) || answers->IsEmpty() || topic->IsStarted ||
      topic->CountAnswered(false) > 0) {
    return;
  }
  m_PendingResults.RemoveKey(static_cast<u32>(topicId));
  ApplyAnswers(topicId, answers, kAnswersPending);
}

void VoteData::ReloadResults() {
  for (const u32 id : TopicIds()) {
    const int topicId = static_cast<int>(id);
    VoteTopicEntry* const topic = FindTopic(topicId);
    if (!topic) continue;
    topic->WipeAnswers(true);
    OnResultStateChanged(0, topicId, 0);
    const VoteTopicEntry* const now = FindTopic(topicId);
    if (!now) continue;
    if (now->m_nResultState == kResultFetched && IsLocalManager(*now)) {
      if (pVoteSink) pVoteSink->FetchResult(topicId);
    } else {
      // A reply that comes before RequestResult returns is not waited for yet and is dropped.
      if (pVoteSink) pVoteSink->RequestResult(topicId);
      m_PendingResults[id] = id;
    }
  }
}

void VoteData::TickVotes() {
  for (auto& topic : m_Topics) {
    VoteTopicEntry* const entry = topic.value;
    entry->TopicFlags = entry->IsStarted ? entry->TopicFlags - 1 : entry->TimeLong;
    entry->m_nMask |= VoteTopicRecord::kTopicFlags;
  }
}
