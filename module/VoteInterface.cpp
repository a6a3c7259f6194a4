#include "module/VoteInterface.h"

#include "JW_Base/Include/JW_Utf8.h"
#include "platform/Resources.h"
#include "resources/ResourceIds.h"

namespace {

JW_String Text(u32 id) {
  JW_String text;
  text.LoadString(id);
  return text;
}

// A topic's name as the state message shows it.
JW_String ShortName(const VoteTopicRecord& topic) {
  constexpr int kCutFrom = 19;
  constexpr int kKept = 16;
  JW_String name = JW_WideFromUtf8(topic.TopicName);
  if (name.GetLength() >= kCutFrom) {
    name = name.Left(kKept);
    name += JW_W("...");
  }
  return name;
}

}  // namespace

VoteInterface::VoteInterface() {
  const VoteDataHold data;
  if (data) data->AddListener(this);
}

VoteInterface::~VoteInterface() {
  VoteData::Release();
}

JW_HWND VoteInterface::CreateVoteWindow(JW_HWND parent) {
  const VoteDataHold data;
  if (!data) return nullptr;
  const JW_HWND window = OpenWindow(parent);
  data->SetMainWindow(window);
  RefreshButtons();
  return window;
}

void VoteInterface::DestroyVoteWindow() {
  const VoteDataHold data;
  if (!data) return;
  if (const JW_HWND window = data->GetMainWindow()) {
    CloseWindow(window);
    data->SetMainWindow(nullptr);
  }
  VoteData::Release();
}

JW_HWND VoteInterface::GetVoteWindow() {
  const VoteDataHold data;
  return data ? data->GetMainWindow() : nullptr;
}

void VoteInterface::SetVoteSink(IZQVoteSink* sink) {
  const VoteDataHold data;
  if (data) data->SetSink(sink);
}

IZQVoteSink* VoteInterface::GetVoteSink() {
  const VoteDataHold data;
  return data ? data->GetSink() : nullptr;
}

void VoteInterface::SetLocalUser(const JW_ID* user) {
  const VoteDataHold data;
  if (!data || !user) return;
  m_idSelf = *user;
  data->SetLocalUser(*user);
}

bool VoteInterface::GetCurrentVote(int* topicId, JW_ID* manager) {
  const VoteDataHold data;
  const VoteTopicEntry* const topic = data ? data->GetCurrentTopic() : nullptr;
  if (!topic) return false;
  if (topicId) *topicId = static_cast<int>(topic->TopicID);
  if (manager) {
    // The words alone: the table of the host's object stays the host's.
    manager->dwLow = topic->ManagerID.dwLow;
    manager->dwHigh = topic->ManagerID.dwHigh;
  }
  return true;
}

void VoteInterface::SetResourceModule(JW_HMODULE module) {
  platform::SetResourceModule(module);
}

void VoteInterface::OnVoteList(const VoteTopicList* topics) {
  const VoteDataHold data;
  if (!data || !topics) return;
  VoteIdArray listed;
  for (const VoteTopicRecord& topic : *topics) listed.Add(topic.TopicID);
  data->SyncTopics(topics);
  if (listed.IsEmpty()) {
    RefreshButtons();
    return;
  }
  for (const u32 id : listed) {
    if (data->GetSink()) data->GetSink()->RequestVoteContent(static_cast<int>(id));
  }
}

void VoteInterface::OnVoteCreated(const VoteTopicRecord* topic) {
  const VoteDataHold data;
  if (!data || !topic || !data->GetSink()) return;
  IZQVoteSink* const sink = data->GetSink();
  const int topicId = static_cast<int>(topic->TopicID);
  const bool ownVote = topic->CreatorID == m_idSelf;
  data->AddTopic(topic);
  m_nLastCreated = topicId;
  if (ownVote && !m_PendingItems.IsEmpty() && !m_PendingOptions.IsEmpty()) {
    if (sink->AddItems(topicId, &m_PendingItems, &m_PendingOptions) != 0) {
      // A vote whose questions were refused must not stay.
      data->ShowText(Text(IDS_STATUS_VOTE_FAILED));
      sink->DeleteVote(topicId);
    }
  } else {
    sink->RequestVoteContent(topicId);
  }
}

void VoteInterface::OnVoteModified(const VoteTopicRecord* topic) {
  const VoteDataHold data;
  if (!data || !topic) return;
  const VoteTopicRecord copy(*topic);
  data->UpdateTopic(&copy);
  if (!data->GetSink()) return;
  ConfirmParticipants(copy);
  m_nLastCommand = -1;
}

void VoteInterface::ConfirmParticipants(const VoteTopicRecord& topic) {
  const VoteDataHold data;
  if (m_nLastCommand == kCmdChooseVoters) {
    data->ShowText(Text(topic.IsAllVote ? IDS_FLAG_ALL_VOTE : IDS_FLAG_CHOSEN_VOTE));
  } else if (m_nLastCommand == kCmdChooseViewers) {
    data->ShowText(Text(topic.IsAllView ? IDS_FLAG_ALL_VIEW : IDS_FLAG_CHOSEN_VIEW));
  }
}

void VoteInterface::OnItemsAdded(const VoteItemList* items, const VoteOptionList* options) {
  const VoteDataHold data;
  if (!data || !items || items->IsEmpty()) return;
  const int topicId = static_cast<int>(items->GetHead()->data.TopicID);
  data->AddItems(items);
  if (options) data->AddOptions(options);
  // The composed lists go only where the vote is unknown and there is no local user; as a rule they stay until the
  // next vote is composed.
  JW_ID manager;
  if (!data->GetTopicManager(topicId, &manager) && manager == m_idSelf) {
    m_PendingItems.RemoveAll();
    m_PendingOptions.RemoveAll();
  }
}

