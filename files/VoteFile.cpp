#include "files/VoteFile.h"

#include <cstdio>
#include <cstring>
#include <unordered_map>
#include <vector>

#include "JW_Base/Include/JW_CodePage.h"
#include "JW_Base/Include/JW_Utf8.h"
#include "files/VoteDb.h"
#include "platform/CodePage.h"
#include "platform/Files.h"

namespace {

using platform::FileAttributes;

constexpr char kCreateTopic[] =
    "CREATE TABLE IF Not Exists VoteTopic(TopicID int  primary key not null,  TopicName char(256) not null, "
    "TopicDesc char(1024),  IsSignVote int,  TimeLong int, IsAllVote int, IsAllView int)";
// The limit's column came with a later version of the format: it is added behind the others.
constexpr char kCreateItem[] =
    "CREATE TABLE IF Not Exists VoteItem(ItemID int  primary key not null,   ItemName char(256) not null, "
    "ItemDesc char(1024),  ItemType int not null, TopicID int not null/*, MultiSelLim int*/)";
constexpr char kAddLimit[] = "ALTER TABLE VoteItem ADD COLUMN MultiSelLim int";
constexpr char kCreateOption[] =
    "CREATE TABLE IF Not Exists VoteOption(OptionID int  primary key not null, OptionDesc char(1024) not null,  "
    "ItemID int not null)";

// Rows beyond this are not read. A small file can be made to count as an endless one.
#define ZQVOTE_MAX_ROWS "20000"

// Where every vote file passes through.
JW_StringA TemporaryPath() {
  JW_StringA path = JW_AnsiFromWide(platform::SystemFolder());
  const char separator = platform::FolderSeparator();
  const char* const last = strrchr(path.GetString(), separator);
  path = path.Left(last ? static_cast<int>(last - path.GetString()) + 1 : 0);
  path += "Temp";
  path += separator;
  path += "OstrelVoteTemp.db";
  return path;
}

// ASCII is the same in UTF-8 and in every code page.
bool IsAscii(const char* text, int length) {
  unsigned char all = 0;
  for (int i = 0; i < length; ++i) all = static_cast<unsigned char>(all | static_cast<unsigned char>(text[i]));
  return all < 0x80;
}

// A record's text as it stands between two quotes of a statement. A text from the wire may hold a 0, which would end
// the statement: it ends the text.
JW_StringA SqlText(const JW_StringA& utf8) {
  JW_StringA text = IsAscii(utf8, utf8.GetLength()) ? JW_StringA(utf8.GetString())
                                                    : JW_StringA(JW_AnsiFromWide(JW_WideFromUtf8(utf8)).GetString());
  text.Replace("'", "''");
  return text;
}

// A statement under composition, which knows how the values stand in it.
class Statement {
 public:
  explicit Statement(const char* text) {
    m_Sql.GetBuffer(kUsualLength);
    m_Sql += text;
  }
  Statement& operator<<(const char* text) {
    m_Sql += text;
    return *this;
  }
  Statement& operator<<(const JW_StringA& utf8) {
    m_Sql += SqlText(utf8);
    return *this;
  }
  // As a signed decimal, whatever the record's field is.
  Statement& operator<<(u32 number) {
    char digits[16];
    snprintf(digits, sizeof(digits), "%d", static_cast<int>(number));
    return *this << digits;
  }
  const char* Sql() const { return m_Sql; }

 private:
  static constexpr int kUsualLength = 400;

