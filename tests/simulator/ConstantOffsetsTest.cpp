// docs/aircraft.md lists what is not modelled: it has to be what the aircraft shows.

#include "simulator/ConstantOffsets.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "simulator/dynamics/TwinJet.h"
#include "support/places.h"

namespace vorlent {
namespace {

using Cells = std::vector<std::string>;

/// The cells of a table's line without the blanks around them; none for any other line.
Cells cellsOf(const std::string& line) {
  Cells cells;
  if (line.empty() || line.front() != '|') return cells;
  std::istringstream rest(line.substr(1));
  for (std::string cell; std::getline(rest, cell, '|');) cells.push_back(trimmed(cell));
  return cells;
}

std::vector<Cells> documentedConstants() {
  std::ifstream file(docsFolder() + "/aircraft.md");
  const Cells heading{"Offset", "Type", "What", "Value", "Why"};
  std::vector<Cells> rows;
  bool inTable = false;
  for (std::string line; std::getline(file, line);) {
    const Cells cells = cellsOf(line);
    if (cells.empty()) inTable = false;
    if (inTable && !cells[0].starts_with("-")) rows.push_back(cells);
    if (cells == heading) inTable = true;
  }
  return rows;
}

std::string hexadecimal(std::size_t offset) {
  char text[8];
  std::snprintf(text, sizeof text, "%04zX", offset);
  return text;
}

Cells asDocumented(const ConstantOffset& constant) {
  constexpr const char* kinds[] = {"byte", "16 bits", "32 bits", "double"};
  const std::string last =
      constant.count > 1 ? " to " + hexadecimal(offsetOf(constant, constant.count - 1)) : "";
  return {hexadecimal(constant.offset) + last, kinds[static_cast<int>(constant.kind)],
          std::string(constant.name), std::to_string(std::lround(constant.value)),
          std::string(constant.why)};
}

TEST(ConstantOffsets, AreListedInTheDocument) {
  const auto documented = documentedConstants();
  ASSERT_EQ(documented.size(), constantOffsets().size());
  for (std::size_t i = 0; i < documented.size(); ++i)
    EXPECT_EQ(documented[i], asDocumented(constantOffsets()[i]));
}

double shown(const OffsetMemory& memory, const ConstantOffset& constant, std::size_t offset) {
  using Kind = ConstantOffset::Kind;
  if (constant.kind == Kind::Byte) return memory.read<std::uint8_t>(offset);
  if (constant.kind == Kind::Word) return memory.read<std::uint16_t>(offset);
  if (constant.kind == Kind::Long) return memory.read<std::uint32_t>(offset);
  return memory.read<double>(offset);
}

TEST(ConstantOffsets, StandAsListedThroughAFlight) {
  for (const StartingState state : {StartingState::Cold, StartingState::Final}) {
    OffsetMemory memory;
    TwinJet::Settings settings;
    settings.start = state;
    TwinJet aircraft(memory, settings);
    for (int i = 0; i < 300; ++i) aircraft.step(0.1);
    for (const ConstantOffset& constant : constantOffsets())
      for (int i = 0; i < constant.count; ++i)
        EXPECT_EQ(shown(memory, constant, offsetOf(constant, i)), constant.value) << constant.name;
  }
}

// 546 from 0274; 18 flags from 3BD6.
TEST(ConstantOffsets, AreWrittenInTheirWidths) {
  OffsetMemory memory;
  for (std::size_t at = 0; at < OffsetMemory::Size; ++at) memory.write<std::uint8_t>(at, 0xAA);
  writeConstantOffsets(memory);
  EXPECT_EQ(memory.read<std::uint32_t>(0x0274), 0xAAAA0222u);
  EXPECT_EQ(memory.read<std::uint16_t>(0x0609), 0xAA01);
  EXPECT_EQ(memory.read<std::uint32_t>(0x3BE6), 0xAAAA0000u);
  EXPECT_EQ(memory.read<std::uint8_t>(0x3BD5), 0xAA);
  EXPECT_EQ(memory.read<std::uint64_t>(0x0B88) >> 32, 0xAAAAAAAAu);
  EXPECT_EQ(memory.read<double>(0x2028), 0);
}

}  // namespace
}  // namespace vorlent
