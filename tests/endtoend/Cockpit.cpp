#include "endtoend/Cockpit.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <stdexcept>

#include "base/clsIniRw.h"
#include "support/places.h"

namespace vorlent {
namespace fs = std::filesystem;
namespace {

sockaddr_in socketAddress(const std::string& address, std::uint16_t port) {
  sockaddr_in result{};
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  inet_pton(AF_INET, address.c_str(), &result.sin_addr);
  return result;
}

int boundSocket(const std::string& address, std::uint16_t port) {
  const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  const sockaddr_in own = socketAddress(address, port);
  if (bind(descriptor, reinterpret_cast<const sockaddr*>(&own), sizeof own) == 0) return descriptor;
  close(descriptor);
  return -1;
}

void waitFor(Process& program, const std::string& line) {
  if (!program.waitForLine(line))
    throw std::runtime_error("no line \"" + line + "\" in: " + program.output());
}

}  // namespace

std::uint16_t freePorts(int count) {
  // The server's ports are signed 16-bit numbers: below those that systems hand out by themselves.
  const int first = 20000 + getpid() * count % 10000;
  for (int base = first; base < 32000; base += count) {
    std::vector<int> taken;
    for (int i = 0; i < count; ++i)
      taken.push_back(boundSocket("127.0.0.1", static_cast<std::uint16_t>(base + i)));
    bool free = true;
    for (const int descriptor : taken) {
      free = free && descriptor >= 0;
      if (descriptor >= 0) close(descriptor);
    }
    if (free) return static_cast<std::uint16_t>(base);
  }
  throw std::runtime_error("no free ports");
}

Cockpit::Cockpit(int clients) : basePort(freePorts(clients)) {
  for (const std::string name : {"vorlentd", "vorlent-sim", "vorlent-display"}) addProgram(name);
  fs::copy(dataFolder(), folder.path(), fs::copy_options::recursive);
  configure("Port", std::to_string(basePort));
  configure("Clients", std::to_string(clients));
  clsIniRw().WriteKey("Platform", "LocalIp", "127.0.0.1", folder / "Vorlent.ini");
  // It is shared already, so that the server does not ask the machine's own Samba for it.
  fs::create_directories(folder / "Network/127.0.0.1/Vorlent");
}

void Cockpit::addProgram(const std::string& name) const {
  std::error_code differentDisk;
  fs::create_hard_link(fs::path(programsFolder()) / name, folder / name, differentDisk);
  if (differentDisk) fs::copy_file(fs::path(programsFolder()) / name, folder / name);
}

std::unique_ptr<Process> Cockpit::program(const std::string& name,
                                          const std::vector<std::string>& arguments,
                                          std::vector<std::string> environment) const {
  environment.insert(environment.end(), {"VORLENT_BUS=" + folder / "bus", "LC_ALL=C"});
  return std::make_unique<Process>(folder / name, arguments, environment);
}

void Cockpit::configure(const std::string& key, const std::string& value) const {
  clsIniRw().WriteKey("Vorlent", key, value, folder / "Vorlent.ini");
}

void Cockpit::startSimulator(const std::vector<std::string>& options) {
  simulator = program("vorlent-sim", options);
  waitFor(*simulator, "ready");
}

void Cockpit::startServer() { server = program("vorlentd"); }

void Cockpit::bringServerUp() {
  startServer();
  waitFor(*server, "1| OK");
}

DisplaySocket::DisplaySocket(const std::string& address) : socket_(boundSocket(address, 0)) {}

DisplaySocket::~DisplaySocket() { close(socket_); }

void DisplaySocket::send(std::uint16_t port, const std::string& text) const {
  const sockaddr_in server = socketAddress("127.0.0.1", port);
  sendto(socket_, text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&server),
         sizeof server);
}

std::optional<std::string> DisplaySocket::receive(const std::string& start,
                                                  std::chrono::milliseconds limit) const {
  const auto until = std::chrono::steady_clock::now() + limit;
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        until - std::chrono::steady_clock::now());
    pollfd waiting{socket_, POLLIN, 0};
    if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) <= 0)
      return std::nullopt;
    std::array<char, 65536> buffer;
    const ssize_t count = recv(socket_, buffer.data(), buffer.size(), 0);
    const std::string text(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (text.starts_with(start)) return text;
  }
}

}  // namespace vorlent
