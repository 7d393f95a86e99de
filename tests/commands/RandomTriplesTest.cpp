#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <span>
#include <string>

#include "commands/commands.h"
#include "support/TestServer.h"
#include "support/walks.h"

namespace vorlent {
namespace {

constexpr int TriplesPerDatagram = 20;
constexpr int DatagramPeriod_ms = 10;

class RandomTriples {
 public:
  explicit RandomTriples(unsigned seed) : random_(seed) {}

  std::string next() {
    const unsigned kind = below(4);
    return std::string(1, "APTE"[kind]) + " " + std::to_string(codeOf(kind)) + " " + value() + " ";
  }

  std::int16_t anyCode() { return static_cast<std::int16_t>(random_()); }
  std::int16_t codeOf(unsigned kind) {
    const unsigned draw = below(100);
    if (draw < 3) return anyCode();
    if (draw < 10) return static_cast<std::int16_t>(below(260));
    const std::span<const CommandRow> tables[] = {analogRows(), buttonRows(), toggleRows(),
                                                  encoderRows()};
    return tables[kind][below(static_cast<unsigned>(tables[kind].size()))].code;
  }
  float noNumber() {
    constexpr float values[] = {
        std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::signaling_NaN(),
        std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()};
    return values[below(4)];
  }
  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

 private:
  std::string value() {
    static const char* const edges[] = {"3.4028235E+38",
                                        "-3.4028235E+38",
                                        "3.5E+38",
                                        "1E+39",
                                        "-1E+300",
                                        "1E-46",
                                        "-1E-40",
                                        "32767.5",
                                        "-32768.5",
                                        "65535",
                                        "65536",
                                        "-65536",
                                        "255.5",
                                        "2147483648",
                                        "-2147483649",
                                        "-0",
                                        "nan",
                                        "-inf",
                                        "infinity",
                                        "",
                                        "x",
                                        "1,5",
                                        "0x10",
                                        "1E",
                                        "999999999999999999999"};
    const unsigned draw = below(1000);
    if (draw < 20) return edges[below(std::size(edges))];
    if (draw < 500) return std::to_string(static_cast<int>(below(7)) - 3);
    const double spread = draw < 750 ? 1000 : draw < 990 ? 40000 : 1e30;
    return std::to_string(std::uniform_real_distribution<double>(-spread, spread)(random_));
  }

  std::mt19937 random_;
};

class CountingCommands : public Commands {
 public:
  using Commands::Commands;
  void SetAnalogValues(std::int16_t code, float value) override {
    ++calls;
    Commands::SetAnalogValues(code, value);
  }
  void SetButtonValues(std::int16_t code, float value) override {
    ++calls;
    Commands::SetButtonValues(code, value);
  }
  void SetToggleValues(std::int16_t code, float value) override {
    ++calls;
    Commands::SetToggleValues(code, value);
  }
  void SetEncoderValues(std::int16_t code, float value) override {
    ++calls;
    Commands::SetEncoderValues(code, value);
  }

  int calls = 0;
};

bool isInsideTheOffsets(const FakeSimulatorBus::Write& write) {
  return write.offset + write.bytes.size() <= 0x10000;
}

bool isNumber(const FakeSimulatorBus::Write& write) {
  double number = 0;
  if (write.bytes.size() != sizeof number) return true;
  std::memcpy(&number, write.bytes.data(), sizeof number);
  return std::isfinite(number);
}

class RandomTriplesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    t.bus.put(0x0AEC, std::uint8_t{2});
    t.start();
    t.greet(0);
    auto counting = std::make_unique<CountingCommands>(t.server.commandContext());
    carriedOut = &counting->calls;
    t.server.commands = std::move(counting);
    ASSERT_EQ(t.exitStatus(), std::nullopt);
  }

  void expectNothingOutOfBounds() {
    for (const auto& write : t.bus.writes) {
      ASSERT_TRUE(isInsideTheOffsets(write)) << write.offset;
      ASSERT_TRUE(isNumber(write)) << write.offset;
    }
    ASSERT_EQ(t.store.DataRecord.find("nan"), std::string::npos) << t.store.DataRecord;
    ASSERT_EQ(t.store.DataRecord.find("inf"), std::string::npos) << t.store.DataRecord;
    ASSERT_EQ(t.exitStatus(), std::nullopt) << t.log();
    written += t.bus.writes.size();
    t.bus.writes.clear();
    t.keyboard.pressed.clear();
    t.network.takeSent();
  }

  /// What no text can bring: NaN and infinity, and readings beyond a lever's travel.
  void callWithWhatIsNoNumber() {
    Commands& commands = *t.server.commands;
    commands.SetAnalogValues(random.codeOf(0), random.noNumber());
    commands.SetButtonValues(random.codeOf(1), random.noNumber());
    commands.SetToggleValues(random.codeOf(2), random.noNumber());
    commands.SetEncoderValues(random.codeOf(3), random.noNumber());
    commands.AnalogValue(random.anyCode(), random.noNumber(), 0);
    commands.AnalogValue(static_cast<std::int16_t>(random.below(110)), 1e38F, 3);
  }

  TestServer t;
  RandomTriples random{20240607};
  const int* carriedOut = nullptr;
  std::size_t written = 0;
};

TEST_F(RandomTriplesTest, AMillionLeaveTheServerFlyingAndTheSimulatorInBounds) {
  const int triples = walkLength(1'000'000);
  for (int datagrams = 0; *carriedOut < triples; ++datagrams) {
    std::string datagram = "p ";
    for (int n = 0; n < TriplesPerDatagram; ++n) datagram += random.next();
    t.deliver(0, datagram);
    if (datagrams % 50 == 0) callWithWhatIsNoNumber();
    t.loop.advance(DatagramPeriod_ms);
    ASSERT_NO_FATAL_FAILURE(expectNothingOutOfBounds());
  }
  EXPECT_GT(written, static_cast<std::size_t>(triples) / 2);

  t.bus.put(0x0264, std::uint8_t{0});
  t.bus.put(0x02BC, std::uint32_t{250 * 128});
  t.loop.advance(10000);
  EXPECT_EQ(t.store.Ias, 250) << "the poll runs";
  EXPECT_NEAR(t.store.AvgIas, 250, 5) << "the cycle runs";
  EXPECT_GE(t.network.takeSent().size(), 90U) << "the display is served";
  t.deliver(0, "p A 0 123 ");
  EXPECT_EQ(t.store.RadioValues(12), 123);
}

}  // namespace
}  // namespace vorlent
