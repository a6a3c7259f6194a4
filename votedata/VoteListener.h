// What the windows of the module, and anybody else, hear of changes in the vote data.
//
// Every operation has an empty default body. `reserved` is always 0 and passed on unchanged. Pointers to entries stay
// valid until the matching removing event has been raised. All on the thread of the main window.
#pragma once

#include "records/VoteRecords.h"

class VoteTopicEntry;
class VoteItemEntry;
class VoteOptionEntry;

// What OnVoteDataChanged tells of.
enum VoteDataReason {
  kVoteDataAnswers = 0,      // new answers or a changed selection
  kVoteDataItemRemoved = 1,  // a question was removed
  kVoteDataStartFailed = 2,  // the user declined the start prompt, or the start failed its check
  kVoteDataAddFailed = 3,    // adding a question failed its check
};

class VoteListener {
 public:
  virtual void OnCurrentVoteChanged(u32 /*reserved*/, VoteTopicEntry* /*topic*/) {}
  virtual void OnVoteAdded(u32 /*reserved*/, VoteTopicEntry* /*topic*/) {}
  virtual void OnVoteChanged(u32 /*reserved*/, VoteTopicEntry* /*topic*/) {}
  virtual void OnVoteRemoving(u32 /*reserved*/, VoteTopicEntry* /*topic*/) {}
  virtual void OnItemAdded(u32 /*reserved*/, int /*topicId*/, VoteItemEntry* /*item*/) {}
  virtual void OnItemRemoving(u32 /*reserved*/, int /*topicId*/, int /*itemId*/) {}
  virtual void OnItemChanged(u32 /*reserved*/, int /*topicId*/, VoteItemEntry* /*item*/, int /*flag*/) {}
  virtual void OnOptionAdded(u32 /*reserved*/, int /*topicId*/, int /*itemId*/, VoteOptionEntry* /*option*/) {}
  // Never raised; the slot stays for the table's sake.
  virtual void OnOptionRemoving(u32 /*reserved*/, int /*topicId*/, int /*itemId*/, int /*optionId*/) {}
  virtual void OnOptionChanged(u32 /*reserved*/, int /*topicId*/, int /*itemId*/, VoteOptionEntry* /*option*/) {}
  virtual void OnItemOrderChanged(u32 /*reserved*/, int /*topicId*/, const VoteIdArray* /*itemIds*/) {}
  virtual void OnVoteStateChanged(u32 /*reserved*/, int /*topicId*/, int /*mode*/) {}
  virtual void OnItemOpenChanged(u32 /*reserved*/, int /*topicId*/, int /*itemId*/, int /*open*/) {}
  virtual void OnVoteManagerChanged(u32 /*reserved*/, int /*topicId*/, const JW_ID* /*manager*/) {}
  virtual void OnVoteReset(u32 /*reserved*/, int /*topicId*/) {}
  virtual void OnOperateRightChanged(u32 /*reserved*/, u16 /*value*/) {}
  // `reason` is a VoteDataReason.
  virtual void OnVoteDataChanged(u32 /*reserved*/, int /*topicId*/, int /*reason*/) {}
  // Results came in (1) or went away (0).
  virtual void OnResultStateChanged(u32 /*reserved*/, int /*topicId*/, int /*shown*/) {}
  virtual void OnItemAnswersCleared(u32 /*reserved*/, int /*topicId*/, int /*itemId*/, int /*zero*/) {}
  virtual void OnUserChanged(u32 /*reserved*/, const JW_ID* /*user*/, u32 /*more*/) {}

 protected:
  VoteListener() = default;
  VoteListener(const VoteListener&) = default;
  VoteListener& operator=(const VoteListener&) = default;
  ~VoteListener() = default;
};
