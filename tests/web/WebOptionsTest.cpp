#include "web/WebOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/CommandLineEnd.h"

namespace vorlent {
namespace {

using testing::HasSubstr;

TEST(WebOptions, WithoutAnyThePageIsForThisMachineAlone) {
  const WebOptions options = readWebOptions({});
  EXPECT_EQ(options.listen, "127.0.0.1");
  EXPECT_EQ(options.webPort, 8737);
  EXPECT_EQ(options.interval_ms, 50);
  EXPECT_EQ(options.port, 5000);
  EXPECT_EQ(options.host, "");
}

TEST(WebOptions, AreReadBySense) {
  const WebOptions options =
      readWebOptions({"192.168.0.10", "5001", "--listen", "0.0.0.0", "--web-port", "80",
                      "--interval", "100", "--name", "cockpit-1", "--share", "."});
  EXPECT_EQ(options.host, "192.168.0.10");
  EXPECT_EQ(options.port, 5001);
  EXPECT_EQ(options.listen, "0.0.0.0");
  EXPECT_EQ(options.webPort, 80);
  EXPECT_EQ(options.interval_ms, 100);
  EXPECT_EQ(options.name, "cockpit-1");
  EXPECT_EQ(options.share, ".");
}

std::string whyNot(const std::vector<std::string>& arguments) {
  try {
    readWebOptions(arguments);
    return "taken";
  } catch (const CommandLineEnd& end) {
    EXPECT_EQ(end.status, 2);
    return end.text;
  }
}

TEST(WebOptions, AWrongOneIsToldInASentence) {
  EXPECT_THAT(whyNot({"--listen", "everywhere"}), HasSubstr("it is an address such as"));
  EXPECT_THAT(whyNot({"--web-port", "65536"}), HasSubstr("65535"));
  EXPECT_THAT(whyNot({"--share", "/no/such/folder"}), HasSubstr("there is no folder"));
  EXPECT_THAT(whyNot({"--name", "a b"}), HasSubstr("the name of a machine"));
}

}  // namespace
}  // namespace vorlent
