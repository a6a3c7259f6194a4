// How votes, questions and options enter the store, change and leave it.
#include <algorithm>
#include <new>

#include "votedata/VoteData.h"

// Nothing here may throw into the host, so what an operation notes for itself stands in arrays and not in the standard
// library's containers.

namespace {

void Note(VoteIdArray& ids, u32 id) {
  if (ids.Find(id) < 0) ids.Add(id);
}

bool Contains(const VoteIdArray& sorted, u32 id) {
  return std::binary_search(sorted.begin(), sorted.end(), id);
}

// The ids in `field` of a list's records, sorted. False if memory runs out.
template <class Record>
bool SortedIds(const JW_List<Record>& list, u32 Record::*field, VoteIdArray* ids) {
  for (const Record& record : list) {
    if (!ids->Add(record.*field)) return false;
  }
  std::sort(ids->begin(), ids->end());
  return true;
}

// Options by their question, those of one question in the order of the list.
class OptionGroups {
 public:
  explicit OptionGroups(const VoteOptionList& options) {
    for (const VoteOptionRecord& record : options) m_Records.Add(&record);
    std::stable_sort(m_Records.begin(), m_Records.end(),
                     [](const VoteOptionRecord* a, const VoteOptionRecord* b) { return a->ItemID < b->ItemID; });
  }
  VoteOptionList Of(u32 itemId) const {
    VoteOptionList group;
    const VoteOptionRecord* const* record = std::lower_bound(
        m_Records.begin(), m_Records.end(), itemId, [](const VoteOptionRecord* a, u32 id) { return a->ItemID < id; });
    for (; record != m_Records.end() && (*record)->ItemID == itemId; ++record) group.AddTail(**record);
    return group;
  }

 private:
  JW_Array<const VoteOptionRecord*> m_Records;
};

}  // namespace

VoteTopicEntry* VoteData::FindTopic(int topicId) const {
  VoteTopicEntry* const* const topic = m_Topics.Lookup(static_cast<u32>(topicId));
  return topic ? *topic : nullptr;
}

VoteItemEntry* VoteData::FindItem(u32 itemId) const {
  for (const auto& topic : m_Topics) {
    if (VoteItemEntry* const item = topic.value->FindItem(itemId)) return item;
  }
  return nullptr;
}

VoteIdArray VoteData::TopicIds() const {
  VoteIdArray ids;
  for (const auto& topic : m_Topics) ids.Add(topic.key);
  return ids;
}

void VoteData::RebuildItemOrders(const VoteIdArray& topicIds) {
  for (const u32 id : topicIds) {
    if (VoteTopicEntry* const topic = FindTopic(static_cast<int>(id))) topic->RebuildItemOrder();
  }
}

void VoteData::AddTopic(const VoteTopicRecord* record) {
  VoteTopicEntry* const entry = new (std::nothrow) VoteTopicEntry(*record);
  if (!entry) return;
  const int topicId = static_cast<int>(entry->TopicID);
  const bool ownVote = entry->CreatorID == m_idSelf;
  if (VoteTopicEntry* const stored = FindTopic(topicId)) {
    // A repeated create changes the stored vote, and yet it is the new entry, outside the map, that goes to the
    // listeners and may become the current vote. It lives as long as the store, as they may keep it.
    if (!m_Strays.Add(entry)) {
      delete entry;
      return;
    }
    *static_cast<VoteTopicRecord*>(stored) = *record;
    OnVoteChanged(0, entry);
  } else {
    if (!m_Topics.AddNew(entry->TopicID, entry)) {
      delete entry;
      return;
    }
    OnVoteAdded(0, entry);
    if (FindTopic(topicId) != entry) return;
  }
  if (!m_pCurrent || ownVote) SetCurrentTopic(entry);
}

void VoteData::UpdateTopic(const VoteTopicRecord* record) {
  const int topicId = static_cast<int>(record->TopicID);
  if (VoteTopicEntry* const entry = FindTopic(topicId)) {
    *static_cast<VoteTopicRecord*>(entry) = *record;
    if (entry->ViewerRight(m_idSelf)) {
      if (pVoteSink) pVoteSink->RequestResult(topicId);
    } else if (!IsLocalManager(*entry)) {
      entry->CloseDetailWindows();
    }
  }
  OnVoteChanged(0, FindTopic(topicId));
}

void VoteData::SyncTopics(const VoteTopicList* list) {
  VoteIdArray listed;
  if (!SortedIds(*list, &VoteTopicRecord::TopicID, &listed)) return;
  for (const u32 id : TopicIds()) {
    if (!Contains(listed, id)) RemoveTopic(static_cast<int>(id));
  }
  for (const VoteTopicRecord& record : *list) {
    if (FindTopic(static_cast<int>(record.TopicID))) {
      UpdateTopic(&record);
    } else {
      AddTopic(&record);
    }
  }
}

