#include "tap/Tap.h"

#include "platform/RecorderLink.h"

namespace vorlent {

void Tap::tell(recorded::What what) {
  if (!link_.lost()) queue_.add({clock_(), std::move(what)});
}

void Tap::flush() {
  if (!link_.lost()) queue_.flush();
}

void Tap::end() {
  if (!link_.lost()) queue_.end();
}

}  // namespace vorlent
