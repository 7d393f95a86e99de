#include "platform/qt/HostAddresses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"

namespace vorlent {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

TEST(HostAddresses, AnAddressStandsForItself) {
  EXPECT_THAT(hostAddresses("192.168.1.20"), ElementsAre("192.168.1.20"));
}

TEST(HostAddresses, LocalhostIsTheLoopbackInVersionFourAlone) {
  EXPECT_THAT(hostAddresses("localhost"), Contains("127.0.0.1"));
  EXPECT_THAT(hostAddresses("localhost"), Each(StartsWith("127.")));
}

TEST(HostAddresses, NoNameHasNone) { EXPECT_THAT(hostAddresses(""), IsEmpty()); }

TEST(HostAddresses, AHostThatIsNotKnownIsTold) {
  try {
    hostAddresses("a..b");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.description(), "no machine \"a..b\" is known here");
  }
}

}  // namespace
}  // namespace vorlent