void VoteInterface::OnItemsModified(const VoteItemList* items, const VoteOptionList* options) {
  const VoteDataHold data;
  if (!data) return;
  if (items) data->UpdateItems(items, true, false);
  if (options) data->UpdateOptions(options, true);
}

void VoteInterface::OnItemsRemoved(const VoteIdArray* itemIds) {
  const VoteDataHold data;
  if (data && itemIds) data->RemoveItems(itemIds);
}

void VoteInterface::OnItemsRemaining(int topicId, const VoteIdArray* itemIds) {
  const VoteDataHold data;
  const VoteTopicEntry* const topic = data ? data->FindTopic(topicId) : nullptr;
  if (!topic || !topic->IsStarted || !data->GetSink()) return;
  const int left = topic->m_Items.GetCount() - topic->CountAnswered(false);
  JW_String text;
  if (left > 0) {
    text.Format(Text(IDS_STATUS_ITEMS_LEFT), left);
  } else {
    text = Text(IDS_STATUS_ALL_ANSWERED);
  }
  // Of one submission's acknowledgements only the one for the first open question speaks.
  for (const u32 itemId : topic->m_ItemOrder) {
    const VoteItemEntry* const item = topic->FindItem(itemId);
    if (!item || !item->IsOpen) continue;
    if (itemIds && !itemIds->IsEmpty() && (*itemIds)[0] == itemId) data->ShowText(text);
    break;
  }
  const VoteTopicEntry* const now = data->FindTopic(topicId);
  if (!now) return;
  for (auto& item : now->m_Items) {
    if (item.value->IsOpen) item.value->StoreOwnAnswers();
  }
}

void VoteInterface::OnVoteStateChanged(int topicId, int mode) {
  const VoteDataHold data;
  if (!data || !data->FindTopic(topicId)) return;
  data->ApplyVoteState(topicId, mode);
  if (const VoteTopicEntry* const topic = data->FindTopic(topicId)) {
    JW_String message(JW_W("\u300A"));
    message += ShortName(*topic);
    message += JW_W("\u300B\n");
    message += Text(mode == 0 ? IDS_VOTE_STOPPED : IDS_VOTE_STARTED);
    data->ShowText(message);
  }
  m_nLastCommand = -1;
  RefreshButtons();
}

void VoteInterface::OnItemsOpened(const VoteIdArray* itemIds, int open) {
  const VoteDataHold data;
  if (data && itemIds) data->SetItemsOpen(itemIds, open);
}

void VoteInterface::OnVoteContent(u32 /*unused*/, const VoteItemList* items, const VoteOptionList* options) {
  const VoteDataHold data;
  if (!data || !items || !options) return;
  data->SyncContent(items, options);
  data->DeleteEmptyVotes();
  RefreshButtons();
}

void VoteInterface::OnVoteReset(int topicId) {
  const VoteDataHold data;
  if (data) data->ResetVote(topicId);
}

void VoteInterface::OnResultPublished(int topicId, const VoteAnswerList* answers) {
  const VoteDataHold data;
  if (!data || !answers) return;
  data->ApplyAnswers(topicId, answers, kAnswersPublished);
  if (m_nLastCommand == kCmdPublish) {
    data->ShowText(Text(IDS_STATUS_RESULT_PUBLISHED));
    m_nLastCommand = -1;
  }
}

void VoteInterface::OnVoteRemoved(int topicId) {
  const VoteDataHold data;
  if (data) data->RemoveTopic(topicId);
}

void VoteInterface::OnPendingAnswers(int topicId, const VoteAnswerList* answers) {
  const VoteDataHold data;
  if (data && answers) data->ApplyPendingAnswers(topicId, answers);
}

void VoteInterface::OnResultReceived(int topicId, const VoteAnswerList* answers) {
  const VoteDataHold data;
  if (data && answers) data->ApplyAnswers(topicId, answers, kAnswersFetched);
}

void VoteInterface::OnItemOrderChanged(int topicId, const VoteIdArray* itemIds) {
  const VoteDataHold data;
  if (data && itemIds) data->SetItemOrder(topicId, itemIds);
}

void VoteInterface::OnVoteManagerChanged(int topicId, const JW_ID* manager) {
  const VoteDataHold data;
  if (data && manager) data->SetManager(topicId, manager);
}

void VoteInterface::SetOperateRight(unsigned value) {
  const VoteDataHold data;
  if (!data) return;
  data->SetOperateRight(value & 0xFFFF);
  RefreshButtons();
}

bool VoteInterface::OnUserChanged(const JW_ID* user, u32 more) {
  const VoteDataHold data;
  if (data && user) data->OnUserChanged(0, user, more);
  return false;
}

void VoteInterface::ReloadResults(u32 /*unused*/) {
  const VoteDataHold data;
  if (data) data->ReloadResults();
}

void VoteInterface::RefreshVotePanel(u32 /*unused*/) {
  LayOutPanel();
}
void VoteInterface::RefreshVotePanel2(u32 /*unused*/) {
  LayOutPanel();
}

void VoteInterface::OnCurrentVoteChanged(u32 /*reserved*/, VoteTopicEntry* /*topic*/) {
  RefreshButtons();
}
void VoteInterface::OnVoteManagerChanged(u32 /*reserved*/, int /*topicId*/, const JW_ID* /*manager*/) {
  RefreshButtons();
}
void VoteInterface::OnVoteReset(u32 /*reserved*/, int /*topicId*/) {
  RefreshButtons();
}
void VoteInterface::OnOperateRightChanged(u32 /*reserved*/, u16 /*value*/) {
  RefreshButtons();
}
void VoteInterface::OnVoteDataChanged(u32 /*reserved*/, int /*topicId*/, int /*reason*/) {
  RefreshButtons();
}
