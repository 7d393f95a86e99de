#pragma once

#include "input/commandArrays.h"
#include "simlink/clsAutoP.h"

/// The simulator's own autopilot takes over what the aircraft does now.
namespace vorlent {

inline void takePresentSpeed(CommandContext& context) {
  McpSet(context, Mcp::AirSpeed) = context.server.store.Ias;
  context.server.autoP->apAirSpeed(context.server.store.Ias);
}

inline void takePresentAltitude(CommandContext& context) {
  const float altitude_ft = toSingle(context.server.store.AircraftAltitude);
  McpSet(context, Mcp::Altitude) = altitude_ft;
  context.server.autoP->apAltitude(altitude_ft);
}

inline void takePresentMach(CommandContext& context) {
  McpSet(context, Mcp::Mach) = context.server.store.Mach;
  context.server.autoP->ApMachNumber(context.server.store.Mach);
}

}  // namespace vorlent
