#pragma once

namespace vorlent {

class EventLoop;
class Operator;
class SimulatorBus;
class StatusLine;

/// What the link to the simulator stands on.
struct SimLinkContext {
  SimulatorBus& bus;
  EventLoop& eventLoop;
  Operator& op;
  StatusLine& status;
};

}  // namespace vorlent
