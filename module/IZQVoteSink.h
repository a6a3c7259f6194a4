// The table by which the module talks to its host. The host implements it and hands it in by SetVoteSink.
//
// The module calls it on the thread that owns the vote window. Operations may call back into IZQVote before they
// return. Records and lists stay the module's and are valid during the call only. A result of type int is 0 for
// accepted and anything else for refused; what is accepted comes back through IZQVote.
#pragma once

#include "records/VoteRecords.h"

class VoteTopicEntry;

// One of the conference's participants.
struct VoteUser {
  JW_ID id;
  JW_WChar name[260];
};

// Stays the host's; the module copies what it needs at once.
struct VoteUserList {
  const VoteUser* users;
  int count;
};

// The argument of ShowStatusText: a text, or the bare number of a string of the resource module. The type is never
// defined, so that nobody reads through it without having asked which of the two it is.
class VoteStatusText;

inline bool VoteStatusIsId(const VoteStatusText* text) {
  return (reinterpret_cast<uintptr_t>(text) >> 16) == 0;
}
inline u32 VoteStatusId(const VoteStatusText* text) {
  return static_cast<u32>(reinterpret_cast<uintptr_t>(text));
}
inline const JW_WChar* VoteStatusWords(const VoteStatusText* text) {
  return reinterpret_cast<const JW_WChar*>(text);
}

class IZQVoteSink {
 public:
  // Left to the host; the module never calls slots 0, 10, 11 and 23.
  virtual void Reserved0() {}
  // A composed or imported vote. An accepted one comes back through OnVoteCreated.
  virtual int CreateVote(const VoteTopicRecord* topic) = 0;
  virtual void ModifyVote(const VoteTopicRecord* topic) = 0;
  // The module knows a vote but not its questions. The reply is OnItemsAdded or OnVoteContent.
  virtual void RequestVoteContent(int topicId) = 0;
  virtual int AddItems(int topicId, const VoteItemList* items, const VoteOptionList* options) = 0;
  virtual void ModifyItems(int topicId, const VoteItemList* items, const VoteOptionList* options) = 0;
  virtual void RemoveItems(int topicId, const VoteIdArray* itemIds) = 0;
  // The local user's answers, one call for each question that has answers. Each is acknowledged by OnItemsRemaining.
  virtual void SubmitAnswers(int topicId, const VoteAnswerList* answers) = 0;
  // Mode 0 stop, 1 start and keep earlier answers, 2 start and throw them away.
  virtual void SetVoteState(int topicId, int mode) = 0;
  virtual void SetItemsOpen(int topicId, const VoteIdArray* itemIds, bool open) = 0;
  virtual void Reserved10() {}
  virtual void Reserved11() {}
  virtual int PublishResult(int topicId) = 0;
  virtual void DeleteVote(int topicId) = 0;
  // The answers collected so far. The reply is OnPendingAnswers, or none.
  virtual void RequestResult(int topicId) = 0;
  // The manager fetches the results for himself. The reply is OnResultReceived.
  virtual void FetchResult(int topicId) = 0;
  // Writes the participant's display name, terminated; `buffer` is zeroed and holds `capacity` units.
  virtual void GetUserName(const JW_ID* user, JW_WChar* buffer, int capacity) = 0;
  virtual const VoteUserList* GetUserList() = 0;
  virtual void ShowStatusText(const VoteStatusText* text) = 0;
  virtual void SetItemOrder(int topicId, const VoteIdArray* itemIds) = 0;
  // The host lets the user pick the voters (kind 1) or the viewers of the results (kind 0). `topic` is the module's
  // own, to be read; it starts with a VoteTopicRecord, and is null for an unknown vote.
  virtual void ChooseParticipants(int kind, VoteTopicEntry* topic) = 0;
  virtual void ResetVote(int topicId) = 0;
  // Asked before each command, with the local user's id. False blocks the command silently.
  virtual bool IsUserOnline(const JW_ID* user) = 0;
  virtual void Reserved23() {}
  // A dialog of the module tells its window at its start.
  virtual void RegisterDialogWindow(JW_HWND dialog) = 0;

 protected:
  ~IZQVoteSink() = default;
};
