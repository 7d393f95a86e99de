#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "independentText.h"
#include "platform/EventLoop.h"
#include "require.h"
#include "web/Access.h"
#include "web/PageHub.h"

// An input is what a browser sends: a line each for "Host", "Origin", "Cookie" and the token of the
// address, and behind them a message of the page. Who gets in is decided as a second reading of the
// rules decides it, and nothing reaches the server but triples that a page may send.

namespace {

using namespace vorlent;
using Verdict = Access::Verdict;

constexpr std::uint16_t Port = 8737;
const std::string Secret = "abcdefghijkmnpqrstuv";

std::string lowered(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

/// The first cookie of our name decides.
bool hasSecret(const std::string& cookies) {
  const std::string name = "vorlent-web-8737=";
  for (std::string pair : independent::split(cookies, ';')) {
    while (pair.starts_with(' ')) pair.erase(0, 1);
    if (pair.starts_with(name)) return pair.substr(name.size()) == Secret;
  }
  return false;
}

void tryAccess(const Access::Caller& caller, const std::string& token) {
  const Access network(Port, Secret);
  const Access loopback(Port, "");
  const std::string host = lowered(caller.host);
  const bool known = host == "localhost:8737" || host == "127.0.0.1:8737" || host == "[::1]:8737";
  const bool ours = lowered(caller.origin) == "http://" + host;
  const bool secret = hasSecret(caller.cookie);
  VORLENT_REQUIRE((loopback.maySee(caller) == Verdict::Granted) == known);
  VORLENT_REQUIRE((loopback.mayConnect(caller) == Verdict::Granted) == (known && ours));
  VORLENT_REQUIRE((network.maySee(caller) == Verdict::Granted) == secret);
  VORLENT_REQUIRE((network.mayConnect(caller) == Verdict::Granted) == (secret && ours));
  VORLENT_REQUIRE(network.isToken(token) == (token == Secret));
  VORLENT_REQUIRE(!loopback.isToken(token));
}

void tryHost(const std::string& host) {
  const std::string allowed =
      ".-_:[]0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const bool harmless = host.find_first_not_of(allowed) == std::string::npos;
  VORLENT_REQUIRE(isHostText(host) == harmless);
}

/// Time stands still.
struct StandingLoop : EventLoop {
  std::unique_ptr<Timer> createTimer(std::function<void()>) override { return nullptr; }
  void pump() override {}
  void sleep(int) override {}
  std::uint32_t tickCount_ms() override { return 0; }
  LocalTime localTime() override { return {0, 0, 0}; }
  void end(int) override {}
};

struct TestPage : Page {
  void send(const std::string& message) override { told.push_back(message); }
  bool isBehind() const override { return false; }
  void end() override {}
  std::vector<std::string> told;
};

/// {"refused":"..."} of printable ASCII, in which a quote has a backslash before it.
bool isRefusal(std::string_view message) {
  constexpr std::string_view head = "{\"refused\":\"";
  constexpr std::string_view tail = "\"}";
  if (message.size() < head.size() + tail.size() || !message.starts_with(head)) return false;
  message.remove_prefix(head.size());
  while (!message.empty() && message.front() != '"') {
    const std::size_t length = message.front() == '\\' ? 2 : 1;
    for (const char c : message.substr(0, length))
      if (c < ' ' || c > '~') return false;
    message.remove_prefix(std::min(length, message.size()));
  }
  return message == tail;
}

/// "p A 82 360 P 172 1 ": kinds and codes that a page may send.
bool isForTheServer(const std::string& message) {
  std::vector<std::string> words = independent::split(message, ' ');
  if (words.front() != "p" || words.size() < 5 || words.size() % 3 != 2) return false;
  for (std::size_t at = 1; at + 1 < words.size(); at += 3) {
    const bool known = words[at].size() == 1 && std::string("AEPT").find(words[at]) < 4;
    if (!known || !independent::wholeNumber(words[at + 1], 0, 1000)) return false;
    if (!independent::number(words[at + 2])) return false;
  }
  return words.back().empty();
}

/// Up to 60 triples of a kind, a code below 1000 and a number of up to five digits, a blank between
/// the words: these are taken.
bool isPlainlyGood(const std::string& message) {
  const auto digits = [](const std::string& word, std::size_t most) {
    return !word.empty() && word.size() <= most &&
           std::all_of(word.begin(), word.end(), independent::isDigit);
  };
  const std::vector<std::string> words = independent::split(message, ' ');
  if (message.size() > 512 || words.size() % 3 != 0 || words.size() > 180) return false;
  for (std::size_t at = 0; at < words.size(); at += 3)
    if (words[at].size() != 1 || std::string("AEPT").find(words[at]) > 3 ||
        !digits(words[at + 1], 3) || !digits(words[at + 2], 5))
      return false;
  return true;
}

void tryMessage(const std::string& message) {
  StandingLoop loop;
  std::vector<std::string> sent;
  PageHub hub(loop, [&sent](std::span<const Command> commands) {
    sent.push_back(commandMessage(commands));
    return true;
  });
  TestPage page;
  hub.join(page);
  hub.take(page, message);
  VORLENT_REQUIRE(sent.size() + page.told.size() == 1);
  VORLENT_REQUIRE(!isPlainlyGood(message) || !sent.empty());
  for (const std::string& text : sent) VORLENT_REQUIRE(isForTheServer(text));
  for (const std::string& text : page.told) VORLENT_REQUIRE(isRefusal(text));
}

/// The text up to the end of the line, which goes from `text`.
std::string takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string line(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string host = takeLine(text);
  const std::string origin = takeLine(text);
  const std::string cookie = takeLine(text);
  const std::string token = takeLine(text);
  tryHost(host);
  tryAccess({host, origin, cookie}, token);
  tryMessage(std::string(text));
  return 0;
}
