#include <algorithm>
#include <array>
#include <random>

#include "simlink/LinkTest.h"

namespace vorlent {
namespace {

constexpr std::uint32_t BlockEnd = 32768;

/// Two readers, of four bytes and of one, each between bytes that nobody may touch.
class ClsFSUIPCDamagedReply : public LinkTest {
 protected:
  struct Guarded {
    std::array<std::uint8_t, 16> before;
    std::array<std::uint8_t, 4> data;
    std::array<std::uint8_t, 16> after;
  };

  void SetUp() override {
    open();
    bus.put<std::uint32_t>(0x0570, 0xA1A2A3A4);
    bus.put<std::uint8_t>(0x0AEC, 0xB1);
  }

  bool process() {
    for (Guarded* reader : {&wide, &narrow}) {
      reader->before.fill(0x77);
      reader->data.fill(0x77);
      reader->after.fill(0x77);
    }
    EXPECT_TRUE(link.QueueRead(0x0570, 4, wide.data.data(), result));
    EXPECT_TRUE(link.QueueRead(0x0AEC, 1, narrow.data.data(), result));
    result = 99;
    const bool done = link.Process(result);
    EXPECT_EQ(result, done ? 0 : 99);
    EXPECT_TRUE(guardsStand());
    return done;
  }

  bool guardsStand() const {
    const auto untouched = [](std::uint8_t byte) { return byte == 0x77; };
    for (const Guarded* reader : {&wide, &narrow})
      if (!std::ranges::all_of(reader->before, untouched) ||
          !std::ranges::all_of(reader->after, untouched))
        return false;
    return std::all_of(narrow.data.begin() + 1, narrow.data.end(), untouched);
  }

  bool nothingRead() const {
    return wide.data == std::array<std::uint8_t, 4>{0x77, 0x77, 0x77, 0x77} &&
           narrow.data[0] == 0x77;
  }

  /// The link still does what it should.
  void worksOn() {
    bus.onRequest = nullptr;
    EXPECT_TRUE(process());
    EXPECT_EQ(wide.data, (std::array<std::uint8_t, 4>{0xA4, 0xA3, 0xA2, 0xA1}));
    EXPECT_EQ(narrow.data[0], 0xB1);
  }

