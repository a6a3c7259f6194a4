#include "host/VoteCount.h"

#include <set>
#include <utility>

namespace conference {

VoteCount CountOf(const VoteTopicEntry& topic) {
  VoteCount count;
  for (const auto& item : topic.m_Items) {
    const VoteTally& tally = item.value->m_Tally;
    if (tally.m_nAnswers == 0) continue;
    QuestionCount& question = count[item.key];
    question.answers = tally.m_nAnswers;
    question.voters = tally.m_Voters.GetCount();
    for (const auto& option : tally.m_OptionCount) question.options[option.key] = option.value;
  }
  return count;
}

VoteCount CountOf(const VoteAnswerList& answers) {
  VoteCount count;
  std::set<std::pair<u32, std::pair<u32, u32>>> seen;
  for (const VoteAnswerRecord& answer : answers) {
    QuestionCount& question = count[answer.ItemID];
    ++question.answers;
    ++question.options[answer.OptionID];
    question.voters += seen.insert({answer.ItemID, {answer.VoterID.dwHigh, answer.VoterID.dwLow}}).second;
  }
  return count;
}

}  // namespace conference
