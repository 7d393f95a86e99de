#include "core/PollTick.h"

#include "clientlink/DataRecord.h"
#include "core/Server.h"
#include "extras/SoundEvents.h"
#include "platform/EventLoop.h"
#include "simlink/Poll.h"
#include "simlink/clsFSUIPC.h"

namespace vorlent {

void PollTick::run() {
  if (isXPlane())
    server_.poll->PollXPlane();
  else
    server_.poll->PollFS();
  record();
  server_.soundEvents->PollStep();
  lastPoll_ms_ = server_.ports.eventLoop.tickCount_ms();
}

std::optional<std::uint32_t> PollTick::age_ms() const {
  if (!lastPoll_ms_) return std::nullopt;
  return server_.ports.eventLoop.tickCount_ms() - *lastPoll_ms_;
}

void PollTick::decodeAndRecord(const Snapshot& snapshot) {
  if (isXPlane())
    server_.poll->decodeAllXPlane(snapshot);
  else
    server_.poll->decodeAll(snapshot);
  record();
}

void PollTick::record() {
  const int blocks =
      isXPlane() ? server_.poll->enginesOfXPlane() : engineBlocks(server_.store.EngineCount);
  buildDataRecord(server_.store, server_.autoflight, blocks);
}

bool PollTick::isXPlane() const { return server_.fsuipc->XPlane() != 0; }

}  // namespace vorlent
