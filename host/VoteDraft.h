// A vote as it comes from a file, before any conference knows it.
#pragma once

#include <filesystem>
#include <string>

#include "records/VoteRecords.h"

namespace conference {

struct VoteDraft {
  VoteTopicRecord topic;
  VoteItemList items;
  VoteOptionList options;
};

// Reads `path`. The result is empty if that went well, else a sentence that tells the user why not.
std::string LoadDraft(const std::filesystem::path& path, VoteDraft& draft);

}  // namespace conference
