#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vorlent {

/// What SQLite said: its own words.
struct DatabaseError {
  int code;  ///< SQLITE_FULL and others
  std::string words;
};

/// A statement that is carried out again and again. Columns and values count from 0.
class Statement {
 public:
  Statement(sqlite3* database, std::string_view sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& set(int value, std::int64_t number);
  Statement& set(int value, std::string_view text);
  Statement& setBytes(int value, std::string_view bytes);
  Statement& setNull(int value);
  /// Whether there is a row; raises DatabaseError.
  bool step();
  /// Ready for the next time.
  void reset();
  /// Without rows, from its values to the reset.
  void run();

  std::int64_t number(int column) const;
  std::string text(int column) const;
  bool isNull(int column) const;

 private:
  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
};

/// A SQLite file. Everything here raises DatabaseError.
class Database {
 public:
  enum class Open { New, Existing };

  Database(const std::string& path, Open how);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void execute(const char* sql);
  std::unique_ptr<Statement> statement(std::string_view sql) const;

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace vorlent
