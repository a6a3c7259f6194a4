// The commands that open a window: add and edit a question, show who answered what.
//
// The question dialog runs a message loop of its own, in which the host's events arrive: what was true before it is
// checked again after it.
#include "JW_Base/Include/JW_Utf8.h"
#include "resources/ResourceIds.h"
#include "votedata/VoteData.h"

namespace {

bool TooManyItems(const VoteTopicEntry& topic) {
  return topic.m_Items.GetCount() >= kMaxItems;
}

VoteItemList OneItem(const VoteItemRecord& item) {
  VoteItemList items;
  items.AddTail(item);
  return items;
}

}  // namespace

bool VoteData::AddItem(int topicId) {
  const VoteTopicEntry* topic = FindTopic(topicId);
  if (!topic) return false;
  if (!TooManyItems(*topic)) {
    VoteItemDraft draft;
    if (!Ui() || !Ui()->RunItemDialog(&draft)) return true;
    if (!CheckManager(topicId)) return false;
    topic = FindTopic(topicId);
    if (!topic) return false;
    // The vote became impossible to change while the dialog was open.
    if (m_hMainWnd && !Ui()->IsControlEnabled(m_hMainWnd, IDM_IMPORT_VOTE)) return false;
    if (!TooManyItems(*topic)) {
      draft.item.ItemNo = static_cast<u32>(topic->m_Items.GetCount());
      draft.item.m_nMask |= VoteItemRecord::kItemNo;
      const VoteItemList items = OneItem(draft.item);
      if (pVoteSink) pVoteSink->AddItems(topicId, &items, &draft.options);
      return true;
    }
  }
  JW_String format;
  format.LoadString(IDS_STATUS_ITEM_LIMIT);
  JW_String text;
  text.Format(format, kMaxItems);
  ShowText(text);
  return false;
}

bool VoteData::EditItem(int topicId, u32 itemId) {
  const VoteItemEntry* const item = FindItem(itemId);
  if (!item) return false;
  VoteItemDraft draft;
  draft.isNew = false;
  draft.item = *item;
  for (const u32 optionId : item->m_OptionOrder) {
    if (const VoteOptionEntry* const option = item->FindOption(optionId)) draft.options.AddTail(*option);
  }
  if (!Ui() || !Ui()->RunItemDialog(&draft)) return true;
  if (!CheckManager(topicId)) return false;
  if (!draft.changed) return true;
  const VoteItemEntry* const now = FindItem(itemId);
  if (!now) return false;
  draft.item.ItemNo = now->ItemNo;
  draft.item.ItemID = now->ItemID;
  draft.item.m_nMask |= VoteItemRecord::kItemNo | VoteItemRecord::kItemID | VoteItemRecord::kTopicID |
                        VoteItemRecord::kIsOpen | VoteItemRecord::kItemExtra;
  const VoteItemList items = OneItem(draft.item);
  if (pVoteSink) pVoteSink->ModifyItems(topicId, &items, &draft.options);
  return true;
}

bool VoteData::ShowSignNames(u32 itemId) {
  VoteItemEntry* const item = FindItem(itemId);
  const VoteTopicEntry* const topic = item ? FindTopic(static_cast<int>(item->TopicID)) : nullptr;
  if (!topic) return false;
  if (Ui() && !item->m_OptionOrder.IsEmpty() && item->m_Tally.m_nAnswers > 0) {
    VoteSignNamesRequest request;
    request.topicId = item->TopicID;
    request.itemId = itemId;
    request.topicName = JW_WideFromUtf8(topic->TopicName);
    request.itemName = JW_WideFromUtf8(item->ItemName);
    request.options = item->m_OptionOrder;
    Ui()->OpenSignNames(&item->m_Tally, request);
  }
  return true;
}
