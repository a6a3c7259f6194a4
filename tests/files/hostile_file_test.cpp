// Vote files from strangers: whatever they hold, loading ends soon, with false or with what could be read.
#include <gmock/gmock.h>

#include <chrono>
#include <random>

#include "tests/files/vote_file_support.h"

namespace vote_files {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kMostRows = 20000;
#if defined(_WIN32)
constexpr int kRounds = 300;  // files are slow in the emulator
#else
constexpr int kRounds = 3000;
#endif

class HostileFileTest : public VoteFileTest {
 protected:
  // Loads `bytes` as a file.
  bool Load(const std::string& bytes, Vote& vote) {
    WriteBytes(In("hostile.vot"), bytes);
    const auto start = std::chrono::steady_clock::now();
    const bool loaded = vote.Load(In("hostile.vot"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_LE(vote.items.GetCount(), kMostRows);
    EXPECT_LE(vote.options.GetCount(), kMostRows);
    return loaded;
  }
  // A database made by a stranger's statements.
  std::string Made(const std::string& sql) {
    fs::remove(In("made.db"));
    Run(In("made.db"), sql);
    return Bytes(In("made.db"));
  }
  std::string SavedVote() {
    Vote vote;
    vote.topic.SetTopicName("topic");
    for (u32 i = 0; i < 30; ++i) {
      vote.Item(i, "a question of some length", 1, 2);
      for (int k = 0; k < 4; ++k) vote.Option(i, "an option of some length");
    }
    EXPECT_TRUE(vote.Save(In("saved.vot")));
    return Bytes(In("saved.vot"));
  }
};

TEST_F(HostileFileTest, WhatIsNoVoteIsRefused) {
  std::string otherVersion = Made(kTopicTable);
  otherVersion[18] = otherVersion[19] = 9;
  std::string otherMode = Made(kTopicTable);
  otherMode[18] = otherMode[19] = 2;  // a write-ahead log, which would leave two more files
  for (const std::string& bytes :
       {std::string(), std::string("no database"), std::string(100000, 'x'), std::string("SQLite format 3\0", 16),
        std::string("SQLite format 3\0junk junk", 25), Made("create table Other(a)"), otherVersion, otherMode}) {
    Vote vote;
    EXPECT_FALSE(Load(bytes, vote));
    EXPECT_EQ(vote.topic.m_nMask, 0u);
    EXPECT_THAT(vote.Lines(), IsEmpty());
    EXPECT_TRUE(vote.Save(In("next.vot"))) << "what was refused stands in nobody's way";
  }
}

TEST_F(HostileFileTest, EveryTruncationEnds) {
  const std::string whole = SavedVote();
  int loaded = 0;
  for (size_t size = 0; size < whole.size(); size += size < 2048 ? 37 : 251) {
    Vote vote;
    loaded += Load(whole.substr(0, size), vote);
  }
  Vote vote;
  EXPECT_TRUE(Load(whole, vote));
  EXPECT_EQ(vote.options.GetCount(), 120);
  EXPECT_GT(loaded, 0) << "a vote whose end is missing is read as far as it goes";
}

TEST_F(HostileFileTest, FlippedBytesEnd) {
  const std::string whole = SavedVote();
  std::mt19937 random(51);
  int loaded = 0;
  for (int round = 0; round < kRounds; ++round) {
    std::string bytes = whole;
    // The headers of file and pages, where a byte counts most, as often as anything else.
    for (size_t flips = 1 + random() % 6; flips > 0; --flips) {
      const size_t at =
          random() % 2 ? random() % bytes.size() : random() % (bytes.size() / 4096) * 4096 + random() % 128;
      bytes[at] = static_cast<char>(random());
    }
    Vote vote;
    loaded += Load(bytes, vote);
  }
  EXPECT_GT(loaded, kRounds / 10);
}

// Nothing of the file is run, and what isn't a table of this kind reads as nothing.
TEST_F(HostileFileTest, OtherThingsInPlaceOfTables) {
  const std::string topic = std::string(kTopicTable) + "insert into VoteTopic values(1, 't', 'd', 1, 60, 1, 1);";
  const std::string rest = std::string(kOldItemTable) + kOptionTable;
  struct Case {
    const char* what;
    std::string sql;
    bool loaded;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {"view of topics", "create view VoteTopic as select 1, 'x', 'y', 1, 1, 1, 1;" + rest, false, {}},
      {"endless view of questions",
       topic +
           "create view VoteItem as with recursive n(i) as (select 1 union all select i + 1 from n) "
           "select i, 'x', 'y', 0, 1, 0 from n;" +
           kOptionTable,
       true,
       {}},
      {"virtual table",
       topic + kOptionTable +
           "pragma writable_schema = on; insert into sqlite_master values('table', 'VoteItem', "
           "'VoteItem', 0, 'CREATE VIRTUAL TABLE VoteItem USING json_each(x)');",
       true,
       {}},
      {"triggers",
       topic + rest + "create trigger t after insert on VoteTopic begin delete from VoteItem; end;",
       true,
       {}},
      {"no other tables", topic, true, {}},
      {"few columns",
       topic + "create table VoteItem(a); create table VoteOption(a); insert into VoteItem values(7); "
               "insert into VoteOption values(8);",
       true,
       {"0/7 type 0 limit 0 [][]", "option 8 of 0 []"}},
      {"other types",
       topic + "create table VoteItem(a, b, c, d, e, f, g); create table VoteOption(a, b, c); "
               "insert into VoteItem values(null, null, null, null, null, null, null), "
               "('5x', x'414200', 1.5, -1, 9223372036854775807, 4294967297, 'extra'); "
               "insert into VoteOption values(-2, 3, 'no number'), (1e99, x'', x'31');",
       true,
       {"0/0 type 0 limit 0 [][]", "1/5 type 4294967295 limit 1 [AB][1.5]", "option 4294967294 of 0 [3]",
        "option 4294967295 of 1 []"}},
      {"without row numbers",
       topic + "create table VoteItem(a primary key, b, c, d, e, f) without rowid; insert into VoteItem values(2, "
               "'two', '', 0, 1, 0), (1, 'one', '', 0, 1, 0);",
       true,
       {"0/1 type 0 limit 0 [one][]", "1/2 type 0 limit 0 [two][]"}},
      {"16-bit texts",
       "pragma encoding = 'UTF-16be';" + topic +
           "create table VoteOption(a, b, c); insert into VoteOption values(1, ' wide', 2)",
       true,
       {"option 1 of 2 [wide]"}},
      {"big texts",
       topic + "create table VoteOption(a, b, c); insert into VoteOption values(1, hex(zeroblob(2000000)), 2), "
               "(3, replace(hex(zeroblob(1000000)), '0', ' ') || 'behind blanks', 4)",
       true,
       {"option 1 of 2 []", "option 3 of 4 [behind blanks]"}},
  };
  for (const Case& test : cases) {
    Vote vote;
    EXPECT_EQ(Load(Made(test.sql), vote), test.loaded) << test.what;
    EXPECT_EQ(vote.Lines(), test.lines) << test.what;
    EXPECT_EQ(vote.topic.TopicID, test.loaded ? 1u : 0u) << test.what;
  }
}

// A column that computes its value could compute for years.
TEST_F(HostileFileTest, GeneratedColumnsAreRefused) {
  const std::string computed = "b as ('aaaaaaaaaaaaaaaaaaaaaaaa' glob '*a*a*a*a*a*a*a*a*b')";
  std::string plain = "b int";
  plain.resize(computed.size(), ' ');
  std::string bytes = Made("create table VoteTopic(a, " + plain + "); insert into VoteTopic values(1, 2)");
  const size_t at = bytes.find(plain);
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, computed.size(), computed);
  Vote vote;
  EXPECT_FALSE(Load(bytes, vote));
}

constexpr size_t kPage = 4096;

void PutNumber(std::string& page, size_t at, u32 value, int size) {
  for (int i = 0; i < size; ++i) page[at + static_cast<size_t>(i)] = static_cast<char>(value >> 8 * (size - 1 - i));
}

// An interior page of a table whose children are all the same page.
std::string Repeater(u32 child, size_t children, size_t header) {
  std::string page(kPage, '\0');
  size_t content = kPage;
  page[header] = 5;
  for (size_t i = 0; i + 1 < children; ++i) {
    content -= 5;
    PutNumber(page, content, child, 4);
    page[content + 4] = 1;
    PutNumber(page, header + 12 + 2 * i, static_cast<u32>(content), 2);
  }
  PutNumber(page, header + 3, static_cast<u32>(children - 1), 2);
  PutNumber(page, header + 5, static_cast<u32>(content), 2);
  PutNumber(page, header + 8, child, 4);
  return page;
}

// Makes the table with its one page at `root` appear to hold each of its rows 500 ** 4 times.
void Multiply(std::string& bytes, u32 root) {
  const size_t at = (root - 1) * kPage;
  const size_t header = root == 1 ? 100 : 0;
  std::string leaf = bytes.substr(at, kPage);
  if (header != 0) {
    const size_t cells = static_cast<size_t>(static_cast<u8>(leaf[103]) << 8 | static_cast<u8>(leaf[104]));
    const std::string moved = leaf.substr(100, 8 + 2 * cells);
    leaf.replace(0, moved.size(), moved);
  }
  bytes += leaf;
  u32 page = static_cast<u32>(bytes.size() / kPage);
  for (int level = 0; level < 4; ++level) bytes += Repeater(page++, 500, 0);
  const std::string top = Repeater(page, 2, header);
  bytes.replace(at + header, kPage - header, top, header, kPage - header);
  PutNumber(bytes, 28, page, 4);
}

TEST_F(HostileFileTest, PagesThatRepeatThemselvesEnd) {
  const std::string sql = std::string(kTopicTable) +
                          "insert into VoteTopic values(1, 't', 'd', 1, 60, 1, 1); create table VoteItem(a, b, c, d, "
                          "e, f); insert into VoteItem values(7, 'x', 'y', 0, 1, 0); create table VoteOption(a, b, c);"
                          "insert into VoteOption values(8, ";
  const auto rootOf = [&](const char* table) {
    const std::string query = std::string("select rootpage from sqlite_master where name = '") + table + "'";
    return static_cast<u32>(std::stoul(Rows(In("made.db"), query.c_str()).at(0)));
  };
  std::string bytes = Made(sql + "'z', 9)");
  std::string schema = bytes;
  Multiply(bytes, rootOf("VoteItem"));
  Vote items;
  EXPECT_TRUE(Load(bytes, items));
  EXPECT_EQ(items.items.GetCount(), kMostRows);
  EXPECT_EQ(items.options.GetCount(), 1);

  Multiply(schema, 1);
  Vote nothing;
  EXPECT_FALSE(Load(schema, nothing));

  // The same with rows of a megabyte each.
  bytes = Made(sql + "hex(zeroblob(500000)), 9)");
  Multiply(bytes, rootOf("VoteOption"));
  Vote options;
  EXPECT_TRUE(Load(bytes, options));
  EXPECT_GT(options.options.GetCount(), 10);
}

}  // namespace
}  // namespace vote_files