void VoteData::RemoveTopic(int topicId) {
  if (VoteTopicEntry* const leaving = FindTopic(topicId)) {
    OnVoteRemoving(0, leaving);
    if (VoteTopicEntry* const entry = FindTopic(topicId)) {
      m_Topics.RemoveKey(entry->TopicID);
      // The listeners choose the next vote. Where nobody did, at least nobody reads a vote that is gone.
      if (m_pCurrent == entry) m_pCurrent = nullptr;
      delete entry;
    }
  }
  if (m_Topics.IsEmpty()) SetCurrentTopic(nullptr);
}

void VoteData::AddItems(const VoteItemList* list) {
  VoteIdArray noted;
  for (const VoteItemRecord& record : *list) {
    VoteTopicEntry* const topic = FindTopic(static_cast<int>(record.TopicID));
    VoteItemEntry* const item = topic ? topic->AddItem(record) : nullptr;
    if (!item) continue;
    Note(noted, record.TopicID);
    OnItemAdded(0, static_cast<int>(record.TopicID), item);
  }
  RebuildItemOrders(noted);
}

void VoteData::AddOptions(const VoteOptionList* list) {
  VoteIdArray noted;
  for (const VoteOptionRecord& record : *list) {
    VoteItemEntry* const item = FindItem(record.ItemID);
    VoteOptionEntry* const option = item ? item->AddOption(record) : nullptr;
    if (!option) continue;
    Note(noted, record.ItemID);
    OnOptionAdded(0, static_cast<int>(item->TopicID), static_cast<int>(record.ItemID), option);
  }
  for (const u32 id : noted) {
    if (VoteItemEntry* const item = FindItem(id)) item->RebuildOptionOrder();
  }
}

void VoteData::UpdateItems(const VoteItemList* list, bool dropOptions, bool addMissing) {
  VoteIdArray noted;
  for (const VoteItemRecord& record : *list) {
    const int topicId = static_cast<int>(record.TopicID);
    VoteTopicEntry* const topic = FindTopic(topicId);
    if (!topic) continue;
    Note(noted, record.TopicID);
    const auto again = [&]() -> VoteItemEntry* {
      const VoteTopicEntry* const now = FindTopic(topicId);
      return now ? now->FindItem(record.ItemID) : nullptr;
    };
    if (VoteItemEntry* const item = topic->FindItem(record.ItemID)) {
      *static_cast<VoteItemRecord*>(item) = record;
      ClearItemAnswers(item, topicId);
      if (again()) OnItemChanged(0, topicId, again(), dropOptions);
      if (dropOptions && again()) again()->DropOptions();
    } else if (addMissing) {
      if (VoteItemEntry* const added = topic->AddItem(record)) OnItemAdded(0, topicId, added);
    }
  }
  RebuildItemOrders(noted);
}

void VoteData::UpdateOptions(const VoteOptionList* list, bool addMissing) {
  VoteIdArray noted;
  for (const VoteOptionRecord& record : *list) {
    VoteItemEntry* const item = FindItem(record.ItemID);
    if (!item) continue;
    Note(noted, record.ItemID);
    const int topicId = static_cast<int>(item->TopicID);
    if (VoteOptionEntry* const option = item->FindOption(record.OptionID)) {
      *static_cast<VoteOptionRecord*>(option) = record;
      OnOptionChanged(0, topicId, static_cast<int>(record.ItemID), option);
    } else if (addMissing) {
      VoteOptionEntry* const added = item->AddOption(record);
      if (added) OnOptionAdded(0, topicId, static_cast<int>(record.ItemID), added);
    }
  }
  for (const u32 id : noted) {
    if (VoteItemEntry* const item = FindItem(id)) item->RebuildOptionOrder();
  }
}

void VoteData::RemoveItems(const VoteIdArray* ids) {
  VoteIdArray noted;
  for (int i = ids->GetSize() - 1; i >= 0; --i) {
    const u32 itemId = (*ids)[i];
    for (const u32 id : TopicIds()) {
      const int topicId = static_cast<int>(id);
      const VoteTopicEntry* const topic = FindTopic(topicId);
      if (!topic || !topic->FindItem(itemId)) continue;
      Note(noted, id);
      OnItemRemoving(0, topicId, static_cast<int>(itemId));
      if (VoteTopicEntry* const now = FindTopic(topicId)) now->RemoveItem(itemId);
      OnVoteDataChanged(0, topicId, kVoteDataItemRemoved);
      // A running vote can't stand empty.
      const VoteTopicEntry* const left = FindTopic(topicId);
      if (left && left->m_Items.IsEmpty() && left->IsStarted && pVoteSink) pVoteSink->SetVoteState(topicId, 0);
    }
  }
  RebuildItemOrders(noted);
}

