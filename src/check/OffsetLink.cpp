#include "check/OffsetLink.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

constexpr std::size_t BlockSize_bytes = 32768;
constexpr int AnswerLimit_ms = 2000;
constexpr int Tries = 25;
constexpr int Pause_ms = 100;
constexpr std::uint32_t OldestVersion = 0x19980005;
constexpr std::uint32_t SimulatorMark = 0xFADE;
const std::string messageText = "FSASMLIB:IPC";

[[noreturn]] void refuse(const std::string& why) {
  throw RuntimeError(RuntimeError::InvalidCall, why);
}

}  // namespace

OffsetLink::OffsetLink(SimulatorBus& bus, const Sleep& sleep) : bus_(bus) {
  try {
    open();
    identify(sleep);
  } catch (const RuntimeError&) {
    close();
    throw;
  }
}

OffsetLink::~OffsetLink() { close(); }

void OffsetLink::open() {
  window_ = bus_.findWindow("UIPCMAIN");
  if (window_ == 0) window_ = bus_.findWindow("FS98MAIN");
  if (window_ == 0) {
    const std::string obstacle = bus_.obstacle();
    refuse(obstacle.empty() ? "no simulator side listens as UIPCMAIN or FS98MAIN" : obstacle);
  }
  const std::string name = fmt::format("{}:{:X}:C", messageText, bus_.processId());
  message_ = bus_.registerMessage(messageText);
  atom_ = bus_.addAtom(name);
  block_ = bus_.createBlock(name, BlockSize_bytes).block;
  if (block_ != 0) view_ = bus_.mapBlock(block_);
  if (message_ == 0 || atom_ == 0 || view_ == nullptr)
    refuse("this machine does not give the shared memory of the interface");
}

void OffsetLink::identify(const Sleep& sleep) {
  for (int i = 0; i < Tries && (version_ == 0 || simulator_ == 0); ++i) {
    if (i > 0) sleep(Pause_ms);
    read(0x3304, std::as_writable_bytes(std::span(&version_, 1)));
    read(0x3308, std::as_writable_bytes(std::span(&simulator_, 1)));
  }
  if (version_ < OldestVersion)
    refuse(fmt::format("offset 3304 is {:08X}, and has to be at least {:08X}", version_,
                       OldestVersion));
  if (simulator_ >> 16 != SimulatorMark)
    refuse(fmt::format("offset 3308 is {:08X}, and has to begin with FADE", simulator_));
}

void OffsetLink::close() {
  if (atom_ != 0) bus_.deleteAtom(atom_);
  if (view_ != nullptr) bus_.unmapBlock(view_);
  if (block_ != 0) bus_.dropBlock(block_);
}

bool OffsetLink::read(std::uint32_t offset, std::span<std::byte> data) {
  const std::array<std::uint32_t, 4> head{1, offset, static_cast<std::uint32_t>(data.size()), 0};
  std::memcpy(view_, head.data(), sizeof head);
  std::copy(data.begin(), data.end(), view_ + sizeof head);
  std::fill_n(view_ + sizeof head + data.size(), 4, std::byte{0});
  if (!send()) return false;
  std::copy_n(view_ + sizeof head, data.size(), data.begin());
  return true;
}

bool OffsetLink::write(std::uint32_t offset, std::span<const std::byte> data) {
  const std::array<std::uint32_t, 3> head{2, offset, static_cast<std::uint32_t>(data.size())};
  std::memcpy(view_, head.data(), sizeof head);
  std::copy(data.begin(), data.end(), view_ + sizeof head);
  std::fill_n(view_ + sizeof head + data.size(), 4, std::byte{0});
  return send();
}

bool OffsetLink::readTogether(std::span<const Extent> reads) {
  std::byte* to = view_;
  for (const Extent& read : reads) {
    const std::array<std::uint32_t, 4> head{1, read.offset, read.size, 0};
    std::memcpy(to, head.data(), sizeof head);
    to += sizeof head + read.size;
  }
  std::fill_n(to, 4, std::byte{0});
  return send();
}

bool OffsetLink::send() {
  const SendResult result = bus_.sendMessage(window_, message_, atom_, AnswerLimit_ms);
  if (!result.answered) refuse("the simulator side does not answer a request within 2 seconds");
  return result.reply == 1;
}

}  // namespace vorlent
