#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "bridge/Bridge.h"
#include "bridge/mappings.h"
#include "bridge/support/FakeSockets.h"
#include "simulator/OffsetMemory.h"

namespace vorlent {

/// A bridge in virtual time: a client's requests at the one end, FakeSockets at the other.
class BridgeTest : public testing::Test {
 protected:
  explicit BridgeTest(Mapping simulator) : mapping(std::move(simulator)) {}

  void open(SimulatorLink& link, const std::string& aircraft = "") {
    bridge = std::make_unique<Bridge>(
        *memory, mapping, link, [this] { return now_s; },
        [this](const std::string& text) { notes.push_back(text); }, aircraft);
  }

  /// As a client does: by requests.
  template <class T>
  T read(std::uint32_t offset) {
    std::array<std::byte, 64> block{};
    const std::uint32_t head[]{1, offset, sizeof(T), 0};
    std::memcpy(block.data(), head, sizeof head);
    EXPECT_EQ(bridge->answer(block), 1);
    return load<T>(block.data() + sizeof head);
  }
  template <class T>
  void write(std::uint32_t offset, T value) {
    std::array<std::byte, 64> block{};
    const std::uint32_t head[]{2, offset, sizeof(T)};
    std::memcpy(block.data(), head, sizeof head);
    store(block.data() + sizeof head, value);
    EXPECT_EQ(bridge->answer(block), 1);
  }
  bool ready() { return read<std::uint8_t>(0x3364) == 0; }
  int told(const std::string& part) const {
    return static_cast<int>(std::count_if(notes.begin(), notes.end(), [&](const std::string& note) {
      return note.find(part) != std::string::npos;
    }));
  }

  double now_s = 1000;
  FakeSockets sockets;
  Mapping mapping;
  std::vector<std::string> notes;
  std::unique_ptr<OffsetMemory> memory = std::make_unique<OffsetMemory>();
  std::unique_ptr<Bridge> bridge;
};

}  // namespace vorlent
