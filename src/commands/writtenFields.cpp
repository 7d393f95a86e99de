#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "commands/commands.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {
namespace {

template <class Number>
double numberIn(const std::array<std::byte, 8>& bytes) {
  Number number{};
  std::memcpy(&number, bytes.data(), sizeof number);
  return static_cast<double>(number);
}

double numberIn(const std::array<std::byte, 8>& bytes, std::uint32_t size_bytes) {
  if (size_bytes == 1) return numberIn<std::uint8_t>(bytes);
  if (size_bytes == 2) return numberIn<std::int16_t>(bytes);
  return size_bytes == 4 ? numberIn<std::int32_t>(bytes) : numberIn<double>(bytes);
}

}  // namespace

void Commands::watchSimulator(bool watched) {
  written_.clear();
  if (!watched) return context_.link.watchWrites(nullptr);
  context_.link.watchWrites([this](std::uint32_t offset, std::uint32_t size_bytes) {
    const SimulatorField field{offset, size_bytes};
    if (std::find(written_.begin(), written_.end(), field) == written_.end())
      written_.push_back(field);
  });
}

std::vector<SimulatorField> Commands::takeWritten() { return std::exchange(written_, {}); }

std::optional<double> Commands::held(const SimulatorField& field) {
  std::array<std::byte, 8> bytes{};
  int result = 0;
  clsFSUIPC& link = context_.link;
  if (field.size_bytes > bytes.size()) return std::nullopt;
  if (!link.QueueRead(field.offset, field.size_bytes, bytes.data(), result)) return std::nullopt;
  if (!link.Process(result)) return std::nullopt;
  return numberIn(bytes, field.size_bytes);
}

}  // namespace vorlent
