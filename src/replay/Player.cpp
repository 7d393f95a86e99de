#include "replay/Player.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/RuntimeError.h"
#include "recording/sqlite/RecordingReader.h"
#include "replay/requests.h"

namespace vorlent {
namespace {

constexpr double MicrosecondsInASecond = 1e6;
constexpr std::size_t XPlaneMark = 0x6FFF;

}  // namespace

Player::Player(RecordingReader& reader)
    : reader_(reader),
      clock_(static_cast<double>(reader.summary().length_us) / MicrosecondsInASecond),
      requests_(
          memory_, [](const std::string&) {},
          [this](std::size_t offset, std::size_t size) { forget(offset, size); }) {
  findFirstPoll();
}

void Player::findFirstPoll() {
  while (auto event = next()) {
    take(*event);
    shown_us_ = firstPoll_us_ = event->time_us;
    const auto* exchanged = std::get_if<recorded::Exchanged>(&event->what);
    if (exchanged != nullptr && isPoll(*exchanged->request)) return;
  }
  throw RuntimeError(RuntimeError::InputPastEnd,
                     "There is no poll of a simulator in the recording");
}

bool Player::isXPlane() const { return recorded_.read<std::uint8_t>(XPlaneMark) != 0; }

void Player::advance(double elapsed_s) {
  clock_.advance(elapsed_s);
  show(static_cast<std::int64_t>(clock_.position_s() * MicrosecondsInASecond));
}

/// Backward it begins at the reader's nearest place before.
void Player::show(std::int64_t time_us) {
  const std::int64_t wanted_us = std::max(time_us, firstPoll_us_);
  if (wanted_us < shown_us_) {
    ahead_.reset();
    reader_.seek(wanted_us);
  }
  while (auto event = next()) {
    if (event->time_us > wanted_us) {
      ahead_ = std::move(event);
      break;
    }
    take(*event);
  }
  shown_us_ = wanted_us;
}

std::optional<recorded::Event> Player::next() {
  if (ahead_) return std::exchange(ahead_, std::nullopt);
  return reader_.next();
}

void Player::take(const recorded::Event& event) {
  const auto* exchanged = std::get_if<recorded::Exchanged>(&event.what);
  if (exchanged == nullptr) return;
  forEachRead(*exchanged, [this](std::uint32_t offset, std::span<const std::byte> bytes) {
    if (!OffsetMemory::contains(offset, bytes.size())) return;
    recorded_.copyIn(offset, bytes);
    memory_.copyIn(offset, bytes);
  });
}

void Player::forget(std::size_t offset, std::size_t size) {
  std::vector<std::byte> bytes(size);
  recorded_.copyOut(offset, bytes);
  memory_.copyIn(offset, bytes);
}

}  // namespace vorlent