void VoteData::SyncContent(const VoteItemList* items, const VoteOptionList* options) {
  VoteIdArray listed;
  if (!SortedIds(*items, &VoteItemRecord::ItemID, &listed)) return;
  VoteIdArray gone;
  for (const auto& topic : m_Topics) {
    for (const auto& item : topic.value->m_Items) {
      if (!Contains(listed, item.key)) gone.Add(item.key);
    }
  }
  RemoveItems(&gone);

  const OptionGroups groups(*options);
  VoteIdArray noted;
  for (const VoteItemRecord& record : *items) {
    const int topicId = static_cast<int>(record.TopicID);
    VoteTopicEntry* const topic = FindTopic(topicId);
    if (!topic) continue;
    Note(noted, record.TopicID);
    const auto again = [&]() -> VoteItemEntry* {
      const VoteTopicEntry* const now = FindTopic(topicId);
      return now ? now->FindItem(record.ItemID) : nullptr;
    };
    VoteIdArray selected;
    if (VoteItemEntry* const item = topic->FindItem(record.ItemID)) {
      *static_cast<VoteItemRecord*>(item) = record;
      OnItemChanged(0, topicId, item, 1);
      VoteItemEntry* const changed = again();
      if (!changed) continue;
      for (const auto& option : changed->m_Options) {
        if (option.value->m_bSelected) selected.Add(option.key);
      }
      std::sort(selected.begin(), selected.end());
      changed->DropOptions();
    } else if (VoteItemEntry* const added = topic->AddItem(record)) {
      OnItemAdded(0, topicId, added);
    }
    const VoteOptionList group = groups.Of(record.ItemID);
    AddOptions(&group);
    if (VoteItemEntry* const item = again()) {
      for (auto& option : item->m_Options) option.value->m_bSelected |= Contains(selected, option.key);
      item->RebuildOptionOrder();
    }
  }
  RebuildItemOrders(noted);
}

void VoteData::DeleteEmptyVotes() {
  for (const u32 id : TopicIds()) {
    const VoteTopicEntry* const topic = FindTopic(static_cast<int>(id));
    if (topic && topic->m_Items.IsEmpty() && IsLocalManager(*topic) && pVoteSink) {
      pVoteSink->DeleteVote(static_cast<int>(id));
    }
  }
}

void VoteData::SetItemOrder(int topicId, const VoteIdArray* ids) {
  VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return;
  topic->m_ItemOrder.RemoveAll();
  for (int i = 0; i < ids->GetSize(); ++i) {
    VoteItemEntry* const item = topic->FindItem((*ids)[i]);
    if (!item) continue;
    item->ItemNo = static_cast<u32>(i);
    item->m_nMask |= VoteItemRecord::kItemNo;
    topic->m_ItemOrder.Add(item->ItemID);
  }
  OnItemOrderChanged(0, topicId, ids);
}

void VoteData::SetManager(int topicId, const JW_ID* manager) {
  VoteTopicEntry* const topic = FindTopic(topicId);
  if (!topic) return;
  const bool wasManager = IsLocalManager(*topic);
  const JW_ID copy(*manager);
  topic->ManagerID = copy;
  topic->m_nMask |= VoteTopicRecord::kManagerID;
  OnVoteManagerChanged(0, topicId, &copy);

  const bool isManager = copy == m_idSelf;
  VoteTopicEntry* const now = FindTopic(topicId);
  if (!now) return;
  // Fetched results are the old manager's alone.
  if (wasManager && !isManager && now->m_nResultState == kResultFetched) {
    for (auto& item : now->m_Items) item.value->m_Tally.Wipe(true);
    OnResultStateChanged(0, topicId, 0);
  }
  if (isManager && pVoteSink) pVoteSink->RequestResult(topicId);
}

bool VoteData::GetTopicManager(int topicId, JW_ID* manager) const {
  const VoteTopicEntry* const topic = FindTopic(topicId);
  if (topic) *manager = topic->ManagerID;
  return topic != nullptr;
}

bool VoteData::IsCurrentManager() const {
  return m_pCurrent && IsLocalManager(*m_pCurrent);
}

bool VoteData::IsSignVote(int topicId) const {
  const VoteTopicEntry* const topic = FindTopic(topicId);
  return topic && topic->IsSignVote;
}

bool VoteData::CopyTopic(int topicId, VoteTopicRecord* topic, VoteItemList* items, VoteOptionList* options) const {
  items->RemoveAll();
  options->RemoveAll();
  const VoteTopicEntry* const entry = FindTopic(topicId);
  if (!entry) return false;
  *topic = *entry;
  for (const u32 itemId : entry->m_ItemOrder) {
    const VoteItemEntry* const item = entry->FindItem(itemId);
    if (!item) continue;
    items->AddTail(*item);
    for (const u32 optionId : item->m_OptionOrder) {
      if (const VoteOptionEntry* const option = item->FindOption(optionId)) options->AddTail(*option);
    }
  }
  return true;
}
