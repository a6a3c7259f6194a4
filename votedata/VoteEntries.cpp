#include "votedata/VoteEntries.h"

#include <algorithm>
#include <new>

#include "JW_Base/Include/JW_Utf8.h"

namespace {

// Stores a new object under `key`; null, with nothing stored, if the key is taken or memory runs out.
template <class Entry, class Record>
Entry* AddEntry(JW_Map<u32, Entry*>& map, u32 key, const Record& record) {
  Entry* const entry = new (std::nothrow) Entry(record);
  if (entry && !map.AddNew(key, entry)) {
    delete entry;
    return nullptr;
  }
  return entry;
}

template <class Entry>
Entry* FindEntry(const JW_Map<u32, Entry*>& map, u32 key) {
  Entry* const* const entry = map.Lookup(key);
  return entry ? *entry : nullptr;
}

}  // namespace

VoteOptionEntry* VoteItemEntry::AddOption(const VoteOptionRecord& record) {
  return AddEntry(m_Options, record.OptionID, record);
}

VoteOptionEntry* VoteItemEntry::FindOption(u32 optionId) const {
  return FindEntry(m_Options, optionId);
}

void VoteItemEntry::DropOptions() {
  for (auto& option : m_Options) delete option.value;
  m_Options.RemoveAll();
}

void VoteItemEntry::RebuildOptionOrder() {
  m_OptionOrder.RemoveAll();
  for (const auto& option : m_Options) m_OptionOrder.Add(option.key);
  std::sort(m_OptionOrder.begin(), m_OptionOrder.end());
}

int VoteItemEntry::CountSelected() const {
  int count = 0;
  for (const auto& option : m_Options) count += option.value->m_bSelected;
  return count;
}

void VoteItemEntry::ClearSelection() {
  for (auto& option : m_Options) option.value->m_bSelected = false;
}

void VoteItemEntry::SelectOwnAnswers() {
  for (auto& option : m_Options) option.value->m_bSelected = m_OwnAnswers.Contains(option.key);
}

void VoteItemEntry::StoreOwnAnswers() {
  m_OwnAnswers.RemoveAll();
  for (const auto& option : m_Options) {
    if (option.value->m_bSelected) m_OwnAnswers[option.key] = option.key;
  }
}

void VoteItemEntry::WipeAnswers(bool closeWindow) {
  m_Tally.Wipe(closeWindow);
  m_OwnAnswers.RemoveAll();
}

bool VoteItemEntry::PickOption(u32 optionId) {
  VoteOptionEntry* const option = FindOption(optionId);
  if (!IsOpen || !option) return false;
  switch (ItemType) {
    case kSingleChoice:
    case kYesOrNo:
      if (option->m_bSelected && CountSelected() == 1) return false;
      ClearSelection();
      option->m_bSelected = true;
      return true;
    case kMultipleChoice:
      if (!option->m_bSelected && static_cast<u32>(CountSelected()) >= MultiSelLim) return false;
      option->m_bSelected = !option->m_bSelected;
      return true;
    default:
      return false;
  }
}

VoteTopicEntry::~VoteTopicEntry() {
  for (auto& item : m_Items) delete item.value;
}

VoteItemEntry* VoteTopicEntry::AddItem(const VoteItemRecord& record) {
  return AddEntry(m_Items, record.ItemID, record);
}

VoteItemEntry* VoteTopicEntry::FindItem(u32 itemId) const {
  return FindEntry(m_Items, itemId);
}

bool VoteTopicEntry::RemoveItem(u32 itemId) {
  VoteItemEntry* const item = FindItem(itemId);
  if (!item) return false;
  m_Items.RemoveKey(itemId);
  delete item;
  return true;
}

void VoteTopicEntry::RebuildItemOrder() {
  JW_Array<const VoteItemEntry*> items;
  for (const auto& item : m_Items) items.Add(item.value);
  std::reverse(items.begin(), items.end());
  std::stable_sort(items.begin(), items.end(),
                   [](const VoteItemEntry* a, const VoteItemEntry* b) { return a->ItemNo < b->ItemNo; });
  m_ItemOrder.RemoveAll();
  for (const VoteItemEntry* item : items) m_ItemOrder.Add(item->ItemID);
}

int VoteTopicEntry::CountAnswered(bool all) const {
  int count = 0;
  for (const auto& item : m_Items) {
    if (IsStarted && !item.value->IsOpen && !all) continue;
    count += item.value->CountSelected() > 0;
  }
  return count;
}

void VoteTopicEntry::BuildAnswers(const JW_ID& voter, const JW_String& name, VoteAnswerList* out) const {
  out->RemoveAll();
  VoteAnswerRecord answer;
  answer.m_nMask = VoteAnswerRecord::kAll & ~VoteAnswerRecord::kSignName;
  answer.TopicID = TopicID;
  answer.VoterID = voter;
  answer.SetSignName(JW_Utf8FromWide(name));
  for (const auto& item : m_Items) {
    if (!item.value->IsOpen) continue;
    answer.ItemID = item.value->ItemID;
    bool chosen = false;
    for (const auto& option : item.value->m_Options) {
      if (!option.value->m_bSelected) continue;
      chosen = true;
      answer.OptionID = option.value->OptionID;
      out->AddTail(answer);
    }
    if (!chosen) {
      answer.OptionID = VoteAnswerRecord::kNoOption;
      out->AddTail(answer);
    }
  }
}

void VoteTopicEntry::RestoreSelection() {
  for (auto& item : m_Items) {
    if (!IsStarted || item.value->IsOpen) item.value->SelectOwnAnswers();
  }
}

void VoteTopicEntry::ClearSelection() {
  for (auto& item : m_Items) item.value->ClearSelection();
}

void VoteTopicEntry::CloseDetailWindows() {
  for (auto& item : m_Items) item.value->m_Tally.CloseDetailWindow();
}

void VoteTopicEntry::WipeAnswers(bool closeWindows) {
  for (auto& item : m_Items) item.value->WipeAnswers(closeWindows);
}

bool VoteTopicEntry::PickOption(u32 itemId, u32 optionId) {
  VoteItemEntry* const item = FindItem(itemId);
  return IsStarted && item && item->PickOption(optionId);
}
