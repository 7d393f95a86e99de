#pragma once

#include "autoflight/Autoflight.h"
#include "autoflight/clsAfds.h"
#include "commands/CommandTable.h"
#include "store/modPublic.h"

namespace vorlent {

/// Does `work(bug)` with the N1 bugs, percent, that the selector means. In positions 1 and 2 it
/// means the bug of the other engine, as where the bugs are read. docs/peculiarities.md: N1
/// selector.
template <class Work>
void withSelectedN1Bugs(CommandContext& context, const Work& work) {
  auto& engines = context.store.Engines;
  const std::int16_t selector = context.autoflight.afds->N1SwitchStatus();
  if (selector == 2 || selector == 4) work(engines(1).N1Target);
  if (selector == 1 || selector == 4) work(engines(2).N1Target);
}

}  // namespace vorlent
