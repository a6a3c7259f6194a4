// Saving and loading vote files.
#include <gmock/gmock.h>

#include <cstdlib>
#include <random>

#include "tests/files/vote_file_support.h"

#if !defined(_WIN32)
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "platform/posix/CodePageChoice.h"
#endif

namespace vote_files {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Str(const JW_StringA& text) {
  return {text.GetString(), static_cast<size_t>(text.GetLength())};
}

Vote Ballot() {
  Vote vote;
  vote.topic.TopicID = 4711;
  vote.topic.SetTopicName("Board");
  vote.topic.SetTopicDesc("it's time");
  vote.topic.TimeLong = 600;
  vote.topic.IsSignVote = true;
  vote.Item(5, "Who's first?", 0, 0, "d").Item(9, "Which?", 1, 2);
  vote.Option(9, "x", 3).Option(5, "Ann", 3).Option(5, "O'Neill", 4).Option(8, "nobody's").Option(9, "y", 4);
  return vote;
}

TEST_F(VoteFileTest, WritesTheFormatToTheLetter) {
  Vote vote = Ballot();
  vote.topic.TimeLong = 0xFFFFFFFF;
  ASSERT_TRUE(vote.Save(In("a.vot")));
  std::string itemTable = kOldItemTable;
  itemTable.replace(itemTable.rfind(')'), 2, ", MultiSelLim int)");
  std::string optionTable = kOptionTable;
  std::string topicTable = kTopicTable;
  optionTable.pop_back();
  topicTable.pop_back();
  EXPECT_THAT(Rows(In("a.vot"), "select sql from sqlite_master where type = 'table' order by rowid"),
              ElementsAre(topicTable, itemTable, optionTable));
  EXPECT_THAT(Rows(In("a.vot"), "select * from VoteTopic"), ElementsAre("1| Board|it's time|1|-1|1|1"));
  EXPECT_THAT(Rows(In("a.vot"), "select * from VoteItem"),
              ElementsAre("0| Who's first? | d |0|1|0", "1| Which? |  |1|1|2"));
  EXPECT_THAT(Rows(In("a.vot"), "select * from VoteOption"),
              ElementsAre("0| Ann |0", "1| O'Neill |0", "2| x |1", "3| y |1"));
}

TEST_F(VoteFileTest, ComesBackRenumberedAndOpenToAll) {
  ASSERT_TRUE(Ballot().Save(In("a.vot")));
  Vote vote;
  vote.Item(1, "was here").Option(1, "was here");
  vote.topic.TopicFlags = 5;
  vote.topic.CreatorID = JW_ID(1, 2);
  ASSERT_TRUE(vote.Load(In("a.vot")));
  EXPECT_EQ(vote.topic.TopicID, 1u);
  EXPECT_EQ(Str(vote.topic.TopicName), "Board");
  EXPECT_EQ(Str(vote.topic.TopicDesc), "it's time");
  EXPECT_EQ(vote.topic.TimeLong, 600u);
  EXPECT_TRUE(vote.topic.IsSignVote && vote.topic.IsAllVote && vote.topic.IsAllView);
  EXPECT_EQ(vote.topic.TopicFlags, 5u) << "no column fills it";
  EXPECT_EQ(vote.topic.CreatorID, JW_ID(1, 2));
  EXPECT_EQ(vote.topic.m_nMask, 0x51Fu);
  EXPECT_THAT(vote.Lines(),
              ElementsAre("0/1 type 0 limit 0 [was here][]", "0/0 type 0 limit 0 [Who's first? ][d ]",
                          "1/1 type 1 limit 2 [Which? ][]", "option 77 of 1 [was here]", "option 0 of 0 [Ann ]",
                          "option 1 of 0 [O'Neill ]", "option 2 of 1 [x ]", "option 3 of 1 [y ]"));
  const VoteItemRecord& item = vote.items.GetTail()->data;
  EXPECT_EQ(item.m_nMask, 0x1FFu);
  EXPECT_EQ(item.TopicID, 1u);
  EXPECT_EQ(vote.options.GetTail()->data.m_nMask, 0xFu);
}

TEST_F(VoteFileTest, GrowsABlankBehindTextsEachTime) {
  Vote vote = Ballot();
  for (size_t round = 1; round <= 3; ++round) {
    ASSERT_TRUE(vote.Save(In("a.vot")));
    vote = Vote();
    ASSERT_TRUE(vote.Load(In("a.vot")));
    EXPECT_EQ(Str(vote.items.GetHead()->data.ItemName), "Who's first?" + std::string(round, ' '));
    EXPECT_EQ(Str(vote.options.GetHead()->data.OptionDesc), "Ann" + std::string(round, ' '));
    EXPECT_EQ(Str(vote.topic.TopicName), "Board");
  }
}

TEST_F(VoteFileTest, KeepsOddVotes) {
  Vote vote;
  vote.topic.SetTopicDesc(" \t padded");
  vote.Item(3, "twin").Item(3, "twin too").Item(4, "").Option(3, "a").Option(3, "").Option(12, "of none");
  ASSERT_TRUE(vote.Save(In("a.vot")));
  Vote loaded;
  ASSERT_TRUE(loaded.Load(In("a.vot")));
  EXPECT_TRUE(loaded.topic.TopicName.IsEmpty());
  EXPECT_EQ(Str(loaded.topic.TopicDesc), "padded");
  EXPECT_THAT(loaded.Lines(),
              ElementsAre("0/0 type 0 limit 0 [twin ][]", "1/1 type 0 limit 0 [twin too ][]", "2/2 type 0 limit 0 [][]",
                          "option 0 of 0 [a ]", "option 1 of 0 []", "option 2 of 1 [a ]", "option 3 of 1 []"));
  ASSERT_TRUE(Vote().Save(In("empty.vot")));
  Vote empty;
  ASSERT_TRUE(empty.Load(In("empty.vot")));
  EXPECT_THAT(empty.Lines(), IsEmpty());
}

// Whatever a text holds, it is cut at a 0, loses blanks at its front and gains one at its end, and spoils no statement.
TEST_F(VoteFileTest, KeepsAnyText) {
  std::mt19937 random(20261123);
  const char letters[] = {'\'', '"', ';', '-', '%', '\\', ' ', '\t', '\n', 'a', 'Z', '0', '<', '\0'};
  for (int round = 0; round < 60; ++round) {
    std::string text;
    for (size_t i = random() % 40; i > 0; --i) text += letters[random() % sizeof(letters)];
    Vote vote;
    vote.topic.SetTopicName(JW_StringA(text.data(), static_cast<int>(text.size())));
    vote.Item(0, "").Option(0, "");
    vote.items.GetHead()->data.ItemName = vote.options.GetHead()->data.OptionDesc = vote.topic.TopicName;
    ASSERT_TRUE(vote.Save(In("a.vot")));
    Vote loaded;
    ASSERT_TRUE(loaded.Load(In("a.vot")));
    std::string expected = text.c_str();
    expected.erase(0, std::min(expected.find_first_not_of(" \t\n"), expected.size()));
    EXPECT_EQ(Str(loaded.topic.TopicName), expected);
    if (!expected.empty()) expected += ' ';
    EXPECT_EQ(Str(loaded.items.GetHead()->data.ItemName), expected);
    EXPECT_EQ(Str(loaded.options.GetHead()->data.OptionDesc), expected);
  }
}

TEST_F(VoteFileTest, ReadsTheFirstFormatAndTextsThatAreTooLong) {
  const std::string full(1024, 'f');
  Run(In("old.vot"), std::string(kTopicTable) + kOldItemTable + kOptionTable + "insert into VoteTopic values(9, '" +
                         full + "', '" + full + "x', 2, 60, 0, -1);" + "insert into VoteItem values(4, ' old ', '" +
                         std::string(3000, ' ') + "d', 1, 9);" + "insert into VoteOption values(6, '" + full +
                         "x', 4);");
  Vote vote;
  vote.topic.SetTopicDesc("as it was");
  ASSERT_TRUE(vote.Load(In("old.vot")));
  EXPECT_EQ(vote.topic.TopicID, 9u);
  EXPECT_EQ(Str(vote.topic.TopicName), full);
  EXPECT_EQ(Str(vote.topic.TopicDesc), "as it was");
  EXPECT_TRUE(vote.topic.IsSignVote);
  EXPECT_FALSE(vote.topic.IsAllVote || vote.topic.IsAllView) << "true above 0 only";
  EXPECT_THAT(vote.Lines(), ElementsAre("0/4 type 1 limit 0 [old ][d]", "option 6 of 4 []"));
  EXPECT_EQ(vote.options.GetHead()->data.m_nMask, 0xBu);
}

TEST_F(VoteFileTest, ShowsTheLastVoteWhereTheSourceIsGone) {
  ASSERT_TRUE(Ballot().Save(In("a.vot")));
  Vote vote;
  ASSERT_TRUE(vote.Load(In("gone.vot")));
  EXPECT_EQ(Str(vote.topic.TopicName), "Board");
  EXPECT_EQ(vote.items.GetCount(), 2);
  Vote folder;
  EXPECT_TRUE(folder.Load(m_Folder)) << "a folder can't be copied either";
}

TEST_F(VoteFileTest, SavesOverWhatIsThereOrFails) {
  WriteBytes(In("a.vot"), "something else");
  fs::permissions(In("a.vot"), fs::perms::owner_read);
  EXPECT_TRUE(Ballot().Save(In("a.vot"))) << "read-only files are replaced";
  EXPECT_EQ(Bytes(In("a.vot")), Bytes(m_Temporary));
  EXPECT_FALSE(Ballot().Save(In("no/such/folder.vot")));
  EXPECT_FALSE(Ballot().Save(m_Folder)) << "the target is a folder";
  Vote vote;
  fs::permissions(In("a.vot"), fs::perms::owner_read);
  EXPECT_TRUE(vote.Load(In("a.vot")));
  EXPECT_TRUE(Vote().Save(In("b.vot"))) << "a read-only source leaves no read-only database behind";
  Vote again;
  EXPECT_TRUE(again.Load(In("a.vot")));
  EXPECT_EQ(again.items.GetCount(), 2);
  fs::permissions(In("a.vot"), fs::perms::owner_all);
}

// A crash in mid-save leaves a journal; this one would empty the database that it is played back into.
TEST_F(VoteFileTest, IgnoresAJournalThatACrashLeft) {
  ASSERT_TRUE(Ballot().Save(In("a.vot")));
  std::string journal("\xD9\xD5\x05\xF9\x20\xA1\x63\xD7", 8);
  journal += std::string(
      "\0\0\0\0"
      "\0\0\0\7"
      "\0\0\0\0"
      "\0\0\2\0"
      "\0\0\x10\0",
      20);
  journal.resize(512, '\0');
  WriteBytes(fs::path(m_Temporary).concat("-journal"), journal);
  Vote vote;
  EXPECT_TRUE(vote.Load(In("a.vot")));
  EXPECT_EQ(vote.options.GetCount(), 4);
}

// A text that no statement takes makes an insert fail. What the process is left with differs: on Windows the
// temporary file stays in use, so that nothing can be saved any more; elsewhere a new one takes its place.
TEST_F(VoteFileTest, AFailedInsertTouchesNothing) {
  ASSERT_TRUE(Ballot().Save(In("a.vot")));
  const auto play = [&] {
    const std::string before = Bytes(In("a.vot"));
    Vote vote = Ballot();
    vote.Item(6, "").items.GetTail()->data.ItemName = JW_StringA(std::string(17 << 20, 'x').c_str());
    if (vote.Save(In("a.vot"))) std::exit(1);
    if (Bytes(In("a.vot")) != before) std::exit(2);
#if defined(_WIN32)
    if (Ballot().Save(In("b.vot"))) std::exit(3);
#else
    if (!Ballot().Save(In("b.vot"))) std::exit(3);
#endif
    if (!vote.Load(In("a.vot"))) std::exit(4);
    std::exit(0);
  };
  EXPECT_EXIT(play(), testing::ExitedWithCode(0), "");
}

#if defined(_WIN32)
// The statement that should drop the old topic table misses it: the table stays and is emptied.
TEST_F(VoteFileTest, ReusesATemporaryFileThatIsInUse) {
  ASSERT_TRUE(Ballot().Save(In("a.vot")));
  sqlite3* user = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(m_Temporary.string().c_str(), &user));
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(user,
                                    "alter table VoteTopic add column Mark int default 7; "
                                    "create table Stays(a)",
                                    nullptr, nullptr, nullptr));
  EXPECT_TRUE(Ballot().Save(In("b.vot")));
  EXPECT_THAT(Rows(In("b.vot"), "select TopicID, Mark from VoteTopic"), ElementsAre("1|7"));
  EXPECT_THAT(Rows(In("b.vot"), "select name from sqlite_master where name = 'Stays'"), ElementsAre("Stays"));
  sqlite3_close(user);
}
#else

