// What the conference does for each request that it accepts.
#include <algorithm>
#include <set>

#include "host/Conference.h"
#include "votedata/VoteData.h"

namespace conference {
namespace {

int IdOf(const ConferenceVote& vote) {
  return static_cast<int>(vote.topic.TopicID);
}

Message Event(MessageKind kind, const ConferenceVote& vote) {
  Message event;
  event.kind = kind;
  event.topicId = IdOf(vote);
  return event;
}

// The options of question `from`, as those of question `to`. An option that comes twice counts once.
VoteOptionList OptionsOf(const VoteOptionList& options, u32 from, u32 to) {
  VoteOptionList own;
  std::set<u32> seen;
  for (const VoteOptionRecord& option : options) {
    if (option.ItemID != from || !seen.insert(option.OptionID).second) continue;
    VoteOptionRecord copy(option);
    copy.ItemID = to;
    copy.m_nMask |= VoteOptionRecord::kItemID;
    own.AddTail(copy);
  }
  return own;
}

}  // namespace

Refusal Conference::CreateVote(const Seat& sender, const Message& request) {
  if (!sender.hasRight) return "the right to manage votes is missing";
  if (m_Votes.size() >= kMaxVotes) return "the conference has as many votes as it can hold";
  if (request.topics.IsEmpty()) return "there is no vote in it";
  ConferenceVote vote;
  vote.topic = request.topics.GetHead()->data;
  vote.topic.TopicID = ++m_nLastTopicId;
  vote.topic.CreatorID = vote.topic.ManagerID = sender.user;
  vote.topic.IsStarted = false;
  vote.topic.TopicFlags = vote.topic.TimeLong;
  vote.topic.m_nMask |= VoteTopicRecord::kTopicID | VoteTopicRecord::kCreatorID | VoteTopicRecord::kManagerID |
                        VoteTopicRecord::kIsStarted | VoteTopicRecord::kTopicFlags;
  Message event = Event(MessageKind::kVoteCreated, vote);
  event.topics.AddTail(vote.topic);
  m_Votes[IdOf(vote)] = vote;
  Broadcast(event);
  return kAccepted;
}

// Who made the vote, who manages it and whether it runs stay the conference's.
Refusal Conference::ModifyVote(ConferenceVote& vote, const Message& request) {
  if (request.topics.IsEmpty()) return "there is no vote in it";
  VoteTopicRecord changed = request.topics.GetHead()->data;
  changed.TopicID = vote.topic.TopicID;
  changed.CreatorID = vote.topic.CreatorID;
  changed.ManagerID = vote.topic.ManagerID;
  changed.IsStarted = vote.topic.IsStarted;
  changed.TopicFlags = vote.topic.TopicFlags;
  changed.m_nMask |= vote.topic.m_nMask;
  vote.topic = changed;
  Message event = Event(MessageKind::kVoteModified, vote);
  event.topics.AddTail(vote.topic);
  Broadcast(event);
  return kAccepted;
}

// A vote without questions is still being composed: its content goes to everybody with AddItems.
Refusal Conference::SendContent(const Seat& sender, int topicId) {
  const ConferenceVote* const vote = FindVote(topicId);
  if (!vote) return "there is no such vote";
  if (vote->questions.empty()) return kAccepted;
  Message event = Event(MessageKind::kItemsAdded, *vote);
  vote->AppendContent(event.items, event.options);
  sender.connection->toParticipant.Send(event);
  return kAccepted;
}

Refusal Conference::AddItems(ConferenceVote& vote, const Message& request) {
  const size_t count = static_cast<size_t>(request.items.GetCount());
  if (count == 0) return "there is no question in it";
  if (vote.questions.size() + count > kMaxItems) return "a vote has at most 200 questions";
  Message event = Event(MessageKind::kItemsAdded, vote);
  for (const VoteItemRecord& item : request.items) {
    Question question;
    question.item = item;
    question.item.TopicID = vote.topic.TopicID;
    question.item.ItemID = ++m_nLastItemId;
    question.item.ItemNo = static_cast<u32>(vote.questions.size());
    question.item.IsOpen = item.IsOpen && vote.topic.IsStarted;
    question.item.m_nMask |=
        VoteItemRecord::kTopicID | VoteItemRecord::kItemID | VoteItemRecord::kItemNo | VoteItemRecord::kIsOpen;
    question.options = OptionsOf(request.options, item.ItemID, question.item.ItemID);
    event.items.AddTail(question.item);
    for (const VoteOptionRecord& option : question.options) event.options.AddTail(option);
    vote.questions.push_back(question);
  }
  Broadcast(event);
  return kAccepted;
}

// A question that changes is a new question for the count.
Refusal Conference::ModifyItems(ConferenceVote& vote, const Message& request) {
  Message event = Event(MessageKind::kItemsModified, vote);
  for (const VoteItemRecord& item : request.items) {
    if (!vote.Find(item.ItemID)) return "there is no such question";
  }
  for (const VoteItemRecord& item : request.items) {
    Question& question = *vote.Find(item.ItemID);
    const VoteItemRecord before = question.item;
    question.item = item;
    question.item.TopicID = before.TopicID;
    question.item.ItemNo = before.ItemNo;
    question.item.IsOpen = before.IsOpen;
    question.item.m_nMask |= before.m_nMask;
    question.options = OptionsOf(request.options, item.ItemID, item.ItemID);
    question.ballots.clear();
    event.items.AddTail(question.item);
    for (const VoteOptionRecord& option : question.options) event.options.AddTail(option);
  }
  Broadcast(event);
  return kAccepted;
}

Refusal Conference::RemoveItems(ConferenceVote& vote, const Message& request) {
  Message event = Event(MessageKind::kItemsRemoved, vote);
  for (const u32 id : request.ids) {
    const Question* const question = vote.Find(id);
    if (!question) continue;
    vote.questions.erase(vote.questions.begin() + (question - vote.questions.data()));
    event.ids.Add(id);
  }
  if (event.ids.IsEmpty()) return "there is no such question";
  vote.Renumber();
  Broadcast(event);
  return kAccepted;
}

Refusal Conference::SubmitAnswers(const Seat& sender, const Message& request) {
  ConferenceVote* const vote = FindVote(request.topicId);
  if (!vote) return "there is no such vote";
  if (const Refusal reason = vote->CheckBallot(sender.user, request.answers)) return reason;
  // The name is the conference's own knowledge: nobody signs with another's.
  vote->TakeBallot(sender.user, sender.name, request.answers);
  Message event = Event(MessageKind::kItemsRemaining, *vote);
  event.ids.Add(request.answers.GetHead()->data.ItemID);
  sender.connection->toParticipant.Send(event);
  return kAccepted;
}

Refusal Conference::SetVoteState(ConferenceVote& vote, int mode) {
  if (mode < 0 || mode > 2) return "there is no such state";
  if (mode > 0 && vote.questions.empty()) return "the vote has no questions";
  vote.SetState(mode);
  Message event = Event(MessageKind::kVoteStateChanged, vote);
  event.value = mode;
  Broadcast(event);
  if (mode == 0) AnswerHeldRequests(vote);
  return kAccepted;
}

void Conference::AnswerHeldRequests(const ConferenceVote& vote) {
  std::vector<JW_ID> held;
  held.swap(m_HeldRequests[IdOf(vote)]);
  for (const JW_ID& user : held) {
    if (const Seat* const seat = FindSeat(user)) RequestResult(*seat, IdOf(vote));
  }
}

Refusal Conference::SetItemsOpen(ConferenceVote& vote, const Message& request) {
  if (!vote.topic.IsStarted) return "the vote is not running";
  Message event = Event(MessageKind::kItemsOpened, vote);
  event.value = request.value > 0;
  for (const u32 id : request.ids) {
    Question* const question = vote.Find(id);
    if (!question) continue;
    vote.SetOpen(*question, request.value > 0);
    event.ids.Add(id);
  }
  if (event.ids.IsEmpty()) return "there is no such question";
  Broadcast(event);
  return kAccepted;
}

Refusal Conference::PublishResult(ConferenceVote& vote) {
  vote.isPublished = true;
  for (const Seat& seat : m_Seats) {
    if (vote.topic.ViewerRight(seat.user) || vote.topic.IsManager(seat.user)) {
      SendResult(MessageKind::kResultPublished, seat, vote);
    }
  }
  return kAccepted;
}

Refusal Conference::DeleteVote(int topicId) {
  Message event;
  event.kind = MessageKind::kVoteRemoved;
  event.topicId = topicId;
  m_Votes.erase(topicId);
  m_HeldRequests.erase(topicId);
  Broadcast(event);
  return kAccepted;
}

// Modules ask for results on occasions of their own, so somebody who may not see them gets no answer and no blame.
Refusal Conference::RequestResult(const Seat& sender, int topicId) {
  const ConferenceVote* const vote = FindVote(topicId);
  if (!vote) return kAccepted;
  if (vote->topic.IsStarted) {
    std::vector<JW_ID>& held = m_HeldRequests[topicId];
    if (std::find(held.begin(), held.end(), sender.user) == held.end()) held.push_back(sender.user);
    return kAccepted;
  }
  const bool maySee = vote->topic.IsManager(sender.user) || (vote->isPublished && vote->topic.ViewerRight(sender.user));
  if (maySee) SendResult(MessageKind::kPendingAnswers, sender, *vote);
  return kAccepted;
}

Refusal Conference::FetchResult(const Seat& sender, ConferenceVote& vote) {
  SendResult(MessageKind::kResultReceived, sender, vote);
  return kAccepted;
}

Refusal Conference::SetItemOrder(ConferenceVote& vote, const Message& request) {
  if (!vote.SetOrder(request.ids)) return "the order leaves questions out";
  Message event = Event(MessageKind::kItemOrderChanged, vote);
  event.ids = request.ids;
  Broadcast(event);
  return kAccepted;
}

Refusal Conference::ResetVote(ConferenceVote& vote) {
  vote.SetState(0);
  Broadcast(Event(MessageKind::kVoteReset, vote));
  AnswerHeldRequests(vote);
  return kAccepted;
}

Refusal Conference::HandOver(ConferenceVote& vote, const JW_ID& user) {
  const Seat* const seat = FindSeat(user);
  if (!seat) return "the new manager is not in the conference";
  if (!seat->hasRight) return "the new manager has no right to manage votes";
  vote.topic.ManagerID = user;
  vote.topic.m_nMask |= VoteTopicRecord::kManagerID;
  Message event = Event(MessageKind::kVoteManagerChanged, vote);
  event.user = user;
  Broadcast(event);
  return kAccepted;
}

}  // namespace conference
