#pragma once

#include "input/commandArrays.h"
#include "simlink/clsAutoP.h"

/// The simulator's own autopilot takes over what the aircraft does now. A switch only sends it; a
/// button holds it as well, and what turns the target next begins there.
namespace vorlent {

inline void sendPresentSpeed(CommandContext& context) {
  context.server.autoP->apAirSpeed(context.server.store.Ias);
}

inline void sendPresentAltitude(CommandContext& context) {
  context.server.autoP->apAltitude(toSingle(context.server.store.AircraftAltitude));
}

inline void sendPresentMach(CommandContext& context) {
  context.server.autoP->ApMachNumber(context.server.store.Mach);
}

inline void takePresentSpeed(CommandContext& context) {
  McpSet(context, Mcp::AirSpeed) = context.server.store.Ias;
  sendPresentSpeed(context);
}

inline void takePresentAltitude(CommandContext& context) {
  McpSet(context, Mcp::Altitude) = toSingle(context.server.store.AircraftAltitude);
  sendPresentAltitude(context);
}

inline void takePresentMach(CommandContext& context) {
  McpSet(context, Mcp::Mach) = context.server.store.Mach;
  sendPresentMach(context);
}

}  // namespace vorlent
