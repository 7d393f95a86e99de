#include <gtest/gtest.h>

#include "base/bytes.h"
#include "platform/StickDevice.h"

namespace vorlent {
namespace {

/// 80 zero bytes with a 32-bit number put in.
std::string packetWith(std::size_t offset, std::int32_t number) {
  std::string packet(80, '\0');
  store(packet.data() + offset, number);
  return packet;
}

ControllerState parsed(const std::string& packet) {
  const auto state = stateFromPacket(packet);
  EXPECT_TRUE(state);
  return state.value_or(ControllerState{});
}

TEST(StickPacket, EveryValueStandsAtItsPlace) {
  EXPECT_EQ(parsed(packetWith(0, 1)).x, 1);
  EXPECT_EQ(parsed(packetWith(4, 2)).y, 2);
  EXPECT_EQ(parsed(packetWith(8, 3)).z, 3);
  EXPECT_EQ(parsed(packetWith(12, 4)).rx, 4);
  EXPECT_EQ(parsed(packetWith(16, 5)).ry, 5);
  EXPECT_EQ(parsed(packetWith(20, 6)).rz, 6);
  EXPECT_EQ(parsed(packetWith(24, 7)).slider[0], 7);
  EXPECT_EQ(parsed(packetWith(28, 8)).slider[1], 8);
  EXPECT_EQ(parsed(packetWith(32, 9000)).POV[0], 9000);
  EXPECT_EQ(parsed(packetWith(44, 27000)).POV[3], 27000);
  std::string packet(80, '\0');
  packet[48] = packet[79] = '\x80';
  EXPECT_EQ(parsed(packet).buttons[0], 0x80);
  EXPECT_EQ(parsed(packet).buttons[1], 0);
  EXPECT_EQ(parsed(packet).buttons[31], 0x80);
}

TEST(StickPacket, AnotherSizeThan80BytesIsNoState) {
  for (const std::size_t size : {0U, 1U, 79U, 81U, 160U})
    EXPECT_FALSE(stateFromPacket(std::string(size, '\0'))) << size;
}

TEST(StickPacket, AxesBeyondTheirRangeAreCut) {
  EXPECT_EQ(parsed(packetWith(0, -1)).x, 0);
  EXPECT_EQ(parsed(packetWith(0, 65536)).x, 65535);
  EXPECT_EQ(parsed(packetWith(20, INT32_MIN)).rz, 0);
  EXPECT_EQ(parsed(packetWith(28, INT32_MAX)).slider[1], 65535);
}

TEST(StickPacket, APovThatIsNoDirectionIsCentred) {
  EXPECT_EQ(parsed(packetWith(32, 35999)).POV[0], 35999);
  EXPECT_EQ(parsed(packetWith(32, 36000)).POV[0], -1);
  EXPECT_EQ(parsed(packetWith(32, -1)).POV[0], -1);
  EXPECT_EQ(parsed(packetWith(32, 65535)).POV[0], -1);
}

TEST(StickPacket, AButtonIsPressedFromItsHighestBitOn) {
  std::string packet(80, '\0');
  packet[48] = '\x7F';
  packet[49] = '\xFF';
  EXPECT_EQ(parsed(packet).buttons[0], 0);
  EXPECT_EQ(parsed(packet).buttons[1], 0x80);
}

TEST(StickName, IsLettersDigitsDashesAndUnderscores) {
  for (const char* name : {"a", "Yoke-1", "throttle_2", "0123456789abcdef0123456789ABCDEF"})
    EXPECT_TRUE(isStickName(name)) << name;
  for (const char* name :
       {"", ".", "..", "a/b", "a b", "a.b", "\xC3\xA4", "0123456789abcdef0123456789ABCDEF0"})
    EXPECT_FALSE(isStickName(name)) << name;
}

}  // namespace
}  // namespace vorlent
