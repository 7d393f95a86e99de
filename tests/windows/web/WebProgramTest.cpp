#include <gmock/gmock.h>

#include "windows/support/WindowsCockpit.h"
#include "windows/support/windowsOf.h"
#include "windows/web/PageLink.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The page of a cockpit that is up.
class WebProgram : public testing::Test {
 protected:
  void SetUp() override {
    cockpit.startSimulator();
    cockpit.bringServerUp();
  }
  void serve(const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments{
        "127.0.0.1", std::to_string(cockpit.basePort), "--name", "display", "--web-port", "0"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    web = cockpit.program("vorlent-web", arguments);
    address = web->waitForLine("page: ").value();
    port = static_cast<std::uint16_t>(std::stoi(address.substr(address.rfind(':') + 1)));
  }
  std::string own() const { return "127.0.0.1:" + std::to_string(port); }
  std::string status(const std::string& target, const std::string& host,
                     const std::string& more = "") const {
    return statusLine(port, target, "Host: " + host + "\r\n" + more);
  }

  WindowsCockpit cockpit;
  std::unique_ptr<Program> web;
  std::string address;
  std::uint16_t port = 0;
};

TEST_F(WebProgram, GivesThePageToThisMachineAloneAndNothingElse) {
  serve();
  PageLink browser(port);
  browser.get("/", "Host: " + own() + "\r\n");
  ASSERT_TRUE(browser.comes("</html>"));
  EXPECT_THAT(browser.received(), StartsWith("HTTP/1.1 200 OK\r\n"));
  EXPECT_THAT(browser.received(), HasSubstr("\r\nContent-Security-Policy: default-src 'none';"));
  // The connection serves on.
  browser.get("/main.js", "Host: " + own() + "\r\n");
  EXPECT_TRUE(browser.comes("Content-Type: text/javascript"));

  EXPECT_EQ(status("/secret", own()), "HTTP/1.1 404 Not Found");
  EXPECT_EQ(status("/", "evil.example:80"), "HTTP/1.1 421 Misdirected Request");
}

TEST_F(WebProgram, APageOfItsOwnGetsRecordsAndCommands) {
  serve();
  PageLink page(port);
  page.upgrade(own(), "http://" + own());
  ASSERT_TRUE(page.comes("{\"record\":{"));
  ASSERT_TRUE(page.comes("\"MagHeading\":"));
  ASSERT_TRUE(page.comes("{\"changes\":{"));
  ASSERT_THAT(page.received(), Not(HasSubstr("\"ApHeadingSim\":90")));
  page.sendText("A 82 90");  // a quarter of the circle, which the simulator keeps exactly
  EXPECT_TRUE(page.comes("\"ApHeadingSim\":90"));
  page.sendText("P 1065 1");
  EXPECT_TRUE(page.comes("{\"refused\":"));
}

TEST_F(WebProgram, APageOfAnotherOriginGetsNothingAndIsClosed) {
  serve();
  PageLink page(port);
  page.upgrade(own(), "http://evil.example");
  // A close frame of two bytes: 1008, the policy was violated.
  EXPECT_TRUE(page.comes("\x88\x02\x03\xF0"));
  EXPECT_THAT(page.received(), Not(HasSubstr("{\"")));
}

TEST_F(WebProgram, AMessageThatIsTooLongEndsItsConnection) {
  serve();
  PageLink page(port);
  page.upgrade(own(), "http://" + own());
  ASSERT_TRUE(page.comes("{\"record\":{"));
  page.sendText(std::string(513, '1'));
  EXPECT_TRUE(page.ends());
  EXPECT_THAT(page.received(), HasSubstr("\x88\x02\x03\xF1"));
}

TEST_F(WebProgram, ARequestWithoutEndIsCutOff) {
  serve();
  PageLink browser(port);
  browser.get("/", "Host: " + own() + "\r\nX: " + std::string(20000, 'x'));
  EXPECT_TRUE(browser.ends());
  EXPECT_EQ(browser.received(), "");
}

TEST_F(WebProgram, OnANetworkItAsksForTheTokenThatItPrinted) {
  serve({"--listen", "0.0.0.0"});
  const std::string token = address.substr(address.rfind('=') + 1);
  EXPECT_THAT(token, testing::SizeIs(20));
  EXPECT_EQ(status("/", own()), "HTTP/1.1 401 Unauthorized");
  EXPECT_EQ(status("/?token=aaaaaaaaaaaaaaaaaaaa", own()), "HTTP/1.1 401 Unauthorized");
  EXPECT_EQ(status("/?token=" + token, own()), "HTTP/1.1 303 See Other");
  const std::string cookie = "Cookie: vorlent-web-" + std::to_string(port) + "=" + token + "\r\n";
  EXPECT_EQ(status("/", own(), cookie), "HTTP/1.1 200 OK");
}

TEST_F(WebProgram, APortThatIsTakenIsToldAndEndsIt) {
  serve();
  const auto second = cockpit.program(
      "vorlent-web",
      {"127.0.0.1", std::to_string(cockpit.basePort + 1), "--web-port", std::to_string(port)});
  EXPECT_EQ(second->waitForEnd(), 1);
  EXPECT_THAT(second->output(), HasSubstr("vorlent-web: cannot serve the page at " + own() + ": "));
  EXPECT_EQ(status("/", own()), "HTTP/1.1 200 OK");
}

TEST_F(WebProgram, EndsWhenItIsAskedTo) {
  serve();
  PostMessageW(windowOf(web->id(), "VorlentEnd"), WM_CLOSE, 0, 0);
  EXPECT_EQ(web->waitForEnd(), 0);
}

/// A page that is open before the server is there.
class WebProgramAlone : public WebProgram {
 protected:
  void SetUp() override { cockpit.startSimulator(); }
  /// Of a server that takes the place of one that is gone.
  void expectRecordsOfTheNext(PageLink& page) {
    ASSERT_TRUE(cockpit.server->waitForEnd());
    ASSERT_TRUE(page.comes("{\"notice\":\"nothing has come from 127.0.0.1:"));
    page.forget();
    cockpit.bringServerUp();
    EXPECT_TRUE(page.comes("{\"notice\":\"connected to 127.0.0.1:"));
    EXPECT_TRUE(page.comes("{\"changes\":{"));
  }
};

TEST_F(WebProgramAlone, GreetsTheServerThatComesLaterAndTheNextOnes) {
  serve();
  PageLink page(port);
  page.upgrade(own(), "http://" + own());
  ASSERT_TRUE(page.comes("{\"notice\":\"no answer from 127.0.0.1:"));
  cockpit.bringServerUp();
  ASSERT_TRUE(page.comes("{\"record\":{"));
  cockpit.server->type("exit");
  expectRecordsOfTheNext(page);
  cockpit.server->kill();
  expectRecordsOfTheNext(page);
}

}  // namespace
}  // namespace vorlent