class CodePageOf {
 public:
  explicit CodePageOf(const char* name) { EXPECT_TRUE(platform::ChooseCodePage(name)); }
  ~CodePageOf() { platform::ChooseCodePage("CP1252"); }
};

TEST_F(VoteFileTest, StoresTheActiveCodePage) {
  const char kVote[] = "投票 é";
  const auto roundTrip = [&](const char* page, const char* stored, const char* read) {
    const CodePageOf use(page);
    Vote vote;
    vote.topic.SetTopicName(kVote);
    vote.Item(0, "　\u00A0'票").Option(0, kVote);
    ASSERT_TRUE(vote.Save(In("a.vot")));
    EXPECT_THAT(Rows(In("a.vot"), "select TopicName from VoteTopic"), ElementsAre(stored));
    Vote loaded;
    ASSERT_TRUE(loaded.Load(In("a.vot")));
    EXPECT_EQ(Str(loaded.topic.TopicName), read);
    EXPECT_EQ(Str(loaded.options.GetHead()->data.OptionDesc), std::string(read) + " ");
  };
  roundTrip("CP936", " \xCD\xB6\xC6\xB1 \xA8\xA6", kVote);
  roundTrip("CP1252", " ?? \xE9", "?? é");
  EXPECT_FALSE(platform::ChooseCodePage("no such page"));

  // White space beyond ASCII goes from the front too.
  const CodePageOf use("CP936");
  Run(In("b.vot"), std::string(kTopicTable) +
                       "insert into VoteTopic values(1, '\xA1\xA1 \t\xC6\xB1\xA1\xA1', "
                       "'\xC6', 0, 0, 0, 0)");
  Vote loaded;
  ASSERT_TRUE(loaded.Load(In("b.vot")));
  EXPECT_EQ(Str(loaded.topic.TopicName), "票　");
  EXPECT_EQ(Str(loaded.topic.TopicDesc), "?") << "half a character";
}

