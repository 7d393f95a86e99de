#include "input/commands.h"

#include <string>

#include "core/Server.h"
#include "core/frmMainClient.h"
#include "input/Keystrokes.h"

namespace vorlent {

void Commands::SetButtonValues(std::int16_t id, float /*value*/) {
  constexpr std::int16_t lastCommand = 1000;
  try {
    if (id > lastCommand) SendKeys(server_.ports.keyboard, KeyString(id));
  } catch (const RuntimeError& error) {
    server_.mainClient->SetStatusText(1, "SetButtonValues " + error.description());
  }
}

}  // namespace vorlent
