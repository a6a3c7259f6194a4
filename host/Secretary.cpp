#include "host/Secretary.h"

#include "files/VoteFile.h"

namespace conference {

bool Secretary::Click(VoteCommand command, int topicId, u32 itemId, u32 optionId) {
  const VoteDataHold data;
  VoteUiCommand click = {};
  click.Command = command;
  click.TopicID = static_cast<u32>(topicId);
  click.ItemID = itemId;
  click.OptionID = optionId;
  return data && data->OnUiCommand(click);
}

void Secretary::Select(int topicId, u32 itemId, const std::vector<u32>& options) {
  for (const u32 optionId : options) Click(kCmdPickOption, topicId, itemId, optionId);
}

VoteCount Secretary::Count(int topicId) const {
  const VoteDataHold data;
  const VoteTopicEntry* const topic = data ? data->FindTopic(topicId) : nullptr;
  return topic ? CountOf(*topic) : VoteCount();
}

bool Secretary::SaveVote(int topicId, const JW_String& path) const {
  const VoteDataHold data;
  VoteTopicRecord topic;
  VoteItemList items;
  VoteOptionList options;
  return data && data->CopyTopic(topicId, &topic, &items, &options) && SaveVoteFile(topic, items, options, path);
}

bool Secretary::WriteReport(int topicId, const JW_String& path) const {
  const VoteDataHold data;
  return data && data->WriteHtmlReport(path, static_cast<u32>(topicId));
}

}  // namespace conference
