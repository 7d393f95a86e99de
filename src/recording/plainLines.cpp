#include "recording/plainLines.h"

#include <array>

#include "base/printable.h"

namespace vorlent::recorded {
namespace {

constexpr std::array<const char*, HandMoved::Deeds> DeedNames{
    "",    "focus", "leave", "text", "value", "choose", "press",
    "key", "down",  "move",  "up",   "close", "exit"};

std::string place(const std::string& address, std::uint16_t port) {
  return address + ":" + std::to_string(port);
}

std::optional<PlainLine> lineOf(const StatusShown& status) {
  return PlainLine{"status", std::to_string(status.panel), status.text};
}
std::optional<PlainLine> lineOf(const BoxShown& box) {
  return PlainLine{"box", box.title, box.text};
}
std::optional<PlainLine> lineOf(const DatagramCame& datagram) {
  return PlainLine{"datagram", place(datagram.address, datagram.port), datagram.text};
}
std::optional<PlainLine> lineOf(const SessionChanged& session) {
  return PlainLine{"session", place(session.address, session.port),
                   session.what == SessionChanged::What::Greeted ? "greeting" : "stop"};
}
std::optional<PlainLine> lineOf(const HandMoved& hand) {
  const std::string name = DeedNames[static_cast<std::size_t>(hand.deed)];
  const bool spaced = !name.empty() && !hand.value.empty();
  return PlainLine{"hand", hand.form + (hand.control.empty() ? "" : ".") + hand.control,
                   name + (spaced ? " " : "") + hand.value};
}
std::optional<PlainLine> lineOf(const Dropped& dropped) {
  return PlainLine{"dropped", "", std::to_string(dropped.events)};
}
template <class Other>
std::optional<PlainLine> lineOf(const Other&) {
  return std::nullopt;
}

}  // namespace

std::optional<PlainLine> plainLine(const Event& event) {
  auto line = std::visit([](const auto& what) { return lineOf(what); }, event.what);
  if (line) line->text = printable(line->text);
  return line;
}

std::vector<PlainWrite> plainWrites(const Exchanged& exchange) {
  std::vector<PlainWrite> writes;
  if (!exchange.answered || exchange.reply != 1) return writes;
  std::size_t at = 0;
  for (const Operation& operation : *exchange.request) {
    if (!operation.write) continue;
    writes.push_back({operation.offset, exchange.written.substr(at, operation.size_bytes)});
    at += operation.size_bytes;
  }
  return writes;
}

}  // namespace vorlent::recorded
