#include "host/Participant.h"

#include "JW_Base/Include/JW_Utf8.h"
#include "host/Text.h"

namespace conference {
namespace {

Message Request(MessageKind kind, int topicId) {
  Message request;
  request.kind = kind;
  request.topicId = topicId;
  return request;
}

std::string Count(int number, const char* one) {
  return std::to_string(number) + " " + one + (number == 1 ? "" : "s");
}

void CopyName(const JW_String& name, JW_WChar* buffer, int capacity) {
  if (capacity <= 0) return;
  const int length = name.GetLength() < capacity ? name.GetLength() : capacity - 1;
  memcpy(buffer, name.GetString(), static_cast<size_t>(length) * sizeof(JW_WChar));
  buffer[length] = 0;
}

}  // namespace

Participant::Participant(const JW_ID& user, const JW_String& name, std::unique_ptr<VoteInstance> instance,
                         JW_HMODULE resources, ParticipantObserver& observer)
    : m_User(user), m_Name(name), m_Instance(std::move(instance)), m_Observer(observer) {
  Vote().SetResourceModule(resources);
  Vote().SetVoteSink(this);
  Vote().SetLocalUser(&m_User);
}

// The module may call its sink to the last.
Participant::~Participant() {
  m_Instance.reset();
}

const VoteCount* Participant::DeliveredCount(int topicId) const {
  const auto found = m_Delivered.find(topicId);
  return found == m_Delivered.end() ? nullptr : &found->second;
}

std::string Participant::TakeRefusal() {
  std::string reason;
  reason.swap(m_Refusal);
  return reason;
}

// From the module to the conference.

int Participant::Ask(const Message& request, const std::string& words) {
  m_Observer.OnAsked(*this, request.kind, words);
  return m_Connection.toConference.Send(request) ? 0 : 1;
}

int Participant::CreateVote(const VoteTopicRecord* topic) {
  Message request = Request(MessageKind::kCreateVote, 0);
  request.topics.AddTail(*topic);
  return Ask(request, "creates the vote \"" + Printable(topic->TopicName) + "\"");
}

void Participant::ModifyVote(const VoteTopicRecord* topic) {
  Message request = Request(MessageKind::kModifyVote, static_cast<int>(topic->TopicID));
  request.topics.AddTail(*topic);
  std::string words = "changes the vote";
  if (topic->Has(VoteTopicRecord::kVoterList) && !topic->IsAllVote) {
    words = "names " + Count(topic->VoterList.GetSize(), "voter");
  }
  Ask(request, words);
}

void Participant::RequestVoteContent(int topicId) {
  Ask(Request(MessageKind::kRequestVoteContent, topicId), "asks for the questions of the vote");
}

int Participant::AddItems(int topicId, const VoteItemList* items, const VoteOptionList* options) {
  Message request = Request(MessageKind::kAddItems, topicId);
  request.items = *items;
  request.options = *options;
  return Ask(request, "adds " + Count(items->GetCount(), "question") + " with " + Count(options->GetCount(), "option"));
}

void Participant::ModifyItems(int topicId, const VoteItemList* items, const VoteOptionList* options) {
  Message request = Request(MessageKind::kModifyItems, topicId);
  request.items = *items;
  request.options = *options;
  Ask(request, "changes " + Count(items->GetCount(), "question"));
}

void Participant::RemoveItems(int topicId, const VoteIdArray* itemIds) {
  Message request = Request(MessageKind::kRemoveItems, topicId);
  request.ids = *itemIds;
  Ask(request, "removes " + Count(itemIds->GetSize(), "question"));
}

void Participant::SubmitAnswers(int topicId, const VoteAnswerList* answers) {
  Message request = Request(MessageKind::kSubmitAnswers, topicId);
  request.answers = *answers;
  Ask(request, "submits " + Count(answers->GetCount(), "answer"));
}

void Participant::SetVoteState(int topicId, int mode) {
  Message request = Request(MessageKind::kSetVoteState, topicId);
  request.value = mode;
  Ask(request, mode == 0   ? "stops the vote"
               : mode == 2 ? "starts the vote, with no answers left from before"
                           : "starts the vote and keeps the answers from before");
}

void Participant::SetItemsOpen(int topicId, const VoteIdArray* itemIds, bool open) {
  Message request = Request(MessageKind::kSetItemsOpen, topicId);
  request.ids = *itemIds;
  request.value = open;
  Ask(request, (open ? "opens " : "closes ") + Count(itemIds->GetSize(), "question"));
}

int Participant::PublishResult(int topicId) {
  return Ask(Request(MessageKind::kPublishResult, topicId), "publishes the result");
}

void Participant::DeleteVote(int topicId) {
  Ask(Request(MessageKind::kDeleteVote, topicId), "deletes the vote");
}

void Participant::RequestResult(int topicId) {
  Ask(Request(MessageKind::kRequestResult, topicId), "asks for the answers collected so far");
}

void Participant::FetchResult(int topicId) {
  Ask(Request(MessageKind::kFetchResult, topicId), "fetches the result");
}

void Participant::SetItemOrder(int topicId, const VoteIdArray* itemIds) {
  Message request = Request(MessageKind::kSetItemOrder, topicId);
  request.ids = *itemIds;
  Ask(request, "changes the order of the questions");
}

void Participant::ResetVote(int topicId) {
  Ask(Request(MessageKind::kResetVote, topicId), "resets the vote");
}

void Participant::HandOver(int topicId, const JW_ID& user) {
  Message request = Request(MessageKind::kHandOver, topicId);
  request.user = user;
  const int place = FindInRoster(user);
  const JW_String name = place < 0 ? user.ToString() : JW_String(m_Roster[static_cast<size_t>(place)].name);
  Ask(request, "hands the vote to " + Printable(name));
}

void Participant::ChooseParticipants(int /*kind*/, VoteTopicEntry* /*topic*/) {
  // There is no window in which anybody could be picked.
}
void Participant::RegisterDialogWindow(JW_HWND /*dialog*/) {}

// What only the client knows.

int Participant::FindInRoster(const JW_ID& user) const {
  for (size_t i = 0; i < m_Roster.size(); ++i) {
    if (m_Roster[i].id == user) return static_cast<int>(i);
  }
  return -1;
}

void Participant::GetUserName(const JW_ID* user, JW_WChar* buffer, int capacity) {
  const int place = FindInRoster(*user);
  if (place >= 0) CopyName(m_Roster[static_cast<size_t>(place)].name, buffer, capacity);
}

const VoteUserList* Participant::GetUserList() {
  m_UserList.users = m_Roster.data();
  m_UserList.count = static_cast<int>(m_Roster.size());
  return &m_UserList;
}

bool Participant::IsUserOnline(const JW_ID* user) {
  return FindInRoster(*user) >= 0;
}

void Participant::ShowStatusText(const VoteStatusText* text) {
  m_Observer.OnStatusText(*this,
                          VoteStatusIsId(text) ? ResourceText(VoteStatusId(text)) : JW_String(VoteStatusWords(text)));
}

// From the conference to the module.

bool Participant::ReceiveNext() {
  Message event;
  if (!m_Connection.toParticipant.Receive(event)) return false;
  m_Observer.OnTold(*this, event);
  Deliver(event);
  return true;
}

void Participant::KeepRoster(const Message& event) {
  const int place = FindInRoster(event.user);
  if (event.value == 0 && place >= 0) m_Roster.erase(m_Roster.begin() + place);
  if (event.value == 0 || place >= 0) return;
  VoteUser user = {};
  user.id = event.user;
  CopyName(JW_WideFromUtf8(event.text), user.name, static_cast<int>(std::size(user.name)));
  m_Roster.push_back(user);
}

void Participant::Deliver(const Message& event) {
  IZQVote& vote = Vote();
  const int topicId = event.topicId;
  switch (event.kind) {
    case MessageKind::kVoteList:
      return vote.OnVoteList(&event.topics);
    case MessageKind::kVoteCreated:
      m_nLastCreated = topicId;
      for (const VoteTopicRecord& topic : event.topics) vote.OnVoteCreated(&topic);
      return;
    case MessageKind::kVoteModified:
      for (const VoteTopicRecord& topic : event.topics) vote.OnVoteModified(&topic);
      return;
    case MessageKind::kItemsAdded:
      return vote.OnItemsAdded(&event.items, &event.options);
    case MessageKind::kItemsModified:
      return vote.OnItemsModified(&event.items, &event.options);
    case MessageKind::kItemsRemoved:
      return vote.OnItemsRemoved(&event.ids);
    case MessageKind::kItemsRemaining:
      return vote.OnItemsRemaining(topicId, &event.ids);
    case MessageKind::kVoteStateChanged:
      return vote.OnVoteStateChanged(topicId, event.value);
    case MessageKind::kItemsOpened:
      return vote.OnItemsOpened(&event.ids, event.value);
    case MessageKind::kVoteContent:
      return vote.OnVoteContent(0, &event.items, &event.options);
    case MessageKind::kVoteReset:
      return vote.OnVoteReset(topicId);
    case MessageKind::kResultPublished:
      m_Delivered[topicId] = CountOf(event.answers);
      return vote.OnResultPublished(topicId, &event.answers);
    case MessageKind::kVoteRemoved:
      return vote.OnVoteRemoved(topicId);
    case MessageKind::kPendingAnswers:
      m_Delivered[topicId] = CountOf(event.answers);
      return vote.OnPendingAnswers(topicId, &event.answers);
    case MessageKind::kResultReceived:
      m_Delivered[topicId] = CountOf(event.answers);
      return vote.OnResultReceived(topicId, &event.answers);
    case MessageKind::kItemOrderChanged:
      return vote.OnItemOrderChanged(topicId, &event.ids);
    case MessageKind::kVoteManagerChanged:
      return vote.OnVoteManagerChanged(topicId, &event.user);
    case MessageKind::kOperateRight:
      return vote.SetOperateRight(static_cast<unsigned>(event.value));
    case MessageKind::kUserChanged:
      KeepRoster(event);
      vote.OnUserChanged(&event.user, static_cast<u32>(event.value));
      return;
    case MessageKind::kReloadResults:
      m_Delivered.clear();
      return vote.ReloadResults(0);
    case MessageKind::kRefused:
      m_Refusal = Printable(event.text);
      return m_Observer.OnRefused(*this, m_Refusal);
    default:
      return;  // requests don't come this way
  }
}

}  // namespace conference
