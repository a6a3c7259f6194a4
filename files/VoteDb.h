// A thin wrapper over SQLite: one open database and its current statement.
//
// Nothing is released by the destructor. Who wants the connection closed calls Close; one that is left open on purpose
// is handed to LeaveOpen. A database is opened so that nothing in it can run: no views, triggers, generated columns or
// extensions of its own. What one connection does is bounded, as a small file can be made to look like an endless one:
// a statement that takes more steps than any vote needs ends with SQLITE_INTERRUPT.
#pragma once

#include "JW_Base/Include/JW_String.h"

struct sqlite3;
struct sqlite3_stmt;

class VoteDb {
 public:
  VoteDb() = default;
  VoteDb(const VoteDb&) = delete;
  VoteDb& operator=(const VoteDb&) = delete;

  // `path` as it stands, in the active code page. True if SQLite's code is 0.
  bool Open(const char* path);
  // True if closed, or if there was no connection; otherwise the connection stays.
  bool Close();
  // The connection stays open for the life of the process.
  void LeaveOpen();
  // The connection stays open until the next CloseIdle.
  void LeaveIdle();
  static void CloseIdle();

  // Each returns SQLite's code; -1 without a connection.
  int Exec(const char* sql);
  int Begin();
  int Commit();

  // One statement at a time. Each returns SQLite's code.
  int Prepare(const char* sql);
  int Step();
  int Finalize();

  // True once the rows read hold more text than any vote does. Whoever walks through rows ends there.
  bool IsSpent() const { return m_nBytesRead > kMaxBytesRead; }

  // Of the row that Step reached. A column that isn't there reads as 0 or empty.
  int ColumnInt(int n);
  // In the active code page, as it stands; null for an empty column. Valid until the next step.
  const char* ColumnAnsi(int n);
  // From the active code page, without the white space at the front.
  JW_String ColumnText(int n);

  int LastResult() const { return m_nResult; }
  // SQLite's words for the last failure of Exec, or null.
  const char* ErrorText() const { return m_ErrorText.IsEmpty() ? nullptr : m_ErrorText.GetString(); }

 private:
  static constexpr int64_t kMaxBytesRead = 32 << 20;

  void Harden();
  static int CountSteps(void* db);

  sqlite3* m_pDb = nullptr;
  sqlite3_stmt* m_pStatement = nullptr;
  int m_nResult = 0;
  JW_StringA m_ErrorText;
  int m_nStepsTaken = 0;     // by the current statement, in units of kStepsCounted
  int64_t m_nBytesRead = 0;  // of texts and blobs
};
