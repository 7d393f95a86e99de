#include "base/FirstFault.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vorlent {
namespace {

TEST(FirstFault, RunsEveryWorkAndRaisesTheFirstFault) {
  std::string done;
  FirstFault fault;
  fault.of([&] { done += "a"; });
  fault.of([&] {
    done += "b";
    throw std::runtime_error("first");
  });
  fault.of([&] {
    done += "c";
    throw std::logic_error("second");
  });
  fault.of([&] { done += "d"; });
  EXPECT_EQ(done, "abcd");
  try {
    fault.raise();
    FAIL() << "nothing was raised";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "first");
  }
}

TEST(FirstFault, RaisesNothingWhereAllWentWell) {
  FirstFault fault;
  fault.of([] {});
  EXPECT_NO_THROW(fault.raise());
}

}  // namespace
}  // namespace vorlent
