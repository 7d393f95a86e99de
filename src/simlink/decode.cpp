#include "simlink/decode.h"

#include "simlink/statements.h"

namespace vorlent {
namespace {

// Which family comes where matters in three places:
// the indicated speed of the flight reads whether the simulator is paused, a row of the systems;
// how many engines there are, and of which type, must stand before the engines come;
// the fuel used of each engine takes the fuel's weight that the poll before left, so that the fuel
// comes after the engines.
// Within a family a row that reads another variable stands below that variable's row.
constexpr Family BeforeEngines[] = {systemRows, flightRows, radioRows, engineCountRows};
constexpr Family AfterEngines[] = {fuelRows, controlRows, receiverRows, weatherRows,
                                   simAutopilotRows};

}  // namespace

std::span<const Family> familiesBeforeEngines() { return BeforeEngines; }
std::span<const Family> familiesAfterEngines() { return AfterEngines; }

void decode(std::span<const Family> families, const Snapshot& snapshot, modPublic& variables) {
  for (const Family family : families)
    for (const DecodeRow& row : family()) attempt([&] { row.decode(snapshot, variables); });
}

void decodeEngine(int number, const Snapshot& snapshot, modPublic& variables) {
  const EngineInput input{snapshot, variables, number};
  Engine& engine = variables.Engines(number);
  for (const EngineRow& row : engineRows()) attempt([&] { row.decode(input, engine); });
}

}  // namespace vorlent