  Guarded wide{};
  Guarded narrow{};
};

TEST_F(ClsFSUIPCDamagedReply, WholeReplyIsRead) { worksOn(); }

TEST_F(ClsFSUIPCDamagedReply, BlockOfWhichSomeWasGoneFails) {
  bus.viewDamaged = true;
  EXPECT_FALSE(process());
  bus.viewDamaged = false;
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, ReadThatGrewBeyondItsReaderFails) {
  for (const std::uint32_t size : {5U, 16U, 1000U, BlockEnd - 16}) {
    answerWith({1, 0x0570, size, 1});
    EXPECT_FALSE(process()) << size;
    EXPECT_TRUE(nothingRead()) << size;
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, ReadThatReachesBeyondTheBlockFails) {
  for (const std::uint32_t size :
       {BlockEnd - 15, BlockEnd, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFF0U, 0xFFFFFFF4U, 0xFFFFFFFFU})
    for (const std::uint32_t destination : {0U, 1U}) {
      answerWith({1, 0x0570, size, destination});
      EXPECT_FALSE(process()) << size;
      EXPECT_TRUE(nothingRead()) << size;
    }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, WriteThatReachesBeyondTheBlockFails) {
  for (const std::uint32_t size : {BlockEnd - 11, 0x7FFFFFFFU, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
    answerWith({2, 0x0570, size});
    EXPECT_FALSE(process()) << size;
    EXPECT_TRUE(nothingRead()) << size;
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, ReaderThatNobodyIsFails) {
  for (const std::uint32_t destination : {3U, 1000U, 0x80000000U, 0xFFFFFFFFU}) {
    answerWith({1, 0x0570, 4, destination});
    EXPECT_FALSE(process()) << destination;
    EXPECT_TRUE(nothingRead()) << destination;
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, ReadWhoseReaderWasClearedIsSteppedOver) {
  answerWith({1, 0x0570, 4, 0});
  EXPECT_TRUE(process());
  EXPECT_EQ(wide.data, (std::array<std::uint8_t, 4>{0x77, 0x77, 0x77, 0x77}));
  EXPECT_EQ(narrow.data[0], 0xB1);
}

TEST_F(ClsFSUIPCDamagedReply, ReadThatShrankFillsPartOfItsReader) {
  answerWith({1, 0x0570, 2, 1, 0x0000C2C1, 0});
  EXPECT_TRUE(process());
  EXPECT_EQ(wide.data, (std::array<std::uint8_t, 4>{0xC1, 0xC2, 0x77, 0x77}));
  EXPECT_EQ(narrow.data[0], 0x77);
}

TEST_F(ClsFSUIPCDamagedReply, SwappedReadersAreHeldToTheirOwnSizes) {
  answerWith({1, 0x0570, 4, 2});
  EXPECT_FALSE(process());
  EXPECT_TRUE(nothingRead());
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, OneReaderMayBeFilledTwice) {
  answerWith({1, 0x0570, 4, 1, 0x11111111, 1, 0x0570, 4, 1, 0x22222222, 0});
  EXPECT_TRUE(process());
  EXPECT_EQ(wide.data, (std::array<std::uint8_t, 4>{0x22, 0x22, 0x22, 0x22}));
}

TEST_F(ClsFSUIPCDamagedReply, BlockWithoutAnEndFails) {
  for (const std::uint32_t kind : {1U, 2U}) {
    bus.onRequest = [kind](SendResult served, std::byte* block) {
      std::memset(block, 0, BlockEnd);
      const std::uint32_t step = kind == 1 ? 16 : 12;
      for (std::uint32_t at = 0; at + step <= BlockEnd; at += step) store(block + at, kind);
      return served;
    };
    EXPECT_FALSE(process()) << kind;
    EXPECT_TRUE(nothingRead()) << kind;
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, HeaderThatIsCutOffByTheEndOfTheBlockFails) {
  // A write up to `at`, then a read record of which only a part is left in the block.
  for (const std::uint32_t at : {BlockEnd - 15, BlockEnd - 13, BlockEnd - 12, BlockEnd - 3}) {
    bus.onRequest = [at](SendResult served, std::byte* block) {
      store(block, std::uint32_t{2});
      store(block + 8, at - 12);
      std::memset(block + 12, 0, BlockEnd - 12);
      store(block + at, std::uint16_t{1});
      return served;
    };
    EXPECT_FALSE(process()) << at;
    EXPECT_TRUE(nothingRead()) << at;
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, RecordThatEndsWithTheBlockLeavesNoRoomForAnEnd) {
  answerWith({2, 0, BlockEnd - 12});
  EXPECT_FALSE(process());
}

TEST_F(ClsFSUIPCDamagedReply, ReadUpToTheLastByteOfTheBlockStaysInside) {
  answerWith({1, 0x0570, BlockEnd - 16, 0});
  EXPECT_FALSE(process());
  EXPECT_TRUE(nothingRead());
}

TEST_F(ClsFSUIPCDamagedReply, RandomBlocksTouchNothingButTheReaders) {
  std::mt19937 random(20240607);
  for (int round = 0; round < 2000; ++round) {
    bus.onRequest = [&random](SendResult served, std::byte* block) {
      // Small numbers in most words, so that many records are almost right.
      for (std::uint32_t at = 0; at < BlockEnd; at += 4) {
        const auto number = static_cast<std::uint32_t>(random());
        store(block + at, (number >> 24) < 200 ? number % 6 : number);
      }
      return served;
    };
    process();
  }
  worksOn();
}

TEST_F(ClsFSUIPCDamagedReply, DamagedReplyToATypedReadEndsTheProcess) {
  answerWith({1, 0x0570, 4000, 1});
  EXPECT_EQ(endedBy([this] { link.ReadDouble(0x0570, 8); }), 1);
  EXPECT_EQ(endedBy([this] { link.ReadBytes(0x0570, 8, 1); }), 1);
}

}  // namespace
}  // namespace vorlent
