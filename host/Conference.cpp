// The conference's seats: who is there, whose request is next and who may make it.
#include "host/Conference.h"

#include <algorithm>

#include "JW_Base/Include/JW_Utf8.h"

namespace conference {
namespace {

Message Event(MessageKind kind, int topicId = 0) {
  Message event;
  event.kind = kind;
  event.topicId = topicId;
  return event;
}

Message Presence(const JW_ID& user, const JW_StringA& name, bool present) {
  Message event = Event(MessageKind::kUserChanged);
  event.user = user;
  event.text = name;
  event.value = present;
  return event;
}

}  // namespace

void Conference::Join(const JW_ID& user, const JW_String& name, Connection& connection) {
  m_Seats.push_back({user, JW_Utf8FromWide(name), &connection});
  const Seat& newcomer = m_Seats.back();
  Message list = Event(MessageKind::kVoteList);
  Message content = Event(MessageKind::kVoteContent);
  for (const auto& [id, vote] : m_Votes) {
    list.topics.AddTail(vote.topic);
    vote.AppendContent(content.items, content.options);
  }
  for (const Seat& seat : m_Seats) connection.toParticipant.Send(Presence(seat.user, seat.name, true));
  connection.toParticipant.Send(list);
  if (!m_Votes.empty()) connection.toParticipant.Send(content);
  for (const auto& [id, vote] : m_Votes) {
    if (vote.isPublished && vote.topic.ViewerRight(user)) SendResult(MessageKind::kResultPublished, newcomer, vote);
  }
  for (const Seat& seat : m_Seats) {
    if (&seat != &newcomer) seat.connection->toParticipant.Send(Presence(user, newcomer.name, true));
  }
}

void Conference::Leave(const JW_ID& user) {
  Seat* const seat = FindSeat(user);
  if (!seat) return;
  const JW_StringA name = seat->name;
  m_Seats.erase(m_Seats.begin() + (seat - m_Seats.data()));
  Broadcast(Presence(user, name, false));
}

void Conference::GrantRight(const JW_ID& user, bool granted) {
  Seat* const seat = FindSeat(user);
  if (!seat) return;
  seat->hasRight = granted;
  Message event = Event(MessageKind::kOperateRight);
  event.value = granted;
  seat->connection->toParticipant.Send(event);
}

void Conference::AskForReload() {
  Broadcast(Event(MessageKind::kReloadResults));
}

bool Conference::HandleNext() {
  Message request;
  for (size_t tried = 0; tried < m_Seats.size(); ++tried) {
    const Seat sender = m_Seats[m_nNextSeat++ % m_Seats.size()];
    if (!sender.connection->toConference.Receive(request)) continue;
    const int topicId = request.topicId;
    if (const Refusal reason = Handle(sender, request)) {
      Message refused = Event(MessageKind::kRefused, topicId);
      refused.text = reason;
      sender.connection->toParticipant.Send(refused);
    }
    return true;
  }
  return false;
}

Refusal Conference::Handle(const Seat& sender, Message& request) {
  switch (request.kind) {
    case MessageKind::kCreateVote:
      return CreateVote(sender, request);
    case MessageKind::kRequestVoteContent:
      return SendContent(sender, request.topicId);
    case MessageKind::kSubmitAnswers:
      return SubmitAnswers(sender, request);
    case MessageKind::kRequestResult:
      return RequestResult(sender, request.topicId);
    default: {
      ConferenceVote* const vote = FindVote(request.topicId);
      const Refusal reason = CheckManager(sender, vote);
      return reason ? reason : Manage(sender, *vote, request);
    }
  }
}

Refusal Conference::Manage(const Seat& sender, ConferenceVote& vote, const Message& request) {
  switch (request.kind) {
    case MessageKind::kModifyVote:
      return ModifyVote(vote, request);
    case MessageKind::kAddItems:
      return AddItems(vote, request);
    case MessageKind::kModifyItems:
      return ModifyItems(vote, request);
    case MessageKind::kRemoveItems:
      return RemoveItems(vote, request);
    case MessageKind::kSetVoteState:
      return SetVoteState(vote, request.value);
    case MessageKind::kSetItemsOpen:
      return SetItemsOpen(vote, request);
    case MessageKind::kPublishResult:
      return PublishResult(vote);
    case MessageKind::kDeleteVote:
      return DeleteVote(request.topicId);
    case MessageKind::kFetchResult:
      return FetchResult(sender, vote);
    case MessageKind::kSetItemOrder:
      return SetItemOrder(vote, request);
    case MessageKind::kResetVote:
      return ResetVote(vote);
    case MessageKind::kHandOver:
      return HandOver(vote, request.user);
    default:
      return "nobody asks for this";
  }
}

Refusal Conference::CheckManager(const Seat& sender, const ConferenceVote* vote) const {
  if (!vote) return "there is no such vote";
  if (!sender.hasRight) return "the right to manage votes is missing";
  if (!vote->topic.IsManager(sender.user)) return "only the vote's manager may do this";
  return kAccepted;
}

Conference::Seat* Conference::FindSeat(const JW_ID& user) {
  const auto found =
      std::find_if(m_Seats.begin(), m_Seats.end(), [&user](const Seat& seat) { return seat.user == user; });
  return found == m_Seats.end() ? nullptr : &*found;
}

ConferenceVote* Conference::FindVote(int topicId) {
  const auto found = m_Votes.find(topicId);
  return found == m_Votes.end() ? nullptr : &found->second;
}

const ConferenceVote* Conference::Find(int topicId) const {
  return const_cast<Conference*>(this)->FindVote(topicId);
}

u64 Conference::BytesCarried() const {
  u64 bytes = 0;
  for (const Seat& seat : m_Seats) {
    bytes += seat.connection->toConference.Bytes() + seat.connection->toParticipant.Bytes();
  }
  return bytes;
}

void Conference::SendResult(MessageKind kind, const Seat& seat, const ConferenceVote& vote) {
  Message event = Event(kind, static_cast<int>(vote.topic.TopicID));
  vote.AppendAnswers(event.answers);
  seat.connection->toParticipant.Send(event);
}

void Conference::Broadcast(const Message& event) {
  for (const Seat& seat : m_Seats) seat.connection->toParticipant.Send(event);
}

}  // namespace conference
