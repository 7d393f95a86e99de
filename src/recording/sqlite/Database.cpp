#include "recording/sqlite/Database.h"

#include <sqlite3.h>

namespace vorlent {
namespace {

/// A person who looks into the file while it is written holds it for less.
constexpr int LongestWait_ms = 2000;

void check(sqlite3* database, int code) {
  if (code != SQLITE_OK) throw DatabaseError{code, sqlite3_errmsg(database)};
}

}  // namespace

Statement::Statement(sqlite3* database, std::string_view sql) : database_(database) {
  check(database_, sqlite3_prepare_v2(database_, sql.data(), static_cast<int>(sql.size()),
                                      &statement_, nullptr));
}

Statement::~Statement() { sqlite3_finalize(statement_); }

Statement& Statement::set(int value, std::int64_t number) {
  check(database_, sqlite3_bind_int64(statement_, value + 1, number));
  return *this;
}

Statement& Statement::set(int value, std::string_view text) {
  check(database_, sqlite3_bind_text64(statement_, value + 1, text.data(), text.size(),
                                       SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

Statement& Statement::setBytes(int value, std::string_view bytes) {
  check(database_,
        sqlite3_bind_blob64(statement_, value + 1, bytes.data(), bytes.size(), SQLITE_TRANSIENT));
  return *this;
}

Statement& Statement::setNull(int value) {
  check(database_, sqlite3_bind_null(statement_, value + 1));
  return *this;
}

bool Statement::step() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) throw DatabaseError{code, sqlite3_errmsg(database_)};
  return false;
}

void Statement::reset() { sqlite3_reset(statement_); }

void Statement::run() {
  try {
    step();
  } catch (const DatabaseError&) {
    reset();
    throw;
  }
  reset();
}

std::int64_t Statement::number(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string Statement::text(int column) const {
  const void* bytes = sqlite3_column_blob(statement_, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

Database::Database(const std::string& path, Open how) {
  const int created = how == Open::New ? SQLITE_OPEN_CREATE : 0;
  const int code =
      sqlite3_open_v2(path.c_str(), &database_, SQLITE_OPEN_READWRITE | created, nullptr);
  if (code != SQLITE_OK) {
    const DatabaseError error{code, sqlite3_errmsg(database_)};
    sqlite3_close(database_);
    throw error;
  }
  sqlite3_busy_timeout(database_, LongestWait_ms);
}

Database::~Database() { sqlite3_close(database_); }

void Database::execute(const char* sql) {
  check(database_, sqlite3_exec(database_, sql, nullptr, nullptr, nullptr));
}

std::unique_ptr<Statement> Database::statement(std::string_view sql) const {
  return std::make_unique<Statement>(database_, sql);
}

}  // namespace vorlent
