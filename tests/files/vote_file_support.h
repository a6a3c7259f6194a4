// What the tests of the files share: a folder of their own, votes in short form, and SQLite without our wrapper.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "JW_Base/Include/JW_Utf8.h"
#include "files/VoteFile.h"
#include "platform/Files.h"

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>

#include "platform/posix/SystemFolderChoice.h"
#endif

namespace vote_files {

namespace fs = std::filesystem;

inline JW_String Wide(const fs::path& path) {
#if defined(_WIN32)
  return JW_String(path.wstring().c_str());
#else
  return JW_String(path.u16string().c_str());
#endif
}

inline std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}
inline void WriteBytes(const fs::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

struct Vote {
  VoteTopicRecord topic;
  VoteItemList items;
  VoteOptionList options;

  Vote& Item(u32 id, const char* name, u32 type = 0, u32 limit = 0, const char* description = "") {
    VoteItemRecord item;
    item.ItemID = id;
    item.ItemType = type;
    item.MultiSelLim = limit;
    item.SetItemName(name);
    item.SetItemDesc(description);
    items.AddTail(item);
    return *this;
  }
  Vote& Option(u32 itemId, const char* text, u32 id = 77) {
    VoteOptionRecord option;
    option.OptionID = id;
    option.ItemID = itemId;
    option.SetOptionDesc(text);
    options.AddTail(option);
    return *this;
  }
  bool Save(const fs::path& path) const { return SaveVoteFile(topic, items, options, Wide(path)); }
  bool Load(const fs::path& path) { return LoadVoteFile(topic, items, options, Wide(path)); }

  // Questions and options in one readable line each.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const auto& item : items) {
      lines.push_back(std::to_string(item.ItemNo) + "/" + std::to_string(item.ItemID) + " type " +
                      std::to_string(item.ItemType) + " limit " + std::to_string(item.MultiSelLim) + " [" +
                      item.ItemName.GetString() + "][" + item.ItemDesc.GetString() + "]");
    }
    for (const auto& option : options) {
      lines.push_back("option " + std::to_string(option.OptionID) + " of " + std::to_string(option.ItemID) + " [" +
                      option.OptionDesc.GetString() + "]");
    }
    return lines;
  }
};

// Each test has a folder, and on systems that let it choose, a temporary database of its own.
class VoteFileTest : public testing::Test {
 protected:
  VoteFileTest() {
#if defined(_WIN32)
    const int process = _getpid();
    const fs::path place = fs::temp_directory_path();
#else
    const int process = getpid();
    // In memory where the system has such a place: some tests write thousands of files.
    const fs::path memory = "/dev/shm";
    const fs::path place = fs::is_directory(memory) ? memory : fs::temp_directory_path();
#endif
    m_Folder = place / ("zqvote-files-" + std::to_string(process));
    fs::remove_all(m_Folder);
    fs::create_directories(m_Folder / "Temp");
#if !defined(_WIN32)
    platform::ChooseSystemFolder((m_Folder / "system").c_str());
#endif
    const JW_String system = platform::SystemFolder();
    m_Temporary = fs::path(system.GetString()).parent_path() / "Temp" / "OstrelVoteTemp.db";
  }
  ~VoteFileTest() override {
    std::error_code error;
    fs::remove_all(m_Folder, error);
  }

  fs::path In(const char* name) const {
    return m_Folder / name;
  }

  // Runs statements on a file, as any tool of a stranger could.
  static void Run(const fs::path& path, const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(SQLITE_OK, sqlite3_open(path.string().c_str(), &db));
    char* error = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error)) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(db);
  }
  // All rows of a query, columns joined by "|".
  static std::vector<std::string> Rows(const fs::path& path, const char* sql) {
    sqlite3* db = nullptr;
    sqlite3_open(path.string().c_str(), &db);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(db, sql, -1, &statement, nullptr)) << sqlite3_errmsg(db);
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      std::string row;
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        if (i != 0) row += '|';
        row += text ? text : "NULL";
      }
      rows.push_back(row);
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return rows;
  }

  fs::path m_Folder;
  fs::path m_Temporary;
};

// The tables as vote files have them; the first version of the format has no limit.
inline constexpr char kTopicTable[] =
    "CREATE TABLE VoteTopic(TopicID int  primary key not null,  TopicName char(256) not null, TopicDesc char(1024),  "
    "IsSignVote int,  TimeLong int, IsAllVote int, IsAllView int);";
inline constexpr char kOldItemTable[] =
    "CREATE TABLE VoteItem(ItemID int  primary key not null,   ItemName char(256) not null, ItemDesc char(1024),  "
    "ItemType int not null, TopicID int not null/*, MultiSelLim int*/);";
inline constexpr char kOptionTable[] =
    "CREATE TABLE VoteOption(OptionID int  primary key not null, OptionDesc char(1024) not null,  ItemID int not "
    "null);";

}  // namespace vote_files
