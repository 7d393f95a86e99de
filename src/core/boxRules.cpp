#include "core/boxRules.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/RuntimeError.h"
#include "base/TextLines.h"
#include "base/text.h"
#include "core/ClientPorts.h"
#include "core/frmMainClient.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

/// The table of detents has no room for more.
constexpr std::size_t MostFlapPositions = 15;

using Rule = std::function<std::string(const std::string&)>;

Rule numberFrom(int lowest, int highest) {
  return [lowest, highest](const std::string& text) -> std::string {
    const auto number = numeric(text);
    if (number && *number >= lowest && *number <= highest) return {};
    return "Needs a number from " + std::to_string(lowest) + " to " + std::to_string(highest);
  };
}

std::string tankComplaint(const std::string& text, const std::string& decimalMark) {
  try {
    if (regionalNumberOf(text, decimalMark) >= 0) return {};
  } catch (const RuntimeError&) {
    // Told below, like a negative one.
  }
  return "Needs a number of US gallons";
}

bool isInt16(const std::string& text) {
  const auto number = numeric(text);
  return number && *number >= INT16_MIN && *number <= INT16_MAX;
}

std::string flapsComplaint(const std::string& line) {
  const auto fields = commaFields(line);
  if (fields.size() <= MostFlapPositions && std::all_of(fields.begin(), fields.end(), isInt16))
    return {};
  return "Needs up to " + std::to_string(MostFlapPositions) + " numbers with commas between";
}

}  // namespace

void setBoxRules(frmMainClient& form, const modPublic& store) {
  form.txtPoll.rule(numberFrom(0, INT16_MAX));
  form.txtClients.rule(numberFrom(0, INT16_MAX));
  form.txtPort.rule(numberFrom(ClientPorts::LowestPort, ClientPorts::HighestPort));
  form.txtFlaps.rule(flapsComplaint);
  for (TextBox* tank : {&form.txtLeftMain, &form.txtRightMain, &form.txtLeftAux, &form.txtRightAux})
    tank->rule([&store](const std::string& text) { return tankComplaint(text, store.sDecimal); });
}

}  // namespace vorlent
