// The interface face of VoteMainWnd: IZQVote, without a window.
//
// Most slots hand their records to one operation of VoteData. What a slot needs of the window (creating it, the state
// of its buttons, the layout of the information panel) it asks of the operations at the end, which the window
// overrides.
#pragma once

#include "module/IZQVote.h"
#include "votedata/VoteData.h"

class VoteInterface : public IZQVote, public VoteListener {
 public:
  // The two tables share some names; their arguments tell them apart.
  using VoteListener::OnItemOrderChanged;
  using VoteListener::OnUserChanged;
  using VoteListener::OnVoteStateChanged;

  VoteInterface(const VoteInterface&) = delete;
  VoteInterface& operator=(const VoteInterface&) = delete;

  JW_HWND CreateVoteWindow(JW_HWND parent) override;
  void DestroyVoteWindow() override;
  JW_HWND GetVoteWindow() override;
  void SetVoteSink(IZQVoteSink* sink) override;
  IZQVoteSink* GetVoteSink() override;
  void SetLocalUser(const JW_ID* user) override;
  bool GetCurrentVote(int* topicId, JW_ID* manager) override;
  void SetResourceModule(JW_HMODULE module) override;
  void OnVoteList(const VoteTopicList* topics) override;
  void OnVoteCreated(const VoteTopicRecord* topic) override;
  void OnVoteModified(const VoteTopicRecord* topic) override;
  void OnItemsAdded(const VoteItemList* items, const VoteOptionList* options) override;
  void OnItemsModified(const VoteItemList* items, const VoteOptionList* options) override;
  void OnItemsRemoved(const VoteIdArray* itemIds) override;
  void OnItemsRemaining(int topicId, const VoteIdArray* itemIds) override;
  void OnVoteStateChanged(int topicId, int mode) override;
  void OnItemsOpened(const VoteIdArray* itemIds, int open) override;
  void OnVoteContent(u32 unused, const VoteItemList* items, const VoteOptionList* options) override;
  void OnVoteReset(int topicId) override;
  void OnResultPublished(int topicId, const VoteAnswerList* answers) override;
  void OnVoteRemoved(int topicId) override;
  void OnPendingAnswers(int topicId, const VoteAnswerList* answers) override;
  void OnResultReceived(int topicId, const VoteAnswerList* answers) override;
  void OnItemOrderChanged(int topicId, const VoteIdArray* itemIds) override;
  void OnVoteManagerChanged(int topicId, const JW_ID* manager) override;
  void SetOperateRight(unsigned value) override;
  bool OnUserChanged(const JW_ID* user, u32 more) override;
  void ReloadResults(u32 unused) override;
  void RefreshVotePanel(u32 unused) override;
  void RefreshVotePanel2(u32 unused) override;

  // As a listener: each of these refreshes the buttons.
  void OnCurrentVoteChanged(u32 reserved, VoteTopicEntry* topic) override;
  void OnVoteManagerChanged(u32 reserved, int topicId, const JW_ID* manager) override;
  void OnVoteReset(u32 reserved, int topicId) override;
  void OnOperateRightChanged(u32 reserved, u16 value) override;
  void OnVoteDataChanged(u32 reserved, int topicId, int reason) override;

 protected:
  // Registers with VoteData, which comes up with the first instance.
  VoteInterface();
  ~VoteInterface();

  virtual JW_HWND OpenWindow(JW_HWND parent) = 0;
  // Destroys `window` if it is a live window.
  virtual void CloseWindow(JW_HWND window) = 0;
  virtual void RefreshButtons() = 0;
  virtual void LayOutPanel() = 0;

  VoteItemList m_PendingItems;      // questions composed and not yet sent
  VoteOptionList m_PendingOptions;  // their options
  VoteTopicRecord m_Composing;      // the topic under composition
  int m_nLastCreated = 0;           // TopicID of the last created or imported vote
  int m_nLastCommand = -1;          // of the last VoteUiCommand; -1 once its confirmation is done
  JW_ID m_idSelf;

 private:
  void ConfirmParticipants(const VoteTopicRecord& topic);
};
