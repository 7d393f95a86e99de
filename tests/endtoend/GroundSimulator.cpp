#include "endtoend/GroundSimulator.h"

namespace vorlent {

GroundSimulator::GroundSimulator(const std::string& busFolder)
    : bus_("VORLENT_BUS", busFolder),
      listener_(listenForRequests({"UIPCMAIN", "FS98MAIN"}, [this](std::span<std::byte> block) {
        const std::lock_guard lock(mutex_);
        return host_.answer(block);
      })) {
  put<std::uint8_t>(0x0AEC, 2);  // engines
  put<std::uint8_t>(0x0609, 1);  // jets
  put<std::uint16_t>(0x3BFA, 2048);
  serving_ = std::thread([this] {
    while (!ending_) listener_->serve(20);
  });
}

GroundSimulator::~GroundSimulator() {
  ending_ = true;
  serving_.join();
}

}  // namespace vorlent
