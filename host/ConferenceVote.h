// One vote as the conference holds it: the records that everybody has been sent, and the ballots that nobody sees
// before they are asked for.
#pragma once

#include <map>
#include <vector>

#include "host/VoteCount.h"
#include "records/VoteRecords.h"

namespace conference {

// Why a request is not carried out, as the end of the sentence "refused: ..."; null for a request that is.
typedef const char* Refusal;
constexpr Refusal kAccepted = nullptr;

// One participant's answer to one question.
struct Ballot {
  JW_ID voter;
  JW_StringA name;           // UTF-8
  std::vector<u32> options;  // VoteAnswerRecord::kNoOption alone where nothing was chosen
};

struct Question {
  VoteItemRecord item;
  VoteOptionList options;
  std::map<u64, Ballot> ballots;  // by voter

  bool HasOption(u32 optionId) const;
};

class ConferenceVote {
 public:
  VoteTopicRecord topic;
  std::vector<Question> questions;  // in display order
  bool isPublished = false;

  Question* Find(u32 itemId);
  const Question* Find(u32 itemId) const { return const_cast<ConferenceVote*>(this)->Find(itemId); }

  // Whether `answers` are one legal ballot of `voter` for one open question.
  Refusal CheckBallot(const JW_ID& voter, const VoteAnswerList& answers) const;
  // Stores a ballot that has passed the check in place of the voter's earlier one.
  void TakeBallot(const JW_ID& voter, const JW_StringA& name, const VoteAnswerList& answers);

  // Starting opens all questions and takes back what was published, stopping closes them; ballots go with mode 2 only.
  void SetState(int mode);
  // A question that is opened starts its count anew.
  void SetOpen(Question& question, bool open);
  // False, with nothing changed, if `ids` are not the vote's questions, each of them once.
  bool SetOrder(const VoteIdArray& ids);
  void Renumber();

  void AppendContent(VoteItemList& items, VoteOptionList& options) const;
  void AppendAnswers(VoteAnswerList& answers) const;
  VoteCount Recount() const;
};

}  // namespace conference
