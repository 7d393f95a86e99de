#include "replay/ReplayPorts.h"

#include <utility>

#include "platform/SilentBuffer.h"
#include "recording/portTexts.h"
#include "replay/Tape.h"

namespace vorlent {
namespace {

using recorded::Call;

/// As Call::FileRead tells it.
enum FileAnswer : std::int64_t { NotThere = 0, Read = 1, TooLarge = 2 };

/// Told only where it is not Ok.
ControllerResult resultOf(Tape& tape, Call call) {
  constexpr auto Ok = static_cast<std::int64_t>(ControllerResult::Ok);
  return static_cast<ControllerResult>(tape.numberOf(call, Ok));
}

/// Runs what has waited longest, which may ask for more work.
template <class Done, class Result>
void finishFirst(std::deque<Done>& open, const Result& result) {
  if (open.empty()) return;
  const Done done = std::move(open.front());
  open.pop_front();
  done(result);
}

}  // namespace

bool ReplayNetworkFiles::exists(const std::string&) { return tape_.isYes(Call::FileExists); }

bool ReplayNetworkFiles::write(const std::string&, const std::string&) {
  return tape_.isYes(Call::FileWrite);
}

bool ReplayNetworkFiles::remove(const std::string&) { return tape_.isYes(Call::FileRemove); }

NetworkContent ReplayNetworkFiles::readUpTo(const std::string&, std::size_t) {
  const auto given = tape_.answer(Call::FileRead);
  if (!given || given->number == FileAnswer::NotThere) return {};
  return given->number == FileAnswer::TooLarge ? NetworkContent::ofTooLargeFile() : given->text;
}

bool ReplayPerformanceDb::open(const std::string&) { return tape_.isYes(Call::DatabaseOpen); }

PerformanceReading ReplayPerformanceDb::read() {
  const auto given = tape_.answer(Call::DatabaseRead);
  return given ? recorded::performanceOf(given->text) : PerformanceReading{};
}

std::vector<ControllerInfo> ReplayControllers::devices() {
  return recorded::controllersOf(tape_.textOf(Call::Controllers));
}

ControllerResult ReplayControllers::Acquire(std::size_t) {
  return resultOf(tape_, Call::AcquireStick);
}

ControllerResult ReplayControllers::Poll(std::size_t) { return resultOf(tape_, Call::PollStick); }

ControllerResult ReplayControllers::GetDeviceState(std::size_t, ControllerState& state) {
  const auto given = tape_.answer(Call::ReadStick);
  if (!given) return ControllerResult::Unplugged;
  const auto result = static_cast<ControllerResult>(given->number);
  if (result == ControllerResult::Ok) state = recorded::stickOf(given->text);
  return result;
}

std::vector<std::string> ReplaySounds::devices() { return tape_.linesOf(Call::SoundDevices); }

bool ReplaySounds::open(int, std::intptr_t) { return tape_.isYes(Call::OpenSound); }

std::unique_ptr<SoundBuffer> ReplaySounds::createBuffer(const std::string&) {
  tape_.answer(Call::CreateSound);
  return std::make_unique<SilentBuffer>();
}

std::optional<std::string> ReplaySounds::news() {
  const auto given = tape_.answer(Call::SoundNews);
  return given ? std::optional(given->text) : std::nullopt;
}

bool ReplayMachine::publish(const std::string&, const std::string&) {
  return tape_.isYes(Call::PublishShare);
}

std::string ReplayMachine::decimalSeparator() { return tape_.textOf(Call::DecimalSeparator); }

bool ReplayMachine::claim(const std::string&) { return tape_.isYes(Call::ClaimInstance); }

void ReplayMachine::press(const KeyCombination&) { tape_.answer(Call::PressKey); }

std::vector<std::string> ReplayMachine::drives() { return tape_.linesOf(Call::Drives); }

std::optional<std::string> ReplayMachine::chosen() {
  const auto given = tape_.answer(Call::ChooseFile);
  if (!given || given->number == 0) return std::nullopt;
  return given->text;
}

void ReplayDocuments::finish(int result) { finishFirst(open_, result); }

void ReplayZipFiles::finish(const std::string& fault) { finishFirst(open_, fault); }

}  // namespace vorlent
