#include "platform/ConnectionOrder.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

void expectOrder(const char* first, const char* second) {
  EXPECT_TRUE(comesBefore(first, second)) << first << " " << second;
  EXPECT_FALSE(comesBefore(second, first)) << second << " " << first;
}

TEST(ConnectionOrder, Port2ComesBeforePort10) {
  expectOrder("usb-0000:00:14.0-2/input0", "usb-0000:00:14.0-10/input0");
}

TEST(ConnectionOrder, APortComesBeforeThePortsOfTheHubBehindItsNeighbour) {
  expectOrder("usb-0000:00:14.0-1.4/input0", "usb-0000:00:14.0-2/input0");
  expectOrder("usb-0000:00:14.0-1.2/input0", "usb-0000:00:14.0-1.10/input0");
}

TEST(ConnectionOrder, ALongerConnectionComesBehindItsOwnStart) {
  expectOrder("", "a");
  expectOrder("a", "a1");
  expectOrder("a1", "a1 part 2");
}

TEST(ConnectionOrder, NumbersOfAnyLengthAreCompared) {
  expectOrder("99999999999999999999998", "99999999999999999999999");
  expectOrder("99999999999999999999999", "100000000000000000000000");
}

TEST(ConnectionOrder, LeadingZerosDecideOnlyWhenNothingElseDoes) {
  expectOrder("a007", "a7");
  expectOrder("a007b", "a7c");
  expectOrder("a7b", "a007c");
  expectOrder("a0", "a1");
}

TEST(ConnectionOrder, NothingComesBeforeItself) {
  for (const char* same : {"", "a", "7", "usb-1.2/input0"}) EXPECT_FALSE(comesBefore(same, same));
}

}  // namespace
}  // namespace vorlent
