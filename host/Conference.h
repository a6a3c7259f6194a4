// The conference: it holds the truth, decides who may do what, and tells everybody what has changed.
//
// Nothing happens but by HandleNext, which takes one waiting request from one seat. A refused request changes nothing
// and is answered with the reason to its sender alone. One thread.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/ConferenceVote.h"
#include "host/Connection.h"

namespace conference {

class Conference {
 public:
  // Takes a seat for the participant and sends what a newcomer needs: who is there, the votes, their content, and the
  // results that are published. The connection must outlive the seat.
  void Join(const JW_ID& user, const JW_String& name, Connection& connection);
  void Leave(const JW_ID& user);
  // The right to compose and manage votes.
  void GrantRight(const JW_ID& user, bool granted);
  // Tells everybody that what they know of the results may be stale.
  void AskForReload();

  // Carries out one waiting request; false if no seat has one.
  bool HandleNext();

  const ConferenceVote* Find(int topicId) const;
  u64 BytesCarried() const;

 private:
  struct Seat {
    JW_ID user;
    JW_StringA name;  // UTF-8
    Connection* connection;
    bool hasRight = false;
  };

  Refusal Handle(const Seat& sender, Message& request);
  Refusal CreateVote(const Seat& sender, const Message& request);
  Refusal ModifyVote(ConferenceVote& vote, const Message& request);
  Refusal SendContent(const Seat& sender, int topicId);
  Refusal AddItems(ConferenceVote& vote, const Message& request);
  Refusal ModifyItems(ConferenceVote& vote, const Message& request);
  Refusal RemoveItems(ConferenceVote& vote, const Message& request);
  Refusal SubmitAnswers(const Seat& sender, const Message& request);
  Refusal SetVoteState(ConferenceVote& vote, int mode);
  Refusal SetItemsOpen(ConferenceVote& vote, const Message& request);
  Refusal PublishResult(ConferenceVote& vote);
  Refusal DeleteVote(int topicId);
  Refusal RequestResult(const Seat& sender, int topicId);
  Refusal FetchResult(const Seat& sender, ConferenceVote& vote);
  Refusal SetItemOrder(ConferenceVote& vote, const Message& request);
  Refusal ResetVote(ConferenceVote& vote);
  Refusal HandOver(ConferenceVote& vote, const JW_ID& user);

  // The requests of a vote's manager.
  Refusal Manage(const Seat& sender, ConferenceVote& vote, const Message& request);
  Refusal CheckManager(const Seat& sender, const ConferenceVote* vote) const;
  Seat* FindSeat(const JW_ID& user);
  ConferenceVote* FindVote(int topicId);
  void AnswerHeldRequests(const ConferenceVote& vote);
  void SendResult(MessageKind kind, const Seat& seat, const ConferenceVote& vote);
  void Broadcast(const Message& event);

  std::vector<Seat> m_Seats;
  size_t m_nNextSeat = 0;
  std::map<int, ConferenceVote> m_Votes;
  // Results that were asked for while the vote ran, by vote. A module drops them until the vote has stopped.
  std::map<int, std::vector<JW_ID>> m_HeldRequests;
  u32 m_nLastTopicId = 0;
  u32 m_nLastItemId = 0;
};

}  // namespace conference
