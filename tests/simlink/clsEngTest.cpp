#include "simlink/AccessorTest.h"

namespace vorlent {
namespace {

class ClsEng : public AccessorTest {
 protected:
  clsEng& eng() { return *t.server.accessors.eng; }

  void expectThrottle(float percent, const Bytes& bytes) {
    expectWrites(std::to_string(percent), [&] { eng().Throttle(1, percent); }, {{0x088C, bytes}});
  }
};

TEST_F(ClsEng, EnginesLie152BytesApart) {
  constexpr std::uint32_t throttles[] = {0x088C, 0x0924, 0x09BC, 0x0A54};
  constexpr std::uint32_t props[] = {0x088E, 0x0926, 0x09BE, 0x0A56};
  constexpr std::uint32_t mixtures[] = {0x0890, 0x0928, 0x09C0, 0x0A58};
  constexpr std::uint32_t magnetos[] = {0x0892, 0x092A, 0x09C2, 0x0A5A};
  for (const int engine : {1, 2, 3, 4}) {
    const auto at = static_cast<std::size_t>(engine - 1);
    const std::string name = "engine " + std::to_string(engine);
    expectWrites(name, [&] { eng().Throttle(engine, 100); }, {{throttles[at], {0xFF, 0x3F}}});
    expectWrites(name, [&] { eng().PropAdvance(engine, 60); }, {{props[at], {0x66, 0x26}}});
    expectWrites(name, [&] { eng().Mixture(engine, 99); }, {{mixtures[at], {0x5B, 0x3F}}});
    expectWrites(name, [&] { eng().Magneto(engine, 4); }, {{magnetos[at], {4}}});
  }
}

TEST_F(ClsEng, ThrottleIsRoundedHalfToEven) {
  expectThrottle(0, {0x00, 0x00});
  expectThrottle(33.3F, {0x50, 0x15});  // 5455.54
  expectThrottle(50, {0x00, 0x20});     // 8191.5
  expectThrottle(100, {0xFF, 0x3F});    // 16383
}

TEST_F(ClsEng, ThrottleBelowZeroHas65535AddedAfterRounding) {
  expectThrottle(-25, {0xFF, 0xEF});      // -4095.75: 65535 - 4096
  expectThrottle(-100, {0x00, 0xC0});     // 65535 - 16383
  expectThrottle(-0.004F, {0xFE, 0xFF});  // -0.66: 65535 - 1
}

TEST_F(ClsEng, ThrottleThatRoundsToZeroIsZero) { expectThrottle(-0.002F, {0x00, 0x00}); }

TEST_F(ClsEng, ThrottleBeyondSixteenBitsIsItsLowHalf) {
  expectThrottle(500, {0xFB, 0x3F});  // 81915 - 65536
}

TEST_F(ClsEng, PropAdvanceAndMixtureBelowZeroAreTwosComplement) {
  expectWrites("prop", [&] { eng().PropAdvance(1, -10); }, {{0x088E, {0x9A, 0xF9}}});  // -1638
  expectWrites("mixture", [&] { eng().Mixture(1, -10); }, {{0x0890, {0x9A, 0xF9}}});
}

TEST_F(ClsEng, MixtureIsRoundedHalfToEven) {
  expectWrites("mixture", [&] { eng().Mixture(1, 50); }, {{0x0890, {0x00, 0x20}}});  // 8191.5
}

TEST_F(ClsEng, MagnetoIsOneByteCutToAWholeNumber) {
  expectWrites("3.9", [&] { eng().Magneto(2, 3.9F); }, {{0x092A, {3}}});
  expectOverflow("256", [&] { eng().Magneto(2, 256); });
  expectOverflow("-1", [&] { eng().Magneto(2, -1); });
}

TEST_F(ClsEng, LeverBeyondThirtyTwoBitsIsAnOverflow) {
  for (const float percent : {1.4e7F, -1.4e7F, NaN}) {
    expectOverflow("throttle", [&] { eng().Throttle(1, percent); });
    expectOverflow("prop", [&] { eng().PropAdvance(1, percent); });
    expectOverflow("mixture", [&] { eng().Mixture(1, percent); });
  }
}

TEST_F(ClsEng, AllServesEveryEngineInTurn) {
  t.store.EngineCount = 4;
  expectWrites("throttles", [&] { eng().SetThrottles(-25); },
               {{0x088C, {0xFF, 0xEF}},
                {0x0924, {0xFF, 0xEF}},
                {0x09BC, {0xFF, 0xEF}},
                {0x0A54, {0xFF, 0xEF}}});
  t.store.EngineCount = 2;
  expectWrites("props", [&] { eng().SetPropAdvanceAll(60); },
               {{0x088E, {0x66, 0x26}}, {0x0926, {0x66, 0x26}}});
  expectWrites("mixtures", [&] { eng().SetMixtureAll(99); },
               {{0x0890, {0x5B, 0x3F}}, {0x0928, {0x5B, 0x3F}}});
  expectWrites("magnetos", [&] { eng().SetMagnetoAll(4); }, {{0x0892, {4}}, {0x092A, {4}}});
}

TEST_F(ClsEng, AllOfNoEngineWritesNothing) {
  t.store.EngineCount = 0;
  expectWrites("throttles", [&] { eng().SetThrottles(50); }, {});
  expectWrites("magnetos", [&] { eng().SetMagnetoAll(1); }, {});
}

}  // namespace
}  // namespace vorlent
