#include "host/ConferenceVote.h"

#include <algorithm>
#include <set>

namespace conference {
namespace {

constexpr u32 kNoOption = VoteAnswerRecord::kNoOption;

}  // namespace

bool Question::HasOption(u32 optionId) const {
  for (const VoteOptionRecord& option : options) {
    if (option.OptionID == optionId) return true;
  }
  return false;
}

Question* ConferenceVote::Find(u32 itemId) {
  const auto found = std::find_if(questions.begin(), questions.end(),
                                  [itemId](const Question& question) { return question.item.ItemID == itemId; });
  return found == questions.end() ? nullptr : &*found;
}

Refusal ConferenceVote::CheckBallot(const JW_ID& voter, const VoteAnswerList& answers) const {
  if (!topic.IsStarted) return "the vote is not running";
  if (!topic.VoterRight(voter)) return "only the chosen voters may vote";
  if (answers.IsEmpty()) return "there is no answer in it";
  const u32 itemId = answers.GetHead()->data.ItemID;
  const Question* const question = Find(itemId);
  if (!question) return "there is no such question";
  if (!question->item.IsOpen) return "the question is closed";
  std::set<u32> chosen;
  for (const VoteAnswerRecord& answer : answers) {
    if (answer.ItemID != itemId) return "the answers are for several questions";
    if (answer.VoterID != voter) return "nobody answers for somebody else";
    if (answer.OptionID != kNoOption && !question->HasOption(answer.OptionID)) return "there is no such option";
    if (!chosen.insert(answer.OptionID).second) return "an option is chosen twice";
  }
  if (chosen.contains(kNoOption)) return chosen.size() == 1 ? kAccepted : "no option and an option are chosen";
  const bool several = question->item.ItemType == VoteItemRecord::kMultipleChoice;
  if (chosen.size() > (several ? question->item.MultiSelLim : 1)) return "too many options are chosen";
  return kAccepted;
}

void ConferenceVote::TakeBallot(const JW_ID& voter, const JW_StringA& name, const VoteAnswerList& answers) {
  Question* const question = Find(answers.GetHead()->data.ItemID);
  Ballot ballot{voter, name, {}};
  for (const VoteAnswerRecord& answer : answers) ballot.options.push_back(answer.OptionID);
  question->ballots[JW_MapKey<JW_ID>::Number(voter)] = ballot;
}

void ConferenceVote::SetState(int mode) {
  topic.IsStarted = mode > 0;
  topic.m_nMask |= VoteTopicRecord::kIsStarted;
  if (mode > 0) isPublished = false;
  for (Question& question : questions) {
    question.item.IsOpen = mode > 0;
    question.item.m_nMask |= VoteItemRecord::kIsOpen;
    if (mode == 2) question.ballots.clear();
  }
}

void ConferenceVote::SetOpen(Question& question, bool open) {
  question.item.IsOpen = open;
  question.item.m_nMask |= VoteItemRecord::kIsOpen;
  if (open) question.ballots.clear();
}

bool ConferenceVote::SetOrder(const VoteIdArray& ids) {
  if (static_cast<size_t>(ids.GetSize()) != questions.size()) return false;
  std::vector<Question> ordered;
  std::set<u32> seen;
  for (const u32 id : ids) {
    const Question* const question = Find(id);
    if (!question || !seen.insert(id).second) return false;
    ordered.push_back(*question);
  }
  questions.swap(ordered);
  Renumber();
  return true;
}

void ConferenceVote::Renumber() {
  u32 number = 0;
  for (Question& question : questions) {
    question.item.ItemNo = number++;
    question.item.m_nMask |= VoteItemRecord::kItemNo;
  }
}

void ConferenceVote::AppendContent(VoteItemList& items, VoteOptionList& options) const {
  for (const Question& question : questions) {
    items.AddTail(question.item);
    for (const VoteOptionRecord& option : question.options) options.AddTail(option);
  }
}

void ConferenceVote::AppendAnswers(VoteAnswerList& answers) const {
  for (const Question& question : questions) {
    for (const auto& [key, ballot] : question.ballots) {
      for (const u32 optionId : ballot.options) {
        VoteAnswerRecord answer;
        answer.TopicID = topic.TopicID;
        answer.ItemID = question.item.ItemID;
        answer.VoterID = ballot.voter;
        answer.OptionID = optionId;
        answer.m_nMask = VoteAnswerRecord::kAll & ~static_cast<u64>(VoteAnswerRecord::kSignName);
        answer.SetSignName(ballot.name);
        answers.AddTail(answer);
      }
    }
  }
}

VoteCount ConferenceVote::Recount() const {
  VoteCount count;
  for (const Question& question : questions) {
    if (question.ballots.empty()) continue;
    QuestionCount& of = count[question.item.ItemID];
    of.voters = static_cast<int>(question.ballots.size());
    for (const auto& [key, ballot] : question.ballots) {
      for (const u32 optionId : ballot.options) {
        ++of.answers;
        ++of.options[optionId];
      }
    }
  }
  return count;
}

}  // namespace conference
