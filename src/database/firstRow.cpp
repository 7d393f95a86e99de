#include "database/firstRow.h"

#include <mdbtools.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <memory>
#include <span>

#include "base/bytes.h"

namespace vorlent {
namespace {

struct Closing {
  void operator()(MdbHandle* database) const { mdb_close(database); }
  void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
  void operator()(char* text) const { g_free(text); }
};
using Database = std::unique_ptr<MdbHandle, Closing>;
using Table = std::unique_ptr<MdbTableDef, Closing>;

template <class T>
std::span<T*> elementsOf(const GPtrArray& array) {
  return {reinterpret_cast<T**>(array.pdata), array.len};
}

template <class Number>
std::optional<std::string> textOf(Number number) {
  if (!std::isfinite(static_cast<double>(number))) return std::nullopt;
  constexpr std::size_t Longest = 32;
  std::array<char, Longest> text;
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number);
  return std::string(text.data(), end);
}

template <class Number>
std::optional<std::string> numberIn(std::span<const unsigned char> bytes) {
  if (bytes.size() != sizeof(Number)) return std::nullopt;
  return textOf(load<Number>(bytes.data()));
}

std::optional<std::string> taken(char* allocated) {
  const std::unique_ptr<char, Closing> text(allocated);
  return text ? std::optional<std::string>(text.get()) : std::nullopt;
}

/// For decimal types the library's text has all digits and always a point. Its text of a binary
/// number has too few of them.
std::optional<std::string> textOf(MdbHandle& database, const MdbColumn& column,
                                  std::span<const unsigned char> bytes) {
  constexpr std::size_t Money_bytes = 8;
  constexpr std::size_t Numeric_bytes = 17;
  const int start = column.cur_value_start;
  switch (column.col_type) {
    case MDB_BYTE:
      return numberIn<std::uint8_t>(bytes);
    case MDB_INT:
      return numberIn<std::int16_t>(bytes);
    case MDB_LONGINT:
      return numberIn<std::int32_t>(bytes);
    case MDB_FLOAT:
      return numberIn<float>(bytes);
    case MDB_DOUBLE:
      return numberIn<double>(bytes);
    case MDB_MONEY:
      if (bytes.size() != Money_bytes) return std::nullopt;
      return taken(mdb_money_to_string(&database, start));
    case MDB_NUMERIC:
      if (bytes.size() != Numeric_bytes) return std::nullopt;
      return taken(mdb_numeric_to_string(&database, start, column.col_scale, column.col_prec));
    case MDB_TEXT:
    case MDB_MEMO:
      return taken(mdb_col_to_string(&database, database.pg_buf, start, column.col_type,
                                     column.cur_value_len));
    default:
      return std::nullopt;
  }
}

/// A yes or no has no bytes; it stands where for others is noted that they have no value.
std::optional<std::string> valueOf(MdbHandle& database, const MdbColumn& column) {
  if (column.col_type == MDB_BOOL) return column.cur_value_len != 0 ? "0" : "-1";
  const std::int64_t start = column.cur_value_start;
  const std::int64_t length = column.cur_value_len;
  if (length == 0) return std::nullopt;
  if (start < 0 || length < 0 || start + length > MDB_PGSIZE)
    throw DatabaseFault("The file is damaged");
  return textOf(database, column,
                {database.pg_buf + start, static_cast<std::size_t>(column.cur_value_len)});
}

MdbCatalogEntry& entryOf(MdbHandle& database, const std::string& name) {
  const GPtrArray* const catalog = mdb_read_catalog(&database, MDB_TABLE);
  if (catalog == nullptr) throw DatabaseFault("The file is damaged");
  for (MdbCatalogEntry* const entry : elementsOf<MdbCatalogEntry>(*catalog))
    if (g_ascii_strcasecmp(entry->object_name, name.c_str()) == 0) return *entry;
  throw DatabaseFault("There is no table " + name);
}

/// The table at its first row; nothing when it is empty.
Table tableAtFirstRow(MdbHandle& database, const std::string& name) {
  Table table(mdb_read_table(&entryOf(database, name)));
  if (!table || mdb_read_columns(table.get()) == nullptr)
    throw DatabaseFault("The file is damaged");
  mdb_rewind_table(table.get());
  if (mdb_fetch_row(table.get()) != 0) return table;
  // The table knows how many rows it has, though none was found.
  if (table->num_rows != 0) throw DatabaseFault("The file is damaged");
  return nullptr;
}

}  // namespace

std::optional<std::map<std::string, std::string>> firstRow(std::string bytes,
                                                           const std::string& table) {
  const Database database(bytes.empty() ? nullptr
                                        : mdb_open_buffer(bytes.data(), bytes.size(), MDB_NOFLAGS));
  if (!database) throw DatabaseFault("The file is no Access database");
  const Table read = tableAtFirstRow(*database, table);
  if (!read) return std::nullopt;
  std::map<std::string, std::string> row;
  for (const MdbColumn* const column : elementsOf<MdbColumn>(*read->columns))
    if (auto value = valueOf(*database, *column)) row.emplace(column->name, *std::move(value));
  return row;
}

}  // namespace vorlent
