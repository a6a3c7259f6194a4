// One participant's client: it owns a vote module, is its sink, and stands at one end of a connection.
//
// What the module asks through the sink goes to the conference as a message; what the conference tells comes in
// through ReceiveNext and becomes a call of the module. Where there is no window, the user's own actions are made by
// calling the sink's operations in the window's place.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/Connection.h"
#include "host/VoteCount.h"
#include "host/VoteInstance.h"
#include "module/IZQVoteSink.h"

namespace conference {

class Participant;

// Who wants to know what goes on between modules, clients and conference.
class ParticipantObserver {
 public:
  // The sink of `who` has heard `kind`; `words` say it with the participant as the subject, as "starts the vote".
  virtual void OnAsked(const Participant& who, MessageKind kind, const std::string& words) = 0;
  // The module of `who` is about to be told `event`.
  virtual void OnTold(const Participant& who, const Message& event) = 0;
  // The module of `who` shows a text, already looked up where the module gave the bare number.
  virtual void OnStatusText(const Participant& who, const JW_String& text) = 0;
  virtual void OnRefused(const Participant& who, const std::string& reason) = 0;

 protected:
  ~ParticipantObserver() = default;
};

class Participant final : public IZQVoteSink {
 public:
  // `resources` is the resource module, in which the texts of bare numbers are looked up too.
  Participant(const JW_ID& user, const JW_String& name, std::unique_ptr<VoteInstance> instance, JW_HMODULE resources,
              ParticipantObserver& observer);
  ~Participant();
  Participant(const Participant&) = delete;
  Participant& operator=(const Participant&) = delete;

  const JW_ID& User() const { return m_User; }
  const JW_String& Name() const { return m_Name; }
  IZQVote& Vote() { return m_Instance->Vote(); }
  Connection& Line() { return m_Connection; }

  // Takes one event from the connection; false if none waits.
  bool ReceiveNext();

  // The client's own request: the vote gets another manager.
  void HandOver(int topicId, const JW_ID& user);

  // The vote that was created last, 0 if none.
  int LastCreated() const { return m_nLastCreated; }
  // The count of the answers that were delivered last, null if there were none.
  const VoteCount* DeliveredCount(int topicId) const;
  // Why the last request was refused, empty if none was since the last call of this.
  std::string TakeRefusal();

  // The sink.
  int CreateVote(const VoteTopicRecord* topic) override;
  void ModifyVote(const VoteTopicRecord* topic) override;
  void RequestVoteContent(int topicId) override;
  int AddItems(int topicId, const VoteItemList* items, const VoteOptionList* options) override;
  void ModifyItems(int topicId, const VoteItemList* items, const VoteOptionList* options) override;
  void RemoveItems(int topicId, const VoteIdArray* itemIds) override;
  void SubmitAnswers(int topicId, const VoteAnswerList* answers) override;
  void SetVoteState(int topicId, int mode) override;
  void SetItemsOpen(int topicId, const VoteIdArray* itemIds, bool open) override;
  int PublishResult(int topicId) override;
  void DeleteVote(int topicId) override;
  void RequestResult(int topicId) override;
  void FetchResult(int topicId) override;
  void GetUserName(const JW_ID* user, JW_WChar* buffer, int capacity) override;
  const VoteUserList* GetUserList() override;
  void ShowStatusText(const VoteStatusText* text) override;
  void SetItemOrder(int topicId, const VoteIdArray* itemIds) override;
  void ChooseParticipants(int kind, VoteTopicEntry* topic) override;
  void ResetVote(int topicId) override;
  bool IsUserOnline(const JW_ID* user) override;
  void RegisterDialogWindow(JW_HWND dialog) override;

 private:
  // Sends the request and tells the observer. 0 for sent.
  int Ask(const Message& request, const std::string& words);
  void Deliver(const Message& event);
  void KeepRoster(const Message& event);
  int FindInRoster(const JW_ID& user) const;

  JW_ID m_User;
  JW_String m_Name;
  std::unique_ptr<VoteInstance> m_Instance;
  ParticipantObserver& m_Observer;
  Connection m_Connection;
  std::vector<VoteUser> m_Roster;
  VoteUserList m_UserList = {};
  int m_nLastCreated = 0;
  std::map<int, VoteCount> m_Delivered;
  std::string m_Refusal;
};

}  // namespace conference
