#include "windows/support/WindowsCockpit.h"

#include <winsock2.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "base/clsIniRw.h"
#include "support/places.h"

namespace vorlent {
namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& utf8) { return std::u8string(utf8.begin(), utf8.end()); }

/// The system's sockets, for as long as the process lives.
void openSockets() {
  static const int opened = [] {
    WSADATA data{};
    return WSAStartup(MAKEWORD(2, 2), &data);
  }();
  if (opened != 0) throw std::runtime_error("no sockets");
}

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  result.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return result;
}

/// INVALID_SOCKET when the port is taken.
SOCKET boundSocket(std::uint16_t port) {
  openSockets();
  const SOCKET made = ::socket(AF_INET, SOCK_DGRAM, 0);
  const sockaddr_in own = loopback(port);
  if (bind(made, reinterpret_cast<const sockaddr*>(&own), sizeof own) == 0) return made;
  closesocket(made);
  return INVALID_SOCKET;
}

/// The first free one of `count` ports in a row; the server's ports are signed 16-bit numbers.
std::uint16_t freePorts(int count) {
  const int first = 20000 + static_cast<int>(GetCurrentProcessId()) * count % 10000;
  for (int base = first; base < 32000; base += count) {
    bool free = true;
    for (int i = 0; i < count; ++i) {
      const SOCKET taken = boundSocket(static_cast<std::uint16_t>(base + i));
      free = free && taken != INVALID_SOCKET;
      if (taken != INVALID_SOCKET) closesocket(taken);
    }
    if (free) return static_cast<std::uint16_t>(base);
  }
  throw std::runtime_error("no free ports");
}

void waitFor(Program& program, const std::string& line) {
  if (!program.waitForLine(line))
    throw std::runtime_error("no line \"" + line + "\" in: " + program.output());
}

}  // namespace

WindowsCockpit::WindowsCockpit(int clients) : basePort(freePorts(clients)) {
  const fs::path place = pathOf(path(""));
  fs::copy(pathOf(dataFolder()), place, fs::copy_options::recursive);
  for (const auto& entry : fs::directory_iterator(pathOf(programsFolder())))
    if (entry.path().extension() == ".exe" && entry.path().stem().string().starts_with("vorlent"))
      fs::copy_file(entry.path(), place / entry.path().filename());
  configure("Port", std::to_string(basePort));
  configure("Clients", std::to_string(clients));
  clsIniRw().WriteKey("Platform", "LocalIp", "127.0.0.1", path("Vorlent.ini"));
  // It is shared already, so that the server does not ask the machine for it.
  fs::create_directories(pathOf(path("Network/127.0.0.1/Vorlent")));
}

std::unique_ptr<Program> WindowsCockpit::program(const std::string& name,
                                                 const std::vector<std::string>& arguments) const {
  return std::make_unique<Program>(path(name), arguments);
}

void WindowsCockpit::configure(const std::string& key, const std::string& value) const {
  clsIniRw().WriteKey("Vorlent", key, value, path("Vorlent.ini"));
}

void WindowsCockpit::startSimulator(const std::vector<std::string>& options) {
  simulator = program("vorlent-sim", options);
  waitFor(*simulator, "ready");
}

void WindowsCockpit::startServer(const std::string& name) {
  server = std::make_unique<Program>(path(name), std::vector<std::string>(), ProcessGroup::Ours);
}

void WindowsCockpit::bringServerUp() {
  startServer();
  waitFor(*server, "1| OK");
}

DisplayLink::DisplayLink() : socket_(boundSocket(0)) {}

DisplayLink::~DisplayLink() { closesocket(socket_); }

void DisplayLink::send(std::uint16_t port, const std::string& text) const {
  const sockaddr_in server = loopback(port);
  sendto(socket_, text.data(), static_cast<int>(text.size()), 0,
         reinterpret_cast<const sockaddr*>(&server), sizeof server);
}

std::optional<std::string> DisplayLink::receive(const std::string& start,
                                                std::chrono::milliseconds limit) const {
  const auto until = std::chrono::steady_clock::now() + limit;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
        until - std::chrono::steady_clock::now());
    fd_set waiting{1, {socket_}};
    timeval most{static_cast<long>(left.count() / 1000000),
                 static_cast<long>(left.count() % 1000000)};
    if (left.count() <= 0 || select(0, &waiting, nullptr, nullptr, &most) <= 0) return std::nullopt;
    std::array<char, 65536> buffer;
    const int count = recv(socket_, buffer.data(), buffer.size(), 0);
    const std::string text(buffer.data(), static_cast<std::size_t>(std::max(count, 0)));
    if (text.starts_with(start)) return text;
  }
}

}  // namespace vorlent
