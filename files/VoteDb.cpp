#include "files/VoteDb.h"

#include <sqlite3.h>

#include <cstring>
#include <vector>

#include "JW_Base/Include/JW_CodePage.h"
#include "platform/CodePage.h"

namespace {

// No field of a vote comes near this; a larger one is not worth its memory.
constexpr int kMaxField = 1 << 20;

std::vector<sqlite3*>& LeftOpen() {
  static auto* const connections = new std::vector<sqlite3*>;
  return *connections;
}

void Harden(sqlite3* db) {
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_limit(db, SQLITE_LIMIT_LENGTH, kMaxField);
}

}  // namespace

bool VoteDb::Open(const char* path) {
  m_nResult = sqlite3_open(path, &m_pDb);
  if (m_pDb) Harden(m_pDb);
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
  if (m_pDb) LeftOpen().push_back(m_pDb);
  m_pDb = nullptr;
}

int VoteDb::Exec(const char* sql) {
  if (!m_pDb) return -1;
  char* error = nullptr;
  m_nResult = sqlite3_exec(m_pDb, sql, nullptr, nullptr, &error);
  m_ErrorText = error;
  sqlite3_free(error);
  return m_nResult;
}

int VoteDb::Begin() { return m_pDb ? sqlite3_exec(m_pDb, "BEGIN;", nullptr, nullptr, nullptr) : -1; }

int VoteDb::Commit() {
  if (!m_pDb) return -1;
  m_nResult = sqlite3_exec(m_pDb, "COMMIT;", nullptr, nullptr, nullptr);
  return m_nResult == SQLITE_OK ? 0 : -1;
}

int VoteDb::Prepare(const char* sql) { return sqlite3_prepare(m_pDb, sql, -1, &m_pStatement, nullptr); }

int VoteDb::Step() {
  m_nResult = sqlite3_step(m_pStatement);
  return m_nResult;
}

int VoteDb::Finalize() {
  if (!m_pStatement) return SQLITE_OK;
  const int result = sqlite3_finalize(m_pStatement);
  m_pStatement = nullptr;
  return result;
}

int VoteDb::ColumnInt(int n) { return sqlite3_column_int(m_pStatement, n); }

JW_String VoteDb::ColumnText(int n) {
  const char* const ansi = reinterpret_cast<const char*>(sqlite3_column_text(m_pStatement, n));
  if (!ansi) return JW_String();
  const JW_String text = JW_WideFromAnsi(ansi, static_cast<int>(strlen(ansi)));
  int front = 0;
  while (front < text.GetLength() && platform::IsWideSpace(text.GetString()[front])) ++front;
  return JW_String(text.GetString() + front, text.GetLength() - front);
}
