#include "votedata/VoteData.h"

#include <new>

namespace {

VoteData* pVoteData = nullptr;
VoteUi* g_pUi = nullptr;

}  // namespace

VoteData* VoteData::Get() {
  if (!pVoteData) pVoteData = new (std::nothrow) VoteData;
  return pVoteData;
}

void VoteData::Release() {
  VoteData* const data = pVoteData;
  pVoteData = nullptr;
  if (!data) return;
  if (data->m_nHolds > 0) {
    data->m_bReleased = true;
    data->m_Listeners.RemoveAll();  // a broadcast under way ends, as they may be gone before it goes on
  } else {
    delete data;
  }
}

void VoteData::SetUi(VoteUi* ui) {
  g_pUi = ui;
}
VoteUi* VoteData::Ui() {
  return g_pUi;
}

VoteData::VoteData()
    : m_pCurrent(nullptr),
      m_Topics(17),
      m_nRight(0),
      pVoteSink(nullptr),
      m_hMainWnd(nullptr),
      m_PendingResults(10),
      m_nHolds(0),
      m_bReleased(false) {}

VoteData::~VoteData() {
  for (auto& topic : m_Topics) delete topic.value;
  for (VoteTopicEntry* stray : m_Strays) delete stray;
}

void VoteData::AddListener(VoteListener* listener) {
  if (listener) m_Listeners.Add(listener);
}

void VoteData::RemoveListener(VoteListener* listener) {
  for (int i = 0; i < m_Listeners.GetSize(); ++i) {
    if (m_Listeners[i] == listener) m_Listeners.RemoveAt(i);
  }
}

void VoteData::SetOperateRight(unsigned value) {
  if (value == m_nRight) return;
  m_nRight = static_cast<u16>(value);
  OnOperateRightChanged(0, m_nRight);
}

void VoteData::SetCurrentTopic(VoteTopicEntry* topic) {
  m_pCurrent = topic;
  OnCurrentVoteChanged(0, topic);
}

void VoteData::SelectTopic(int topicId) {
  if (VoteTopicEntry* const topic = FindTopic(topicId)) SetCurrentTopic(topic);
}

bool VoteData::SetSink(IZQVoteSink* sink) {
  if (!sink) return false;
  pVoteSink = sink;
  return true;
}

void VoteData::ShowText(const JW_WChar* text) {
  if (pVoteSink) pVoteSink->ShowStatusText(reinterpret_cast<const VoteStatusText*>(text));
}

void VoteData::ShowTextId(u32 id) {
  if (pVoteSink) pVoteSink->ShowStatusText(reinterpret_cast<const VoteStatusText*>(static_cast<uintptr_t>(id)));
}

bool VoteData::IsLocalUserOnline() {
  return pVoteSink && pVoteSink->IsUserOnline(&m_idSelf);
}

JW_String VoteData::UserName(const JW_ID& user) {
  JW_WChar name[kUserNameCapacity] = {};
  if (pVoteSink) pVoteSink->GetUserName(&user, name, kUserNameCapacity);
  name[kUserNameCapacity - 1] = 0;
  return JW_String(name);
}

namespace {

// Whether an entry that was in the store at the start still is. One that never was, such as that of a repeated create,
// doesn't leave it.
template <class Find, class Entry>
auto StillThere(Find find, const Entry* entry) {
  return [find, entry, known = entry && find() == entry] { return !known || find() == entry; };
}

auto StaysInStore(const VoteData& data, const VoteTopicEntry* topic) {
  const int id = topic ? static_cast<int>(topic->TopicID) : 0;
  return StillThere([&data, id] { return data.FindTopic(id); }, topic);
}
auto StaysInStore(const VoteData& data, int topicId, const VoteItemEntry* item) {
  const u32 id = item ? item->ItemID : 0;
  const auto find = [&data, topicId, id]() -> const VoteItemEntry* {
    const VoteTopicEntry* const topic = data.FindTopic(topicId);
    return topic ? topic->FindItem(id) : nullptr;
  };
  return StillThere(find, item);
}
auto StaysInStore(const VoteData& data, int topicId, int itemId, const VoteOptionEntry* option) {
  const u32 id = option ? option->OptionID : 0;
  const auto find = [&data, topicId, itemId, id]() -> const VoteOptionEntry* {
    const VoteTopicEntry* const topic = data.FindTopic(topicId);
    const VoteItemEntry* const item = topic ? topic->FindItem(static_cast<u32>(itemId)) : nullptr;
    return item ? item->FindOption(id) : nullptr;
  };
  return StillThere(find, option);
}

bool Always() {
  return true;
}

}  // namespace

