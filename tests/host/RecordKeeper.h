// A vote module that keeps nothing but what a participant can be asked for: which vote is shown and who manages it.
#pragma once

#include "host/VoteInstance.h"

class RecordKeeper : public conference::VoteInstance, public IZQVote {
 public:
  IZQVote& Vote() override { return *this; }

  JW_HWND CreateVoteWindow(JW_HWND) override { return nullptr; }
  void DestroyVoteWindow() override {}
  JW_HWND GetVoteWindow() override { return nullptr; }
  void SetVoteSink(IZQVoteSink* sink) override { m_pSink = sink; }
  IZQVoteSink* GetVoteSink() override { return m_pSink; }
  void SetLocalUser(const JW_ID*) override {}
  bool GetCurrentVote(int* topicId, JW_ID* manager) override {
    *topicId = static_cast<int>(m_Shown.TopicID);
    *manager = m_Shown.ManagerID;
    return m_Shown.TopicID != 0;
  }
  void SetResourceModule(JW_HMODULE) override {}
  void OnVoteList(const VoteTopicList* topics) override {
    for (const VoteTopicRecord& topic : *topics) m_Shown = topic;
  }
  void OnVoteCreated(const VoteTopicRecord* topic) override {
    m_Shown = *topic;
    m_pSink->RequestVoteContent(static_cast<int>(topic->TopicID));
  }
  void OnVoteModified(const VoteTopicRecord* topic) override { m_Shown = *topic; }
  void OnItemsAdded(const VoteItemList*, const VoteOptionList*) override {}
  void OnItemsModified(const VoteItemList*, const VoteOptionList*) override {}
  void OnItemsRemoved(const VoteIdArray*) override {}
  void OnItemsRemaining(int, const VoteIdArray*) override {}
  void OnVoteStateChanged(int, int) override {}
  void OnItemsOpened(const VoteIdArray*, int) override {}
  void OnVoteContent(u32, const VoteItemList*, const VoteOptionList*) override {}
  void OnVoteReset(int) override {}
  void OnResultPublished(int, const VoteAnswerList*) override {}
  void OnVoteRemoved(int) override {}
  void OnPendingAnswers(int, const VoteAnswerList*) override {}
  void OnResultReceived(int, const VoteAnswerList*) override {}
  void OnItemOrderChanged(int, const VoteIdArray*) override {}
  void OnVoteManagerChanged(int, const JW_ID* manager) override { m_Shown.ManagerID = *manager; }
  void SetOperateRight(unsigned) override {}
  bool OnUserChanged(const JW_ID*, u32) override { return false; }
  void ReloadResults(u32) override { m_pSink->RequestResult(static_cast<int>(m_Shown.TopicID)); }
  void RefreshVotePanel(u32) override {}
  void RefreshVotePanel2(u32) override {}

 protected:
  IZQVoteSink* m_pSink = nullptr;
  VoteTopicRecord m_Shown;
};
