#include "host/VoteDraft.h"

#include <cstring>
#include <fstream>

#include "files/VoteFile.h"
#include "host/Text.h"
#include "resources/ResourceIds.h"

namespace conference {
namespace {

// The first bytes of every SQLite file. Without them the file isn't handed on: where a file can't be copied, loading
// shows the vote that was worked on last.
constexpr char kSignature[16] = "SQLite format 3";

enum class FileState { kMissing, kUnreadable, kForeign, kVote };

FileState Look(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return FileState::kMissing;
  if (std::filesystem::is_directory(path, error)) return FileState::kUnreadable;
  std::ifstream file(path, std::ios::binary);
  if (!file) return FileState::kUnreadable;
  char head[sizeof(kSignature)] = {};
  file.read(head, sizeof(head));
  return memcmp(head, kSignature, sizeof(head)) == 0 ? FileState::kVote : FileState::kForeign;
}

}  // namespace

std::string LoadDraft(const std::filesystem::path& path, VoteDraft& draft) {
  switch (Look(path)) {
    case FileState::kMissing:
      return "There is no such file.";
    case FileState::kUnreadable:
      return "The file cannot be opened for reading.";
    case FileState::kForeign:
      return Printable(ResourceText(IDS_ERROR_LOAD_FILE));
    case FileState::kVote:
      break;
  }
#if defined(_WIN32)
  const JW_String name(path.c_str());
#else
  const JW_String name(path.u16string().c_str());
#endif
  if (!LoadVoteFile(draft.topic, draft.items, draft.options, name)) return Printable(ResourceText(IDS_ERROR_LOAD_FILE));
  if (!draft.items.IsEmpty()) return {};
  // A damaged file gives neither a title nor questions; one without questions alone was saved that way.
  return Printable(ResourceText(draft.topic.TopicName.IsEmpty() ? IDS_ERROR_LOAD_FILE : IDS_ERROR_NO_ITEMS));
}

}  // namespace conference
