#include "commands/engineCommands.h"

#include <array>
#include <cstddef>

#include "commands/heldValues.h"
#include "simlink/Accessors.h"
#include "simlink/controlWriters.h"
#include "store/modPublic.h"

namespace vorlent {
namespace {

constexpr std::array<std::uint32_t, 4> StartLevers{0x08B2, 0x094A, 0x09E2, 0x0A7A};

}  // namespace

void selectEngine(CommandContext& context, int engine) {
  writeByte(context.link, 0x0888, engine == AllEngines ? context.store.EngineCount : engine);
}

void setMagneto(CommandContext& context, int engine, float position) {
  if (engine == AllEngines)
    context.accessors.eng->SetMagnetoAll(position);
  else
    context.accessors.eng->Magneto(engine, position);
}

void setMagnetoAndSelect(CommandContext& context, int engine, float position) {
  setMagneto(context, engine, position);
  ControlSet(context, ControlItem::Magneto) = position;
  selectEngine(context, engine);
}

void setMixture(CommandContext& context, int engine, float percent) {
  if (engine == AllEngines)
    context.accessors.eng->SetMixtureAll(percent);
  else
    context.accessors.eng->Mixture(engine, percent);
}

void setStartLever(CommandContext& context, int engine, float position) {
  if (engine != AllEngines) {
    writeByte(context.link, StartLevers.at(static_cast<std::size_t>(engine - 1)), position);
    return;
  }
  for (const std::uint32_t lever : StartLevers) writeByte(context.link, lever, position);
}

}  // namespace vorlent
