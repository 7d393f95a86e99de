#include "plan/PerfDatabase.h"

#include <gtest/gtest.h>
#include <mdbtools.h>

#include <cstring>
#include <map>
#include <memory>

#include "base/RuntimeError.h"
#include "base/files.h"
#include "support/TempFolder.h"

namespace vorlent {
namespace {

std::string shippedDatabase() { return readFile(VORLENT_DATA_FOLDER "/Templates/temp.mdb"); }

constexpr PerfData Other = {91.25F, 410,    370, 5600, 12345, 113000,
                            118600, 130945, 94,  271,  0.77F, 0.735F};

struct Closed {
  void operator()(MdbHandle* handle) const { mdb_close(handle); }
  void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};

double numberIn(const MdbColumn& column, const unsigned char* page) {
  const unsigned char* const at = page + column.cur_value_start;
  float single = 0;
  std::int32_t whole = 0;
  std::int16_t small = 0;
  switch (column.col_type) {
    case MDB_FLOAT:
      std::memcpy(&single, at, sizeof single);
      return single;
    case MDB_LONGINT:
      std::memcpy(&whole, at, sizeof whole);
      return whole;
    case MDB_INT:
      std::memcpy(&small, at, sizeof small);
      return small;
    default:
      ADD_FAILURE() << column.name << " is of type " << column.col_type;
      return 0;
  }
}

using Row = std::map<std::string, double>;

/// The rows of PerfData, with their binary values.
std::vector<Row> rowsOf(const std::string& database) {
  const TempFolder folder;
  folder.write("temp.mdb", database);
  const std::unique_ptr<MdbHandle, Closed> mdb(
      mdb_open((folder / "temp.mdb").c_str(), MDB_NOFLAGS));
  std::string name = "PerfData";
  const std::unique_ptr<MdbTableDef, Closed> table(
      mdb_read_table_by_name(mdb.get(), name.data(), MDB_TABLE));
  std::vector<Row> rows;
  if (!table) return rows;
  mdb_read_columns(table.get());
  mdb_rewind_table(table.get());
  while (mdb_fetch_row(table.get())) {
    Row row;
    for (unsigned int i = 0; i < table->num_cols; ++i) {
      const auto& column = *static_cast<MdbColumn*>(g_ptr_array_index(table->columns, i));
      row[column.name] = numberIn(column, mdb->pg_buf);
    }
    rows.push_back(row);
  }
  return rows;
}

TEST(PerfDatabase, TheFirstRowHasTheNumbersThatWerePutIn) {
  const auto rows = rowsOf(perfDatabase(shippedDatabase(), Other));
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(rows[0], (Row{{"ClimbN1", 91.25},
                          {"MaxCruiseAlt", 410},
                          {"CruiseAlt", 370},
                          {"FuelReserve", 5600},
                          {"TripFuel", 12345},
                          {"ZeroFuelWeight", 113000},
                          {"LandingWeight", 118600},
                          {"TakeoffWeight", 130945},
                          {"TakeoffN1", 94},
                          {"FMCspeed", 271},
                          {"ClimbMach", double{0.77F}},
                          {"DescentMach", double{0.735F}}}));
}

TEST(PerfDatabase, NothingElseInItChanges) {
  const auto before = rowsOf(shippedDatabase());
  const auto after = rowsOf(perfDatabase(shippedDatabase(), Other));
  ASSERT_EQ(before.size(), after.size());
  for (std::size_t row = 1; row < before.size(); ++row) EXPECT_EQ(before[row], after[row]);
  EXPECT_EQ(perfDatabase(shippedDatabase(), Other).size(), shippedDatabase().size());
}

TEST(PerfDatabase, AnotherDatabaseIsRefused) {
  const std::string text = "the database is not the shipped temp.mdb, its fields are not known";
  for (const std::string& other :
       {std::string(), std::string(114688, '\0'), shippedDatabase() + "x",
        perfDatabase(shippedDatabase(), Other)}) {
    try {
      perfDatabase(other, Other);
      ADD_FAILURE() << other.size();
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.description(), text);
    }
  }
}

TEST(PerfDatabase, AltitudesAreFlightLevelsAndTheSpeedIsTheLegs) {
  PlanTask task;
  task.aircraft = *performanceOf("737-700");
  const PlannedFlight flight =
      planFlight({{{"XAAA", {0, 0}, 0}, {"MIDDL", {0, 4}}, {"XBBB", {0, 8}, 0}}, 35000}, task);
  const PerfData first = perfDataOf(flight, 1);
  EXPECT_EQ(first.CruiseAlt, 350);
  EXPECT_EQ(first.MaxCruiseAlt, 410);
  EXPECT_EQ(first.FMCspeed, 250);
  EXPECT_EQ(perfDataOf(flight, 5).FMCspeed, 190);
  EXPECT_EQ(first.LandingWeight, 118500);
  EXPECT_EQ(first.TakeoffWeight, first.LandingWeight + first.TripFuel);
}

}  // namespace
}  // namespace vorlent
