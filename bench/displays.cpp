// 64 displays that ask for a record every 10 ms: how many ticks come on time, and what the server
// needs for them, over a bare loop that sends the same datagrams at the same pace beside it.

#include <netinet/in.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "endtoend/Cockpit.h"
#include "platform/linux/Descriptor.h"
#include "support/ForkedLoop.h"
#include "support/ProcessCosts.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"

namespace {

using namespace vorlent;

constexpr int Displays = 64;
constexpr std::int64_t Millisecond_ns = 1'000'000;
constexpr std::int64_t Interval_ns = 10 * Millisecond_ns;
constexpr std::int64_t Window_ns = 1000 * Millisecond_ns;
constexpr int Windows = 30;
/// The receivers' queues hold many times what comes in this time.
constexpr std::int64_t DrainPause_ns = 5 * Millisecond_ns;

/// What one display received.
struct Receiver {
  StampedSocket socket;
  std::vector<std::int64_t> stamps_ns;

  void drain() {
    socket.drain([this](std::string_view text, std::int64_t stamp_ns) {
      if (text.starts_with("Data ")) stamps_ns.push_back(stamp_ns);
    });
  }
};

using Receivers = std::array<Receiver, Displays>;

/// The least that sends the same: one loop without an event loop, a session or a formatted address.
/// Each millisecond it sends those of the 64 datagrams that fall due, so its displays' moments are
/// spread over the interval as the server's are.
class BareSender {
 public:
  BareSender(const Receivers& receivers, const std::string& record) {
    for (std::size_t i = 0; i < Displays; ++i) {
      sockets_[i] = Descriptor(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
      to_[i].sin_family = AF_INET;
      to_[i].sin_port = htons(receivers[i].socket.port());
      to_[i].sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    }
    loop_ = std::make_unique<ForkedLoop>([this, &record] { sendForEver(record); });
  }
  pid_t process() const { return loop_->id(); }

 private:
  static constexpr std::size_t Slots = Interval_ns / Millisecond_ns;

  void sendForEver(const std::string& record) const {
    std::int64_t due_ns = now_ns();
    for (std::size_t slot = 0;; slot = (slot + 1) % Slots) {
      sleepUntil_ns(due_ns += Millisecond_ns);
      for (std::size_t i = slot * Displays / Slots; i < (slot + 1) * Displays / Slots; ++i)
        sendto(sockets_[i].number(), record.data(), record.size(), 0,
               reinterpret_cast<const sockaddr*>(&to_[i]), sizeof to_[i]);
    }
  }

  std::array<Descriptor, Displays> sockets_;
  std::array<sockaddr_in, Displays> to_{};
  std::unique_ptr<ForkedLoop> loop_;
};

/// One display after the other, so that their moments are spread over the interval. Gives a record.
std::string greetAll(Receivers& receivers, std::uint16_t basePort) {
  const std::string greeting = "Connection on a b 10 localhost";
  std::int64_t moment_ns = now_ns();
  for (std::size_t i = 0; i < Displays; ++i) {
    sleepUntil_ns(moment_ns += Interval_ns + Interval_ns / Displays);
    receivers[i].socket.send(static_cast<std::uint16_t>(basePort + i), greeting);
  }
  std::string record;
  for (auto& receiver : receivers) {
    receiver.socket.greetUntilRecord(
        static_cast<std::uint16_t>(basePort + (&receiver - receivers.data())), greeting);
    while (record.empty() && receiver.socket.drainWithin(std::chrono::seconds(1),
                                                         [&](std::string_view text, std::int64_t) {
                                                           if (text.starts_with("Data "))
                                                             record = text;
                                                         })) {
    }
  }
  return record;
}

struct Ticks {
  std::size_t due = 0;
  std::size_t onTime = 0;
};

/// A display's due moments are a grid of the interval, from the moment at which its earliest tick
/// came; a timer may be late, but never early. A due moment is kept when a record is sent less than
/// one interval behind it.
Ticks countTicks(const std::vector<std::int64_t>& stamps_ns, std::int64_t end_ns) {
  std::int64_t phase_ns = INT64_MAX;
  for (std::size_t k = 0; k < stamps_ns.size(); ++k)
    phase_ns = std::min(phase_ns, stamps_ns[k] - static_cast<std::int64_t>(k) * Interval_ns);
  Ticks ticks;
  auto next = stamps_ns.begin();
  for (std::int64_t due_ns = phase_ns; due_ns + Interval_ns <= end_ns; due_ns += Interval_ns) {
    next = std::lower_bound(next, stamps_ns.end(), due_ns);
    ++ticks.due;
    if (next != stamps_ns.end() && *next < due_ns + Interval_ns) ++ticks.onTime;
  }
  return ticks;
}

std::size_t received(const Receivers& receivers) {
  std::size_t sum = 0;
  for (const Receiver& receiver : receivers) sum += receiver.stamps_ns.size();
  return sum;
}

void drainUntil(Receivers& one, Receivers& other, std::int64_t end_ns) {
  for (std::int64_t moment_ns = now_ns(); moment_ns < end_ns;) {
    sleepUntil_ns(moment_ns = std::min(moment_ns + DrainPause_ns, end_ns));
    for (Receivers* receivers : {&one, &other})
      for (Receiver& receiver : *receivers) receiver.drain();
  }
}

}  // namespace

void vorlent::measure() {
  Cockpit cockpit(Displays);
  cockpit.startSimulator();
  cockpit.bringServerUp();
  const auto fromServer = std::make_unique<Receivers>();
  const auto fromLoop = std::make_unique<Receivers>();
  const std::string record = greetAll(*fromServer, cockpit.basePort);
  const BareSender sender(*fromLoop, record);
  drainUntil(*fromServer, *fromLoop, now_ns() + Window_ns);
  for (Receivers* receivers : {fromServer.get(), fromLoop.get()})
    for (Receiver& receiver : *receivers) receiver.stamps_ns.clear();

  const ProcessCosts server(cockpit.server->id());
  const ProcessCosts loop(sender.process());
  std::vector<double> serverShare;
  std::vector<double> loopShare;
  std::vector<double> ratio;
  std::int64_t end_ns = now_ns();
  for (int window = 0; window < Windows; ++window) {
    const double server_s = server.cpu_s();
    const double loop_s = loop.cpu_s();
    drainUntil(*fromServer, *fromLoop, end_ns += Window_ns);
    serverShare.push_back((server.cpu_s() - server_s) / (Window_ns * 1e-9));
    loopShare.push_back((loop.cpu_s() - loop_s) / (Window_ns * 1e-9));
    ratio.push_back(serverShare.back() / loopShare.back());
  }

  Ticks all;
  for (const Receiver& receiver : *fromServer) {
    const Ticks ticks = countTicks(receiver.stamps_ns, end_ns);
    all.due += ticks.due;
    all.onTime += ticks.onTime;
  }
  std::cout << "records of " << record.size() << " bytes; in " << Windows << " s the server sent "
            << received(*fromServer) << ", the bare loop " << received(*fromLoop) << "\n";
  const double onTime = static_cast<double>(all.onTime) / static_cast<double>(all.due);
  printRow("64 displays at 10 ms: ticks on time", "", fixed(100 * onTime, 3) + " %", "≥ 99.9 %");
  printRow(
      "64 displays at 10 ms: CPU of the server",
      fixed(100 * quantile(loopShare, 0.5), 1) + " % of a core",
      fixed(100 * quantile(serverShare, 0.5), 1) + " %, " + fixed(quantile(ratio, 0.5), 2) + " x",
      "≤ 1.5 x");
}