TEST_F(VoteFileTest, FailsWithoutItsTemporaryFolder) {
  fs::remove_all(m_Folder / "Temp");
  ASSERT_NO_FATAL_FAILURE(Run(In("a.vot"), kTopicTable));
  Vote vote;
  EXPECT_FALSE(vote.Load(In("a.vot")));
  WriteBytes(In("b.vot"), "untouched");
  EXPECT_FALSE(Ballot().Save(In("b.vot")));
  EXPECT_EQ(Bytes(In("b.vot")), "untouched");
}

// Fails the writing at ever larger sizes, until the disk has room for everything.
TEST_F(VoteFileTest, AFullDiskLosesNothing) {
  const auto play = [&] {
    std::signal(SIGXFSZ, SIG_IGN);
    for (rlim_t room = 0;; room += 2048) {
      WriteBytes(In("a.vot"), "");
      const rlimit limit = {room, RLIM_INFINITY};
      setrlimit(RLIMIT_FSIZE, &limit);
      const bool saved = Ballot().Save(In("a.vot"));
      const rlimit none = {RLIM_INFINITY, RLIM_INFINITY};
      setrlimit(RLIMIT_FSIZE, &none);
      Vote loaded;
      if (saved) std::exit(loaded.Load(In("a.vot")) && loaded.options.GetCount() == 4 && room > 8192 ? 0 : 1);
      if (!Bytes(In("a.vot")).empty()) std::exit(2);
    }
  };
  EXPECT_EXIT(play(), testing::ExitedWithCode(0), "");
}
#endif

}  // namespace
}  // namespace vote_files
