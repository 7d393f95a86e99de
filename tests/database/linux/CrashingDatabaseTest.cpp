#include <chrono>
#include <fstream>
#include <iterator>
#include <string>

#include "gtest/gtest.h"
#include "platform/FolderNetworkFiles.h"
#include "platform/MdbPerformanceDb.h"
#include "testedHelpers.h"

namespace vorlent {
namespace {

/// A damage that crashes this system's libmdb; the newer one of the Windows programs tells it.
std::string damagedDatabase() {
  std::ifstream file(testsFolder() + "/database/files/temp.mdb", std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  constexpr std::size_t UsageMapOfTheTable = 0x18037;
  bytes.at(UsageMapOfTheTable) = '\xE4';
  return bytes;
}

TEST(MdbPerformanceDb, DamageThatCrashesTheHelperIsTold) {
  const std::string bytes = damagedDatabase();
  const HelperAnswer crash = askOnce(databaseHelper())({bytes}, std::chrono::seconds(20), 1000);
  EXPECT_EQ(crash.message, std::nullopt);
  EXPECT_FALSE(crash.late);

  const TempFolder net;
  net.write("fmc-pc/Tarnwick/FMS/db/temp.mdb", bytes);
  FolderNetworkFiles files(net.path());
  MdbPerformanceDb db(files, askOnce(databaseHelper()));
  ASSERT_TRUE(db.open("\\\\fmc-pc\\Tarnwick\\FMS\\db\\temp.mdb"));
  EXPECT_EQ(db.read().fault, "The file is damaged");
}

}  // namespace
}  // namespace vorlent
