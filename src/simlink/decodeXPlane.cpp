#include "simlink/decodeXPlane.h"

#include <vector>

#include "simlink/statements.h"

namespace vorlent {
namespace {

// The order is the other poll's, for the same reasons: decode.cpp.
constexpr XPlaneFamily BeforeEngines[] = {xplaneSystemRows, xplaneFlightRows, xplaneRadioRows,
                                          xplaneEngineCountRows};
constexpr XPlaneFamily AfterEngines[] = {xplaneFuelRows, xplaneControlRows, xplaneReceiverRows,
                                         xplaneWeatherRows, xplaneSimAutopilotRows};

void decodeFamilies(std::span<const XPlaneFamily> families, const Snapshot& snapshot,
                    modPublic& variables) {
  for (const XPlaneFamily family : families)
    for (const XPlaneRow& row : family())
      attempt([&] { row.decode({snapshot, row.reads}, variables); });
}

class ReadList {
 public:
  void add(const TypedReads& rowsReads, const char* name, int engineNumber = 1) {
    for (const TypedRead& read : rowsReads)
      if (read.kind == TypedKind::Text)
        append(name, offsetOf(read), read.count);
      else if (read.kind != TypedKind::None)
        addElements(read, name, engineNumber);
  }

  std::vector<SnapshotRead> reads;

 private:
  void addElements(const TypedRead& read, const char* name, int engineNumber) {
    const std::uint16_t size = elementSize(read.kind);
    for (std::uint32_t element = 0; element < read.count; ++element)
      append(name, offsetOf(read, engineNumber) + element * size, size);
  }
  void append(const char* name, std::uint32_t offset, std::uint16_t size) {
    reads.push_back({name, static_cast<std::uint16_t>(offset), size});
  }
};

void addFamilies(ReadList& list, std::span<const XPlaneFamily> families) {
  for (const XPlaneFamily family : families)
    for (const XPlaneRow& row : family()) list.add(row.reads, row.name);
}

std::vector<SnapshotRead> collectReads() {
  ReadList list;
  addFamilies(list, BeforeEngines);
  addFamilies(list, AfterEngines);
  for (int number = 1; number <= 4; ++number)
    for (const XPlaneEngineRow& row : xplaneEngineRows()) list.add(row.reads, row.name, number);
  return list.reads;
}

}  // namespace

double TypedInput::number(std::size_t read, std::uint32_t element) const {
  const TypedRead& typed = reads[read];
  const std::uint32_t at = offsetOf(typed, engineNumber) + element * elementSize(typed.kind);
  switch (typed.kind) {
    case TypedKind::Byte:
      return s.u8(at);
    case TypedKind::Unsigned16:
      return s.u16(at);
    case TypedKind::Signed16:
      return s.i16(at);
    case TypedKind::Unsigned32:
      return s.u32(at);
    case TypedKind::Signed32:
      return s.i32(at);
    case TypedKind::Double:
      return s.f64(at);
    case TypedKind::Text:
    case TypedKind::None:
      break;
  }
  return 0;
}

std::span<const SnapshotRead> xplaneReads() {
  static const std::vector<SnapshotRead> reads = collectReads();
  return reads;
}

void decodeXPlane(const Snapshot& snapshot, modPublic& variables) {
  decodeFamilies(BeforeEngines, snapshot, variables);
  for (int number = 1; number <= 4; ++number) DecodeEngine(number, snapshot, variables);
  decodeFamilies(AfterEngines, snapshot, variables);
}

void DecodeEngine(int number, const Snapshot& snapshot, modPublic& variables) {
  Engine& engine = variables.Engines(number);
  for (const XPlaneEngineRow& row : xplaneEngineRows())
    attempt([&] { row.decode({snapshot, row.reads, number}, variables, engine); });
}

}  // namespace vorlent
