#pragma once

#include "commands/heldValues.h"
#include "simlink/Accessors.h"
#include "store/modPublic.h"

/// The simulator's own autopilot takes over what the aircraft does now. A switch only sends it; a
/// button holds it as well, and what turns the target next begins there.
namespace vorlent {

inline void sendPresentSpeed(CommandContext& context) {
  context.accessors.autoP->apAirSpeed(context.store.Ias);
}

inline void sendPresentAltitude(CommandContext& context) {
  context.accessors.autoP->apAltitude(toSingle(context.store.AircraftAltitude));
}

inline void sendPresentMach(CommandContext& context) {
  context.accessors.autoP->ApMachNumber(context.store.Mach);
}

inline void takePresentSpeed(CommandContext& context) {
  McpSet(context, Mcp::AirSpeed) = context.store.Ias;
  sendPresentSpeed(context);
}

inline void takePresentAltitude(CommandContext& context) {
  McpSet(context, Mcp::Altitude) = toSingle(context.store.AircraftAltitude);
  sendPresentAltitude(context);
}

inline void takePresentMach(CommandContext& context) {
  McpSet(context, Mcp::Mach) = context.store.Mach;
  sendPresentMach(context);
}

}  // namespace vorlent
