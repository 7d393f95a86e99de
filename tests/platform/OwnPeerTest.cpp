#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>

#include "platform/linux/UnixAddress.h"
#include "support/OrdinaryUser.h"

namespace vorlent {
namespace {

TEST(OwnPeer, IsThisUsersOrRootsAndNoOtherUsers) {
  const OrdinaryUser user;
  std::array<int, 2> ends{};
  ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()), 0);
  const Descriptor here(ends[0]);
  const Descriptor there(ends[1]);
  EXPECT_TRUE(isOwnPeer(here));
  EXPECT_TRUE(isOwnPeer(here, geteuid()));
  EXPECT_FALSE(isOwnPeer(here, geteuid() + 1));
}

TEST(OwnPeer, IsNobodyWithoutAConnection) { EXPECT_FALSE(isOwnPeer(newPacketSocket(), 65533)); }

}  // namespace
}  // namespace vorlent
