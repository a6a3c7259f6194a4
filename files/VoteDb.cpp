#include "files/VoteDb.h"

#include <sqlite3.h>

#include <cstring>
#include <vector>

#include "JW_Base/Include/JW_CodePage.h"
#include "platform/CodePage.h"

namespace {

// A longer text or blob ends its statement; the setters of the records take far less.
constexpr int kMaxField = 16 << 20;

// A statement on the largest vote that is read takes a fifth of a million steps.
constexpr int kStepsCounted = 10000;
constexpr int kMaxSteps = 1000000 / kStepsCounted;

// Connections that nobody uses any more.
struct Left {
  std::vector<sqlite3*> open;
  std::vector<sqlite3*> idle;
};

Left& LeftBehind() {
  static auto* const left = new Left;
  return *left;
}

}  // namespace

int VoteDb::CountSteps(void* db) {
  return ++static_cast<VoteDb*>(db)->m_nStepsTaken > kMaxSteps;
}

void VoteDb::Harden() {
  sqlite3_db_config(m_pDb, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(m_pDb, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(m_pDb, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(m_pDb, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_limit(m_pDb, SQLITE_LIMIT_LENGTH, kMaxField);
  sqlite3_progress_handler(m_pDb, kStepsCounted, &VoteDb::CountSteps, this);
}

bool VoteDb::Open(const char* path) {
  m_nResult = sqlite3_open(path, &m_pDb);
  if (m_pDb) Harden();
  return m_nResult == SQLITE_OK;
}

bool VoteDb::Close() {
  if (!m_pDb) return true;
  m_nResult = sqlite3_close(m_pDb);
  if (m_nResult != SQLITE_OK) return false;
  m_pDb = nullptr;
  return true;
}

void VoteDb::LeaveOpen() {
  if (!m_pDb) return;
  sqlite3_progress_handler(m_pDb, 0, nullptr, nullptr);
  LeftBehind().open.push_back(m_pDb);
  m_pDb = nullptr;
}

void VoteDb::LeaveIdle() {
  if (m_pDb) LeftBehind().idle.push_back(m_pDb);
  m_pDb = nullptr;
}

void VoteDb::CloseIdle() {
  for (sqlite3* const db : LeftBehind().idle) sqlite3_close(db);
  LeftBehind().idle.clear();
}

int VoteDb::Exec(const char* sql) {
  if (!m_pDb) return -1;
  m_nStepsTaken = 0;
  char* error = nullptr;
  m_nResult = sqlite3_exec(m_pDb, sql, nullptr, nullptr, &error);
  m_ErrorText = error;
  sqlite3_free(error);
  return m_nResult;
}

int VoteDb::Begin() {
  return m_pDb ? sqlite3_exec(m_pDb, "BEGIN;", nullptr, nullptr, nullptr) : -1;
}

int VoteDb::Commit() {
  if (!m_pDb) return -1;
  m_nResult = sqlite3_exec(m_pDb, "COMMIT;", nullptr, nullptr, nullptr);
  return m_nResult == SQLITE_OK ? 0 : -1;
}

int VoteDb::Prepare(const char* sql) {
  m_nStepsTaken = 0;
  return sqlite3_prepare(m_pDb, sql, -1, &m_pStatement, nullptr);
}

int VoteDb::Step() {
  m_nResult = sqlite3_step(m_pStatement);
  if (m_nResult != SQLITE_ROW) return m_nResult;
  for (int i = sqlite3_column_count(m_pStatement) - 1; i >= 0; --i) {
    const int type = sqlite3_column_type(m_pStatement, i);
    if (type == SQLITE_TEXT || type == SQLITE_BLOB) m_nBytesRead += sqlite3_column_bytes(m_pStatement, i);
  }
  return m_nResult;
}

int VoteDb::Finalize() {
  if (!m_pStatement) return SQLITE_OK;
  const int result = sqlite3_finalize(m_pStatement);
  m_pStatement = nullptr;
  return result;
}

int VoteDb::ColumnInt(int n) {
  return sqlite3_column_int(m_pStatement, n);
}

const char* VoteDb::ColumnAnsi(int n) {
  return reinterpret_cast<const char*>(sqlite3_column_text(m_pStatement, n));
}

JW_String VoteDb::ColumnText(int n) {
  const char* const ansi = ColumnAnsi(n);
  if (!ansi) return JW_String();
  const JW_String text = JW_WideFromAnsi(ansi, static_cast<int>(strlen(ansi)));
  int front = 0;
  while (front < text.GetLength() && platform::IsWideSpace(text.GetString()[front])) ++front;
  return JW_String(text.GetString() + front, text.GetLength() - front);
}
