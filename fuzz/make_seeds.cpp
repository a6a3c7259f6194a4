// Writes the first inputs of the targets: make_seeds FOLDER makes FOLDER/TARGET/NAME.
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "files/VoteFile.h"
#include "fuzz/memory_stream.h"
#include "platform/posix/SystemFolderChoice.h"

namespace {

namespace fs = std::filesystem;

void WriteSeed(const fs::path& folder, const char* name, const std::string& bytes) {
  fs::create_directories(folder);
  std::ofstream(folder / name, std::ios::binary | std::ios::trunc) << bytes;
}

template <class Record>
void WriteRecord(const fs::path& folder, const char* name, char kind, const Record& record) {
  MemoryStream stream;
  record.Save(stream);
  WriteSeed(folder, name, kind + std::string(stream.bytes.begin(), stream.bytes.end()));
}

VoteTopicRecord Topic() {
  VoteTopicRecord topic;
  topic.SetTopicName("topic");
  topic.SetTopicDesc("what it is about");
  topic.VoterList.Add(JW_ID(1, 20000));
  topic.ViewerList.Add(JW_ID(2, 20001));
  topic.m_nMask = 0x7FFF;
  return topic;
}
VoteItemRecord Item(u32 id) {
  VoteItemRecord item;
  item.ItemID = id;
  item.ItemType = VoteItemRecord::kMultipleChoice;
  item.MultiSelLim = 2;
  item.SetItemName("question");
  item.SetItemDesc("more");
  item.m_nMask = 0x1FF;
  return item;
}
VoteOptionRecord Option(u32 item) {
  VoteOptionRecord option;
  option.ItemID = item;
  option.SetOptionDesc("option");
  option.m_nMask = 0xF;
  return option;
}

void WriteRecords(const fs::path& folder) {
  VoteAnswerRecord answer;
  answer.SetSignName("name");
  answer.m_nMask = VoteAnswerRecord::kAll;
  WriteRecord(folder, "topic", 0, Topic());
  WriteRecord(folder, "item", 1, Item(1));
  WriteRecord(folder, "option", 2, Option(1));
  WriteRecord(folder, "answer", 3, answer);
}

// Small pages bring more of the format into a small input.
void WriteVoteFiles(const fs::path& folder) {
  fs::create_directories(folder / "Temp");
  platform::ChooseSystemFolder((folder / "system").c_str());
  VoteItemList items;
  VoteOptionList options;
  const fs::path path = folder / "seed.vot";
  for (u32 i = 0; i < 9; ++i) {
    SaveVoteFile(Topic(), items, options, path.u16string().c_str());
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    sqlite3_exec(db, "pragma page_size = 512; vacuum", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    fs::rename(path, folder / ("vote" + std::to_string(i)));
    items.AddTail(Item(i));
    options.AddTail(Option(i));
    options.AddTail(Option(i));
  }
  fs::remove_all(folder / "Temp");
}

// A vote with questions that is started, answered and fetched, at several numbers of random tails.
void WriteEvents(const fs::path& folder) {
  std::string events("\0\0\1\0\3\0\0\0\0\0\0\4seed", 16);
  events += std::string("\3\2\0\0\0\0\1\2\1\1\0\1\1\2\4\0\0\1\0\0\1\1\1", 23);
  u32 state = 1;
  for (u32 i = 0; i < 24; ++i) {
    std::string tail;
    for (u32 k = 0; k < 40 * i; ++k) tail += static_cast<char>((state = state * 1103515245 + 12345) >> 16);
    WriteSeed(folder, ("events" + std::to_string(i)).c_str(), events + tail);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: make_seeds FOLDER\n");
    return 2;
  }
  const fs::path folder = argv[1];
  WriteRecords(folder / "records_fuzz");
  WriteVoteFiles(folder / "vote_file_fuzz");
  WriteEvents(folder / "events_fuzz");
  WriteSeed(folder / "text_fuzz", "text", "plain \xC3\xA9 \xE6\x8A\x95\xE7\xA5\xA8 \xF0\x9F\x97\xB3 \x80");
  WriteSeed(folder / "format_fuzz", "format", std::string("\0\0\4text\2\1\1\12\1\5\7\0\0\0", 17));
  return 0;
}
