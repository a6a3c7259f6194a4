// Votes to measure with.
#pragma once

#include <cstdint>
#include <string>

#include "module/HeadlessVote.h"
#include "records/VoteRecords.h"

namespace vote_samples {

inline const JW_ID kManager(0, 20001);

inline VoteTopicRecord Topic(u32 topicId, bool signedVote) {
  VoteTopicRecord topic;
  topic.TopicID = topicId;
  topic.SetTopicName("Annual general meeting");
  topic.SetTopicDesc("Resolutions and elections of the annual general meeting");
  topic.IsSignVote = signedVote;
  topic.IsAllVote = topic.IsAllView = true;
  topic.CreatorID = topic.ManagerID = kManager;
  topic.m_nMask = 0x3FFF;
  return topic;
}

// Questions are numbered from topicId * 1000 + 1, options from 0.
inline void Questions(u32 topicId, u32 count, u32 options, VoteItemList& items, VoteOptionList& choices) {
  for (u32 i = 0; i < count; ++i) {
    VoteItemRecord item;
    item.ItemNo = i;
    item.ItemID = topicId * 1000 + i + 1;
    item.TopicID = topicId;
    item.ItemType = VoteItemRecord::kMultipleChoice;
    item.MultiSelLim = options;
    item.SetItemName(("Which of the proposals do you support? (" + std::to_string(i + 1) + ")").c_str());
    item.SetItemDesc("");
    item.m_nMask = 0x1FF;
    items.AddTail(item);
    for (u32 k = 0; k < options; ++k) {
      VoteOptionRecord option;
      option.OptionID = k;
      option.ItemID = item.ItemID;
      option.SetOptionDesc(("The proposal of group " + std::to_string(k + 1) + ", as amended").c_str());
      option.m_nMask = 0xF;
      choices.AddTail(option);
    }
  }
}

inline VoteAnswerRecord Answer(u32 topicId, u32 itemId, u32 voter, u32 optionId) {
  VoteAnswerRecord answer;
  answer.TopicID = topicId;
  answer.ItemID = itemId;
  answer.VoterID = JW_ID(0, 20001 + voter);
  answer.OptionID = optionId;
  answer.SetSignName(("Participant " + std::to_string(voter)).c_str());
  answer.m_nMask = VoteAnswerRecord::kAll;
  return answer;
}

}  // namespace vote_samples