  JW_StringA m_Sql;
};

// A text of the file as a record has it. Where it isn't ASCII, it goes by way of the code page, so that a loaded text
// never holds what a saved one can't.
JW_StringA RecordText(VoteDb& db, int column) {
  const char* ansi = db.ColumnAnsi(column);
  const int length = JW_StringA::Length(ansi);
  if (!IsAscii(ansi, length)) return JW_Utf8FromWide(JW_WideFromAnsi(JW_AnsiFromWide(db.ColumnText(column))));
  const char* const end = ansi + length;
  while (ansi < end && platform::IsWideSpace(static_cast<JW_WChar>(*ansi))) ++ansi;
  return JW_StringA(ansi, static_cast<int>(end - ansi));
}

int InsertTopic(VoteDb& db, const VoteTopicRecord& topic) {
  Statement insert(
      "insert into VoteTopic(TopicID, TopicName, TopicDesc,  IsSignVote, TimeLong, IsAllVote, IsAllView)values(1, ' ");
  insert << topic.TopicName << "','" << topic.TopicDesc << "'," << (topic.IsSignVote ? " 1, " : " 0, ")
         << topic.TimeLong << ", ";
  // Saved votes are open to all, whatever this one is.
  insert << " 1, "
         << " 1)";
  return db.Exec(insert.Sql());
}

int InsertItem(VoteDb& db, const VoteItemRecord& item, u32 number) {
  Statement insert("insert into VoteItem(ItemID, ItemName, ItemDesc, ItemType, TopicID, MultiSelLim)values( ");
  insert << number << ",' " << item.ItemName << " ',' " << item.ItemDesc << " ', " << item.ItemType << " , 1,"
         << item.MultiSelLim << ")";
  return db.Exec(insert.Sql());
}

int InsertOption(VoteDb& db, const VoteOptionRecord& option, u32 number, u32 itemNumber) {
  Statement insert("insert into VoteOption(OptionID, OptionDesc, ItemID)values( ");
  insert << number << " ,' " << option.OptionDesc << " ', " << itemNumber << ")";
  return db.Exec(insert.Sql());
}

// False where an existing table can't be dropped or the topic table can't be made.
bool MakeTables(VoteDb& db) {
  // The first names a table that no file has: an old topic table is emptied below instead.
  const int dropTopic = db.Exec("DROP TABLE IF EXISTS VoteTpic");
  const int dropItem = db.Exec("DROP TABLE IF EXISTS VoteItem");
  const int dropOption = db.Exec("DROP TABLE IF EXISTS VoteOption");
  if (dropTopic != 0 || dropItem != 0 || dropOption != 0) return false;
  if (db.Exec(kCreateTopic) != 0) return false;
  db.Exec("DELETE FROM VoteTopic");
  db.Exec(kCreateItem);
  db.Exec(kAddLimit);
  db.Exec("DELETE FROM VoteItem");
  db.Exec(kCreateOption);
  db.Exec("DELETE FROM VoteOption");
  return true;
}

bool InsertAll(VoteDb& db, const VoteTopicRecord& topic, const VoteItemList& items, const VoteOptionList& options) {
  if (InsertTopic(db, topic) != 0) return false;
  std::unordered_map<u32, std::vector<const VoteOptionRecord*>> optionsOf;
  for (const VoteOptionRecord& option : options) optionsOf[option.ItemID].push_back(&option);
  u32 itemNumber = 0;
  u32 optionNumber = 0;
  for (const VoteItemRecord& item : items) {
    if (InsertItem(db, item, itemNumber) != 0) return false;
    for (const VoteOptionRecord* option : optionsOf[item.ItemID]) {
      if (InsertOption(db, *option, optionNumber++, itemNumber) != 0) return false;
    }
    ++itemNumber;
  }
  return true;
}

// The number of rows as the one column of `sql` tells it.
int CountRows(VoteDb& db, const char* sql) {
  db.Prepare(sql);
  db.Step();
  const int count = db.ColumnInt(0);
  db.Finalize();
  return count;
}

void ReadTopic(VoteDb& db, VoteTopicRecord& topic) {
  db.Step();
  topic.TopicID = static_cast<u32>(db.ColumnInt(0));
  topic.SetTopicName(RecordText(db, 1));
  topic.SetTopicDesc(RecordText(db, 2));
  topic.IsSignVote = db.ColumnInt(3) > 0;
  topic.TimeLong = static_cast<u32>(db.ColumnInt(4));
  topic.IsAllVote = db.ColumnInt(5) > 0;
  topic.IsAllView = db.ColumnInt(6) > 0;
  topic.m_nMask |= VoteTopicRecord::kTopicID | VoteTopicRecord::kIsSignVote | VoteTopicRecord::kTimeLong |
                   VoteTopicRecord::kIsAllVote | VoteTopicRecord::kIsAllView;
  db.Finalize();
}

void ReadItems(VoteDb& db, VoteItemList& items) {
  const int count = CountRows(db, "select COUNT(*) from (select 1 from VoteItem limit " ZQVOTE_MAX_ROWS ")");
  db.Prepare("select * from VoteItem");
  for (int i = 0; i < count && !db.IsSpent(); ++i) {
    db.Step();
    VoteItemList::Node* const node = items.AddTail(VoteItemRecord());
    if (!node) break;
    VoteItemRecord& item = node->data;
    item.ItemNo = static_cast<u32>(i);
    item.ItemID = static_cast<u32>(db.ColumnInt(0));
    item.SetItemName(RecordText(db, 1));
    item.SetItemDesc(RecordText(db, 2));
    item.ItemType = static_cast<u32>(db.ColumnInt(3));
    item.TopicID = static_cast<u32>(db.ColumnInt(4));
    item.MultiSelLim = static_cast<u32>(db.ColumnInt(5));
    item.m_nMask |= VoteItemRecord::kItemNo | VoteItemRecord::kItemID | VoteItemRecord::kTopicID |
                    VoteItemRecord::kItemType | VoteItemRecord::kIsOpen | VoteItemRecord::kMultiSelLim |
                    VoteItemRecord::kItemExtra;
  }
  db.Finalize();
}

void ReadOptions(VoteDb& db, VoteOptionList& options) {
  const int count = CountRows(db, "select COUNT(*) from (select 1 from VoteOption limit " ZQVOTE_MAX_ROWS ")");
  db.Prepare("select * from VoteOption");
  for (int i = 0; i < count && !db.IsSpent(); ++i) {
    db.Step();
    VoteOptionList::Node* const node = options.AddTail(VoteOptionRecord());
    if (!node) break;
    VoteOptionRecord& option = node->data;
    option.OptionID = static_cast<u32>(db.ColumnInt(0));
    option.SetOptionDesc(RecordText(db, 1));
    option.ItemID = static_cast<u32>(db.ColumnInt(2));
    option.m_nMask |= VoteOptionRecord::kOptionID | VoteOptionRecord::kItemID | VoteOptionRecord::kOptionExtra;
  }
  db.Finalize();
}

}  // namespace

