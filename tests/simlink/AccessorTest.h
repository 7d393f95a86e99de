#pragma once

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "simlink/LinkTest.h"

namespace vorlent {

/// A link that is open, twin engines, and an autopilot that is not engaged: what an accessor needs.
/// Expected bytes are told low byte first.
class AccessorTest : public LinkTest {
 protected:
  using Write = FakeSimulatorBus::Write;
  using Call = std::function<void()>;

  static constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
  static constexpr double Infinity = std::numeric_limits<double>::infinity();
  static constexpr int Overflow = 6;

  void SetUp() override {
    initLink();
    t.server.accessors.autoP = std::make_unique<clsAutoP>(*t.server.fsuipc, false);
    t.server.autoflight.make();
    t.store.EngineCount = 2;
  }

  /// The call sends this and nothing else, in this order, a round trip each.
  void expectWrites(const std::string& what, const Call& call, const std::vector<Write>& expected) {
    SCOPED_TRACE(what);
    bus.writes.clear();
    bus.requests = 0;
    call();
    EXPECT_THAT(bus.writes, ::testing::ElementsAreArray(expected));
    EXPECT_EQ(bus.requests, static_cast<int>(expected.size()));
  }

  /// The call raises Overflow, after it has sent this.
  void expectOverflow(const std::string& what, const Call& call,
                      const std::vector<Write>& before = {}) {
    expectWrites(
        what, [&] { EXPECT_EQ(raisedBy(call), Overflow); }, before);
  }
};

}  // namespace vorlent
