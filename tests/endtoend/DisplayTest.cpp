#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

#include "endtoend/Process.h"
#include "endtoend/TerminalProcess.h"
#include "support/places.h"

namespace vorlent {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Takes what displays send.
class ServerSocket {
 public:
  ServerSocket() : socket_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof own;
    if (bind(socket_, reinterpret_cast<sockaddr*>(&own), size) != 0)
      throw std::runtime_error("no socket");
    getsockname(socket_, reinterpret_cast<sockaddr*>(&own), &size);
    port = std::to_string(ntohs(own.sin_port));
  }
  ~ServerSocket() { close(socket_); }
  ServerSocket(const ServerSocket&) = delete;
  ServerSocket& operator=(const ServerSocket&) = delete;

  /// The next message that is no greeting and no question, or is a greeting; empty when none comes.
  std::string command() const { return next(false); }
  std::string greeting() const { return next(true); }

  std::string port;

 private:
  std::string next(bool greeting) const {
    pollfd waiting{socket_, POLLIN, 0};
    // Greetings come every second; more than twenty are enough to wait for anything else.
    for (int count = 0; count < 20 && poll(&waiting, 1, 20000) > 0; ++count) {
      std::array<char, 2048> buffer;
      const ssize_t size = recv(socket_, buffer.data(), buffer.size(), 0);
      const std::string text(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
      if (text.starts_with("Connection on") == greeting && !text.ends_with('?')) return text;
    }
    return "";
  }

  int socket_;
};

const std::string Program = programsFolder() + "/vorlent-display";
const std::string Left = "\x1b[D", Up = "\x1b[A", Down = "\x1b[B", Home = "\x1b[H", End = "\x1b[F",
                  Delete = "\x1b[3~", Backspace = "\x7f", Escape = "\x1b", Enter = "\r";

class DisplayOnATerminal : public testing::Test {
 protected:
  TerminalProcess& start(int columns = 100) {
    terminal.emplace(Program, std::vector<std::string>{"127.0.0.1", server.port}, columns);
    EXPECT_TRUE(terminal->waitFor("> "));
    return *terminal;
  }

  ServerSocket server;
  std::optional<TerminalProcess> terminal;
};

TEST_F(DisplayOnATerminal, ALineCanBeEditedBeforeItIsSent) {
  start().type("P 16 1" + Home + Delete + "A" + End + Backspace + "22" + Left + Backspace + Enter);
  EXPECT_EQ(server.command(), "p A 16 2 ");
}

TEST_F(DisplayOnATerminal, TheArrowsBringEarlierLinesBack) {
  start().type("P 1 1" + Enter);
  EXPECT_EQ(server.command(), "p P 1 1 ");
  terminal->type("P 2 1" + Enter);
  EXPECT_EQ(server.command(), "p P 2 1 ");
  terminal->type(Up + Up + Enter);
  EXPECT_EQ(server.command(), "p P 1 1 ");
  terminal->type(Up + Up + Down + Backspace + "0" + Enter);
  EXPECT_EQ(server.command(), "p P 1 0 ");
}

TEST_F(DisplayOnATerminal, AnEscapeByItselfDoesNotStopThePage) {
  start().type(Escape);
  EXPECT_TRUE(terminal->waitFor("no answer from 127.0.0.1:" + server.port));
  terminal->type("P 1 1" + Enter);
  EXPECT_EQ(server.command(), "p P 1 1 ");
}

TEST_F(DisplayOnATerminal, SaysThatAServerDoesNotAnswerACommand) {
  start().type("P 1 1" + Enter);
  EXPECT_TRUE(terminal->waitFor("sent: P 1 1"));
  EXPECT_TRUE(terminal->waitFor("the server does not answer"));
}

TEST_F(DisplayOnATerminal, LinesEndBeforeTheLastColumn) {
  EXPECT_TRUE(start(30).waitFor("\x1b[23;1Hno answer from 127.0.0.1:" + server.port.substr(0, 4)));
  EXPECT_THAT(terminal->output(), Not(HasSubstr("yet")));
}

TEST_F(DisplayOnATerminal, LeavesTheTerminalAsItWas) {
  start();
  EXPECT_FALSE(terminal->givesLines());
  terminal->type("\x03");
  EXPECT_EQ(terminal->waitForEnd(), 0);
  EXPECT_TRUE(terminal->givesLines());
  EXPECT_THAT(terminal->output(), testing::EndsWith("\x1b[?1049l"));
}

TEST(Display, LocalhostIsAServersAddress) {
  const ServerSocket server;
  const Process display(Program, {"localhost", server.port, "--name", "cockpit"}, {});
  EXPECT_EQ(server.greeting(), "Connection on vorlent display 100 cockpit");
}

TEST(Display, AMachineThatIsNotKnownIsToldAndEndsIt) {
  Process display(Program, {"a..b"}, {});
  EXPECT_EQ(display.waitForEnd(), 1);
  EXPECT_THAT(display.output(), StartsWith("vorlent-display: no machine \"a..b\" is known here"));
}

}  // namespace
}  // namespace vorlent