bool SaveVoteFile(const VoteTopicRecord& topic, const VoteItemList& items, const VoteOptionList& options,
                  const JW_WChar* path) {
  const JW_StringA temporary = TemporaryPath();
  const JW_String temporaryWide = JW_WideFromAnsi(temporary);
  // A file that could not be read has been in use until now and would stand in the way of this one.
  VoteDb::CloseIdle();
  platform::RemoveFile(temporaryWide);
  platform::SetAttributes(temporary, FileAttributes::kNormal);

  VoteDb db;
  if (!db.Open(temporary)) {
    db.LeaveIdle();
    return false;
  }
  db.Begin();
  platform::SetAttributes(temporary, FileAttributes::kNormal);
  if (!MakeTables(db)) {
    db.Commit();
    db.Close();
    return false;
  }
  if (!InsertAll(db, topic, items, options)) {
    // Neither committed nor rolled back: the connection stays as it is, and the next save finds the file in use.
    db.LeaveOpen();
    return false;
  }
  const bool committed = db.Commit() == 0;
  db.Close();
  // A vote that didn't reach the disk must not take the place of one that did.
  if (!committed) return false;
  platform::SetAttributes(path, FileAttributes::kNormal);
  if (!platform::CopyOver(temporaryWide, path)) return false;
  platform::SetAttributes(temporary, FileAttributes::kHidden);
  return true;
}

bool LoadVoteFile(VoteTopicRecord& topic, VoteItemList& items, VoteOptionList& options, const JW_WChar* path) {
  const JW_StringA temporary = TemporaryPath();
  const JW_String temporaryWide = JW_WideFromAnsi(temporary);
  VoteDb::CloseIdle();
  platform::SetAttributes(temporary, FileAttributes::kNormal);
  // Where this fails, what the last operation left at the temporary path is read.
  if (platform::CopyOver(path, temporaryWide)) {
    // The journal of a save that a crash cut short must not be played back into another vote.
    JW_String journal = temporaryWide;
    journal += JW_W("-journal");
    platform::RemoveFile(journal);
  }

  VoteDb db;
  db.Open(temporary);
  if (db.Prepare("select * from  VoteTopic") != 0) {
    db.LeaveIdle();
    return false;
  }
  ReadTopic(db, topic);
  ReadItems(db, items);
  ReadOptions(db, options);
  db.Close();
  platform::SetAttributes(temporary, FileAttributes::kHidden);
  return true;
}