template <class GoesOn, class... Params, class... Args>
void VoteData::Broadcast(GoesOn goesOn, void (VoteListener::*event)(u32, Params...), u32 reserved, Args... args) {
  for (int i = m_Listeners.GetSize() - 1; i >= 0 && i < m_Listeners.GetSize() && goesOn(); --i) {
    (m_Listeners[i]->*event)(reserved, args...);
  }
}

void VoteData::OnVoteAdded(u32 reserved, VoteTopicEntry* topic) {
  Broadcast(StaysInStore(*this, topic), &VoteListener::OnVoteAdded, reserved, topic);
}
void VoteData::OnVoteRemoving(u32 reserved, VoteTopicEntry* topic) {
  Broadcast(StaysInStore(*this, topic), &VoteListener::OnVoteRemoving, reserved, topic);
}
void VoteData::OnVoteChanged(u32 reserved, VoteTopicEntry* topic) {
  Broadcast(StaysInStore(*this, topic), &VoteListener::OnVoteChanged, reserved, topic);
}
void VoteData::OnItemChanged(u32 reserved, int topicId, VoteItemEntry* item, int flag) {
  Broadcast(StaysInStore(*this, topicId, item), &VoteListener::OnItemChanged, reserved, topicId, item, flag);
}
void VoteData::OnOptionChanged(u32 reserved, int topicId, int itemId, VoteOptionEntry* option) {
  Broadcast(StaysInStore(*this, topicId, itemId, option), &VoteListener::OnOptionChanged, reserved, topicId, itemId,
            option);
}
void VoteData::OnCurrentVoteChanged(u32 reserved, VoteTopicEntry* topic) {
  Broadcast(StaysInStore(*this, topic), &VoteListener::OnCurrentVoteChanged, reserved, topic);
}
void VoteData::OnItemAdded(u32 reserved, int topicId, VoteItemEntry* item) {
  Broadcast(StaysInStore(*this, topicId, item), &VoteListener::OnItemAdded, reserved, topicId, item);
}
void VoteData::OnItemRemoving(u32 reserved, int topicId, int itemId) {
  Broadcast(Always, &VoteListener::OnItemRemoving, reserved, topicId, itemId);
}
void VoteData::OnOptionAdded(u32 reserved, int topicId, int itemId, VoteOptionEntry* option) {
  Broadcast(StaysInStore(*this, topicId, itemId, option), &VoteListener::OnOptionAdded, reserved, topicId, itemId,
            option);
}
void VoteData::OnOptionRemoving(u32 reserved, int topicId, int itemId, int optionId) {
  Broadcast(Always, &VoteListener::OnOptionRemoving, reserved, topicId, itemId, optionId);
}
void VoteData::OnOperateRightChanged(u32 reserved, u16 value) {
  Broadcast(Always, &VoteListener::OnOperateRightChanged, reserved, value);
}
void VoteData::OnVoteManagerChanged(u32 reserved, int topicId, const JW_ID* manager) {
  Broadcast(Always, &VoteListener::OnVoteManagerChanged, reserved, topicId, manager);
}
void VoteData::OnVoteDataChanged(u32 reserved, int topicId, int reason) {
  Broadcast(Always, &VoteListener::OnVoteDataChanged, reserved, topicId, reason);
}
void VoteData::OnVoteStateChanged(u32 reserved, int topicId, int mode) {
  Broadcast(Always, &VoteListener::OnVoteStateChanged, reserved, topicId, mode);
}
void VoteData::OnResultStateChanged(u32 reserved, int topicId, int shown) {
  Broadcast(Always, &VoteListener::OnResultStateChanged, reserved, topicId, shown);
}
void VoteData::OnItemAnswersCleared(u32 reserved, int topicId, int itemId, int zero) {
  Broadcast(Always, &VoteListener::OnItemAnswersCleared, reserved, topicId, itemId, zero);
}
void VoteData::OnItemOpenChanged(u32 reserved, int topicId, int itemId, int open) {
  Broadcast(Always, &VoteListener::OnItemOpenChanged, reserved, topicId, itemId, open);
}
void VoteData::OnVoteReset(u32 reserved, int topicId) {
  Broadcast(Always, &VoteListener::OnVoteReset, reserved, topicId);
}
void VoteData::OnItemOrderChanged(u32 reserved, int topicId, const VoteIdArray* itemIds) {
  Broadcast(Always, &VoteListener::OnItemOrderChanged, reserved, topicId, itemIds);
}
void VoteData::OnUserChanged(u32 reserved, const JW_ID* user, u32 more) {
  Broadcast(Always, &VoteListener::OnUserChanged, reserved, user, more);
}
