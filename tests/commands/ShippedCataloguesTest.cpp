#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "commands/CommandTable.h"
#include "sticks/catalogues.h"
#include "support/places.h"

namespace vorlent {
namespace {

/// The codes from the first to the last.
using Range = std::pair<int, int>;

/// A catalogue as shipped, the table that it offers, and the codes that it holds.
struct Shipped {
  const char* file;
  HashRows hashRows;
  std::span<const CommandRow> (*rows)();
  std::vector<Range> codes;
};

const Shipped Buttons{"butsort.txt",
                      HashRows::Skipped,
                      buttonRows,
                      {{0, 125},
                       {127, 143},
                       {152, 172},
                       {174, 175},
                       {181, 214},
                       {218, 218},
                       {220, 225},
                       {228, 230},
                       {232, 238},
                       {999, 999}}};
const Shipped Toggles{"togsort.txt",
                      HashRows::Skipped,
                      toggleRows,
                      {{0, 22}, {27, 27}, {29, 59}, {61, 65}, {67, 77}, {80, 83}, {999, 999}}};

class ShippedCatalogue : public testing::TestWithParam<Shipped> {
 protected:
  std::vector<ComboBox::Item> items() {
    std::string fault;
    const std::string path = joinedPath(dataFolder(), GetParam().file);
    auto read = readCatalogue(readFile(path), GetParam().hashRows, fault);
    EXPECT_EQ(fault, "");
    return read;
  }
};

TEST_P(ShippedCatalogue, OffersEveryCodeUnderTheNameOfItsRow) {
  std::vector<std::pair<int, std::string>> offered, table;
  for (const auto& item : items()) offered.emplace_back(item.data, item.text);
  for (const CommandRow& row : GetParam().rows()) table.emplace_back(row.code, row.name);
  EXPECT_EQ(offered, table);
}

TEST_P(ShippedCatalogue, TheTableHasItsCodesInTheirOrder) {
  std::vector<int> expected, codes;
  for (const auto& [first, last] : GetParam().codes)
    for (int code = first; code <= last; ++code) expected.push_back(code);
  for (const CommandRow& row : GetParam().rows()) codes.push_back(row.code);
  EXPECT_EQ(codes, expected);
}

TEST_P(ShippedCatalogue, NamesAreDifferentAndFitALine) {
  std::set<std::string> names;
  for (const auto& item : items()) {
    EXPECT_TRUE(names.insert(item.text).second) << item.text;
    EXPECT_THAT(item.text.size(), testing::AllOf(testing::Ge(3U), testing::Le(40U))) << item.text;
  }
}

INSTANTIATE_TEST_SUITE_P(Files, ShippedCatalogue, testing::Values(Buttons, Toggles),
                         [](const auto& row) {
                           const std::string file = row.param.file;
                           return file.substr(0, file.find('.'));
                         });

}  // namespace
}  // namespace vorlent
