// A vote at its limits into a vote file and out of it, beside the same statements one by one, and a plain reading of
// the three tables, through SQLite's own interface.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench/vote_samples.h"
#include "files/VoteFile.h"

namespace {

constexpr u32 kQuestions = 200;
constexpr u32 kOptions = 16;
constexpr char16_t kPath[] = u"/tmp/zqvote-bench.vot";
constexpr char kNarrowPath[] = "/tmp/zqvote-bench.vot";
constexpr char kPeerPath[] = "/tmp/zqvote-bench-peer.db";

struct Vote {
  Vote() : topic(vote_samples::Topic(1, false)) { vote_samples::Questions(1, kQuestions, kOptions, items, options); }
  VoteTopicRecord topic;
  VoteItemList items;
  VoteOptionList options;
};

void SaveByModule(benchmark::State& state) {
  const Vote vote;
  for (auto _ : state) {
    if (!SaveVoteFile(vote.topic, vote.items, vote.options, kPath)) state.SkipWithError("not saved");
  }
}
BENCHMARK(SaveByModule)->Name("file/save/zqvote")->Unit(benchmark::kMicrosecond);

void Must(sqlite3* db, const std::string& sql) {
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
}

void SaveByStatements(benchmark::State& state) {
  const Vote vote;
  std::vector<std::string> statements = {
      "BEGIN",
      "CREATE TABLE VoteTopic(TopicID int primary key not null, TopicName char(256) not null, TopicDesc char(1024), "
      "IsSignVote int, TimeLong int, IsAllVote int, IsAllView int)",
      "CREATE TABLE VoteItem(ItemID int primary key not null, ItemName char(256) not null, ItemDesc char(1024), "
      "ItemType int not null, TopicID int not null)",
      "ALTER TABLE VoteItem ADD COLUMN MultiSelLim int",
      "CREATE TABLE VoteOption(OptionID int primary key not null, OptionDesc char(1024) not null, ItemID int not null)",
      "insert into VoteTopic values(1, '" + std::string(vote.topic.TopicName) + "', '', 0, 0, 1, 1)"};
  int number = 0;
  for (const VoteItemRecord& item : vote.items) {
    statements.push_back("insert into VoteItem(ItemID, ItemName, ItemDesc, ItemType, TopicID, MultiSelLim)values( " +
                         std::to_string(number++) + ",' " + std::string(item.ItemName) + " ','  ', 1 , 1,16)");
  }
  number = 0;
  for (const VoteOptionRecord& option : vote.options) {
    statements.push_back("insert into VoteOption(OptionID, OptionDesc, ItemID)values( " + std::to_string(number) +
                         " ,' " + std::string(option.OptionDesc) + " ', " + std::to_string(number / 16) + ")");
    ++number;
  }
  statements.push_back("COMMIT");
  for (auto _ : state) {
    remove(kPeerPath);
    sqlite3* db = nullptr;
    if (sqlite3_open(kPeerPath, &db) != SQLITE_OK) std::abort();
    for (const std::string& sql : statements) Must(db, sql);
    sqlite3_close(db);
  }
}
BENCHMARK(SaveByStatements)->Name("file/save/statements")->Unit(benchmark::kMicrosecond);

void LoadByModule(benchmark::State& state) {
  const Vote vote;
  SaveVoteFile(vote.topic, vote.items, vote.options, kPath);
  for (auto _ : state) {
    VoteTopicRecord topic;
    VoteItemList items;
    VoteOptionList options;
    if (!LoadVoteFile(topic, items, options, kPath) || options.GetCount() != kQuestions * kOptions) {
      state.SkipWithError("not loaded");
    }
  }
}
BENCHMARK(LoadByModule)->Name("file/load/zqvote")->Unit(benchmark::kMicrosecond);

void LoadBySelect(benchmark::State& state) {
  const Vote vote;
  SaveVoteFile(vote.topic, vote.items, vote.options, kPath);
  for (auto _ : state) {
    sqlite3* db = nullptr;
    if (sqlite3_open(kNarrowPath, &db) != SQLITE_OK) std::abort();
    for (const char* sql : {"select * from VoteTopic", "select * from VoteItem", "select * from VoteOption"}) {
      sqlite3_stmt* statement = nullptr;
      sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
      while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
          benchmark::DoNotOptimize(sqlite3_column_text(statement, i));
        }
      }
      sqlite3_finalize(statement);
    }
    sqlite3_close(db);
  }
}
BENCHMARK(LoadBySelect)->Name("file/load/select")->Unit(benchmark::kMicrosecond);

}  // namespace
