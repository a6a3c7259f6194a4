// A host that accepts everything and does nothing, to derive from.
#pragma once

#include "module/IZQVoteSink.h"

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

class QuietSink : public IZQVoteSink {
 public:
  int CreateVote(const VoteTopicRecord*) override { return 0; }
  void ModifyVote(const VoteTopicRecord*) override {}
  void RequestVoteContent(int) override {}
  int AddItems(int, const VoteItemList*, const VoteOptionList*) override { return 0; }
  void ModifyItems(int, const VoteItemList*, const VoteOptionList*) override {}
  void RemoveItems(int, const VoteIdArray*) override {}
  void SubmitAnswers(int, const VoteAnswerList*) override {}
  void SetVoteState(int, int) override {}
  void SetItemsOpen(int, const VoteIdArray*, bool) override {}
  int PublishResult(int) override { return 0; }
  void DeleteVote(int) override {}
  void RequestResult(int) override {}
  void FetchResult(int) override {}
  void GetUserName(const JW_ID*, JW_WChar*, int) override {}
  const VoteUserList* GetUserList() override { return nullptr; }
  void ShowStatusText(const VoteStatusText*) override {}
  void SetItemOrder(int, const VoteIdArray*) override {}
  void ChooseParticipants(int, VoteTopicEntry*) override {}
  void ResetVote(int) override {}
  bool IsUserOnline(const JW_ID*) override { return true; }
  void RegisterDialogWindow(JW_HWND) override {}

 protected:
  ~QuietSink() = default;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
