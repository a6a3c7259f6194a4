// What a vote came to, in a form that can be compared whoever has counted.
#pragma once

#include <map>

#include "votedata/VoteEntries.h"

namespace conference {

struct QuestionCount {
  int answers = 0;  // records
  int voters = 0;
  std::map<u32, int> options;  // records for each OptionID, VoteAnswerRecord::kNoOption among them

  friend bool operator==(const QuestionCount&, const QuestionCount&) = default;
};

// By ItemID; a question without answers has no entry.
typedef std::map<u32, QuestionCount> VoteCount;

// As the module has counted.
VoteCount CountOf(const VoteTopicEntry& topic);

// A count of our own, of answers as they are delivered.
VoteCount CountOf(const VoteAnswerList& answers);

}  // namespace conference
