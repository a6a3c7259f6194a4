// Two votes in the vote data, and the host that they talk to. It grants every request at once, so that the pages of
// the gallery can be used: questions open and close, move and disappear.
#pragma once

#include <functional>
#include <string>

#include "host/gallery/GalleryTexts.h"
#include "module/HeadlessVote.h"
#include "module/IZQVoteSink.h"
#include "platform/windows/Windows.h"

class GalleryVote final : public IZQVoteSink {
 public:
  using Tell = std::function<void(const std::wstring&)>;

  // `window` gets the commands of the pages' buttons, `tell` the messages to the user. The votes have their questions
  // from here on.
  GalleryVote(const GalleryTexts& texts, HWND window, Tell tell);
  virtual ~GalleryVote() = default;

  VoteTopicEntry* VoterTopic() const;
  VoteTopicEntry* ManagerTopic() const;

  // Starts the votes and brings each question into the state that it is shown in. The views have to exist: they learn
  // of results by events only.
  void Play();

  int CreateVote(const VoteTopicRecord* /*topic*/) override { return 0; }
  void ModifyVote(const VoteTopicRecord* /*topic*/) override {}
  void RequestVoteContent(int /*topicId*/) override {}
  int AddItems(int topicId, const VoteItemList* items, const VoteOptionList* options) override;
  void ModifyItems(int /*topicId*/, const VoteItemList* /*items*/, const VoteOptionList* /*options*/) override {}
  void RemoveItems(int topicId, const VoteIdArray* itemIds) override;
  void SubmitAnswers(int /*topicId*/, const VoteAnswerList* /*answers*/) override {}
  void SetVoteState(int topicId, int mode) override;
  void SetItemsOpen(int topicId, const VoteIdArray* itemIds, bool open) override;
  int PublishResult(int /*topicId*/) override { return 0; }
  void DeleteVote(int /*topicId*/) override {}
  void RequestResult(int /*topicId*/) override {}
  void FetchResult(int /*topicId*/) override {}
  void GetUserName(const JW_ID* user, JW_WChar* buffer, int capacity) override;
  const VoteUserList* GetUserList() override { return nullptr; }
  void ShowStatusText(const VoteStatusText* text) override;
  void SetItemOrder(int topicId, const VoteIdArray* itemIds) override;
  void ChooseParticipants(int /*kind*/, VoteTopicEntry* /*topic*/) override {}
  void ResetVote(int /*topicId*/) override {}
  bool IsUserOnline(const JW_ID* /*user*/) override { return true; }
  void RegisterDialogWindow(JW_HWND /*dialog*/) override {}

 private:
  void AddTopics();
  void AddQuestion(u32 topicId, u32 itemId, u32 type, u32 limit, const QuestionTexts& texts);
  void SetOpen(u32 itemId, bool open);

  const GalleryTexts& m_Texts;
  Tell m_Tell;
  HeadlessVote m_Module;
};
