#include "host/gallery/GalleryVote.h"

#include "JW_Base/Include/JW_Utf8.h"

namespace {

const JW_ID kVoter(7, 1);
const JW_ID kSomebodyElse(8, 1);

enum TopicId : u32 { kVoterTopic = 1, kManagerTopic = 2 };
enum ItemId : u32 { kAnswered = 1, kLimited, kClosed, kCounted, kSigned, kManaged };

constexpr int kStartAfresh = 2;

// Options are numbered from 10 times the question's number.
constexpr u32 OptionId(u32 itemId, u32 index) {
  return itemId * 10 + index;
}

VoteTopicRecord MakeTopic(u32 id, const char* name, const JW_ID& manager, bool isSigned) {
  VoteTopicRecord topic;
  topic.TopicID = id;
  topic.ManagerID = topic.CreatorID = manager;
  topic.IsAllVote = topic.IsAllView = true;
  topic.IsSignVote = isSigned;
  topic.SetTopicName(name);
  return topic;
}

// One voter for each answer; `counts` is in the order of the options.
void AddAnswers(VoteAnswerList& list, u32 topicId, u32 itemId, std::initializer_list<int> counts) {
  u32 option = OptionId(itemId, 0);
  u32 voter = 100;
  for (const int count : counts) {
    for (int i = 0; i < count; ++i) {
      VoteAnswerRecord answer;
      answer.TopicID = topicId;
      answer.ItemID = itemId;
      answer.OptionID = option;
      answer.VoterID = JW_ID(voter++, 1);
      list.AddTail(answer);
    }
    ++option;
  }
}

VoteTopicEntry* FindTopic(u32 id) {
  const VoteData* const data = VoteData::Get();
  return data ? data->FindTopic(static_cast<int>(id)) : nullptr;
}

}  // namespace

GalleryVote::GalleryVote(const GalleryTexts& texts, HWND window, Tell tell) : m_Texts(texts), m_Tell(std::move(tell)) {
  m_Module.SetVoteSink(this);
  m_Module.SetLocalUser(&kVoter);
  m_Module.SetOperateRight(1);
  if (VoteData* const data = VoteData::Get()) data->SetMainWindow(window);
  AddTopics();
}

void GalleryVote::AddTopics() {
  VoteTopicList topics;
  topics.AddTail(MakeTopic(kVoterTopic, m_Texts.voterVote, kSomebodyElse, false));
  topics.AddTail(MakeTopic(kManagerTopic, m_Texts.managerVote, kVoter, true));
  m_Module.OnVoteList(&topics);

  AddQuestion(kVoterTopic, kAnswered, VoteItemRecord::kSingleChoice, 0, m_Texts.voterQuestions[0]);
  AddQuestion(kVoterTopic, kLimited, VoteItemRecord::kMultipleChoice, 2, m_Texts.voterQuestions[1]);
  AddQuestion(kVoterTopic, kClosed, VoteItemRecord::kYesOrNo, 0, m_Texts.voterQuestions[2]);
  AddQuestion(kVoterTopic, kCounted, VoteItemRecord::kSingleChoice, 0, m_Texts.voterQuestions[3]);
  AddQuestion(kManagerTopic, kSigned, VoteItemRecord::kSingleChoice, 0, m_Texts.managerQuestions[0]);
  AddQuestion(kManagerTopic, kManaged, VoteItemRecord::kMultipleChoice, 2, m_Texts.managerQuestions[1]);
}

void GalleryVote::AddQuestion(u32 topicId, u32 itemId, u32 type, u32 limit, const QuestionTexts& texts) {
  VoteItemRecord item;
  item.ItemID = item.ItemNo = itemId;
  item.TopicID = topicId;
  item.ItemType = type;
  item.MultiSelLim = limit;
  item.SetItemName(texts.name);
  VoteItemList items;
  items.AddTail(item);
  VoteOptionList options;
  for (const char* const text : texts.options) {
    VoteOptionRecord option;
    option.OptionID = OptionId(itemId, static_cast<u32>(options.GetCount()));
    option.ItemID = itemId;
    option.SetOptionDesc(text);
    options.AddTail(option);
  }
  m_Module.OnItemsAdded(&items, &options);
}

VoteTopicEntry* GalleryVote::VoterTopic() const {
  return FindTopic(kVoterTopic);
}

VoteTopicEntry* GalleryVote::ManagerTopic() const {
  return FindTopic(kManagerTopic);
}

void GalleryVote::Play() {
  m_Module.OnVoteStateChanged(kVoterTopic, kStartAfresh);
  m_Module.OnVoteStateChanged(kManagerTopic, kStartAfresh);

  VoteAnswerList answers;
  AddAnswers(answers, kVoterTopic, kCounted, {5, 14, 6});
  m_Module.OnResultPublished(kVoterTopic, &answers);
  VoteAnswerList signedAnswers;
  AddAnswers(signedAnswers, kManagerTopic, kSigned, {11, 7, 4, 3});
  m_Module.OnResultPublished(kManagerTopic, &signedAnswers);

  // A question that opens anew has no result.
  SetOpen(kAnswered, true);
  SetOpen(kLimited, true);
  SetOpen(kClosed, false);
  SetOpen(kManaged, false);

  if (VoteTopicEntry* const topic = VoterTopic()) {
    topic->PickOption(kAnswered, OptionId(kAnswered, 1));
    topic->PickOption(kLimited, OptionId(kLimited, 0));
    topic->PickOption(kLimited, OptionId(kLimited, 2));
  }
  if (VoteTopicEntry* const topic = ManagerTopic()) topic->PickOption(kSigned, OptionId(kSigned, 0));
}

void GalleryVote::SetOpen(u32 itemId, bool open) {
  VoteIdArray ids;
  ids.Add(itemId);
  m_Module.OnItemsOpened(&ids, open);
}

int GalleryVote::AddItems(int /*topicId*/, const VoteItemList* items, const VoteOptionList* options) {
  m_Module.OnItemsAdded(items, options);
  return 0;
}

void GalleryVote::RemoveItems(int /*topicId*/, const VoteIdArray* itemIds) {
  m_Module.OnItemsRemoved(itemIds);
}

void GalleryVote::SetVoteState(int topicId, int mode) {
  m_Module.OnVoteStateChanged(topicId, mode);
}

void GalleryVote::SetItemsOpen(int /*topicId*/, const VoteIdArray* itemIds, bool open) {
  m_Module.OnItemsOpened(itemIds, open);
}

void GalleryVote::SetItemOrder(int topicId, const VoteIdArray* itemIds) {
  m_Module.OnItemOrderChanged(topicId, itemIds);
}

void GalleryVote::GetUserName(const JW_ID* user, JW_WChar* buffer, int capacity) {
  JW_String name;
  name.Format(m_Texts.participant, static_cast<unsigned>(user->dwLow));
  lstrcpynW(buffer, name, capacity);
}

void GalleryVote::ShowStatusText(const VoteStatusText* text) {
  JW_String words;
  if (VoteStatusIsId(text)) {
    words.LoadString(VoteStatusId(text));
  } else {
    words = VoteStatusWords(text);
  }
  m_Tell(words.GetString());
}
