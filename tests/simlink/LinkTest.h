#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/ProcessEnd.h"
#include "base/bytes.h"
#include "support/TestServer.h"
#include "support/raisedBy.h"

namespace vorlent {

/// The transport of a server that has not been started, with the simulator in the same process.
class LinkTest : public ::testing::Test {
 protected:
  using Bytes = std::vector<std::uint8_t>;

  /// Opens the link and forgets what that took.
  void open() {
    ASSERT_TRUE(link.Open(0, result));
    forgetTheOpening();
  }
  /// As open(), with the other side identified.
  void initLink() {
    ASSERT_TRUE(link.InitLink());
    forgetTheOpening();
  }

  /// The block from now on, as the simulator finds it at each message.
  void recordRequests() {
    bus.onArrival = [this](const std::byte* block) {
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(block);
      request.assign(bytes, bytes + clsFSUIPC::BlockSize_bytes);
    };
  }
  Bytes requestFrom(std::size_t at, std::size_t count) const {
    const auto begin = request.begin() + static_cast<std::ptrdiff_t>(at);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
  }

  /// The simulator leaves these 32-bit words at the start of the block and answers 1.
  void answerWith(const std::vector<std::uint32_t>& words) {
    bus.onRequest = [words](SendResult served, std::byte* block) {
      for (const std::uint32_t word : words) {
        store(block, word);
        block += sizeof word;
      }
      return served;
    };
  }

  int sleptSinceOpening_ms() const { return t.loop.sleptInTotal_ms() - sleptAtOpening_ms_; }

  /// The exit status with which the work ends the process, 0 when it does not.
  template <class Work>
  static int endedBy(Work work) {
    try {
      work();
      return 0;
    } catch (const ProcessEnd& end) {
      return end.exitStatus;
    }
  }

  TestServer t;
  FakeSimulatorBus& bus = t.bus;
  clsFSUIPC& link = *t.server.fsuipc;
  int result = -1;
  Bytes request;

 private:
  void forgetTheOpening() {
    bus.requests = 0;
    bus.writes.clear();
    bus.calls.clear();
    sleptAtOpening_ms_ = t.loop.sleptInTotal_ms();
  }

  int sleptAtOpening_ms_ = 0;
};

}  // namespace vorlent
