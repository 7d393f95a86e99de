#include "base/RuntimeError.h"

#include <gtest/gtest.h>

namespace vorlent {
namespace {

struct NumberAndWords {
  int number;
  const char* description;
};

class RuntimeErrorWords : public ::testing::TestWithParam<NumberAndWords> {};

TEST_P(RuntimeErrorWords, AreThoseThatUsersKnow) {
  const RuntimeError error(GetParam().number);
  EXPECT_EQ(error.number(), GetParam().number);
  EXPECT_EQ(error.description(), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    All, RuntimeErrorWords,
    ::testing::Values(NumberAndWords{5, "Invalid procedure call or argument"},
                      NumberAndWords{6, "Overflow"}, NumberAndWords{9, "Subscript out of range"},
                      NumberAndWords{11, "Division by zero"}, NumberAndWords{13, "Type mismatch"},
                      NumberAndWords{53, "File not found"}, NumberAndWords{61, "Disk full"},
                      NumberAndWords{62, "Input past end of file"},
                      NumberAndWords{70, "Permission denied"},
                      NumberAndWords{75, "Path/File access error"},
                      NumberAndWords{76, "Path not found"},
                      NumberAndWords{91, "Object variable or With block variable not set"}),
    [](const auto& instance) { return "Number" + std::to_string(instance.param.number); });

TEST(RuntimeError, OfAnUnknownNumberHasTheGeneralWords) {
  EXPECT_EQ(RuntimeError(1000).description(), "Application-defined or object-defined error");
}

TEST(RuntimeError, KeepsWordsOfItsOwn) {
  const RuntimeError error(10048, "Address in use");
  EXPECT_EQ(error.number(), 10048);
  EXPECT_EQ(error.description(), "Address in use");
}

}  // namespace
}  // namespace vorlent
