// Any bytes as a vote file: loaded, and where that worked, saved and loaded again.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "files/VoteFile.h"
#include "fuzz/fuzz_input.h"
#include "platform/posix/SystemFolderChoice.h"

namespace {

// In memory where the system has such a place: a file is written three times for each input.
const std::filesystem::path& Folder() {
  static const std::filesystem::path folder = [] {
    const std::filesystem::path memory = "/dev/shm";
    std::filesystem::path path = access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    path /= "zqvote-fuzz-" + std::to_string(getpid());
    std::filesystem::create_directories(path / "Temp");
    platform::ChooseSystemFolder((path / "system").c_str());
    atexit([] { std::filesystem::remove_all(Folder()); });
    return path;
  }();
  return folder;
}

struct Vote {
  VoteTopicRecord topic;
  VoteItemList items;
  VoteOptionList options;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, size_t size) {
  static const std::filesystem::path source = Folder() / "source.vot";
  static const std::filesystem::path target = Folder() / "target.vot";
  std::ofstream(source, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  Vote vote;
  if (!LoadVoteFile(vote.topic, vote.items, vote.options, source.u16string().c_str())) return 0;
  if (vote.items.GetCount() * vote.options.GetCount() > 10000) return 0;

  const std::u16string path = target.u16string();
  Require(SaveVoteFile(vote.topic, vote.items, vote.options, path.c_str()));
  Vote again;
  Require(LoadVoteFile(again.topic, again.items, again.options, path.c_str()));
  Require(again.topic.TimeLong == vote.topic.TimeLong && again.topic.IsSignVote == vote.topic.IsSignVote);
  Require(again.topic.TopicName == vote.topic.TopicName && again.topic.TopicDesc == vote.topic.TopicDesc);
  Require(again.items.GetCount() == vote.items.GetCount());
  return 0;
}
