// vorlent-bridge between a simulator and a client: how long a datagram takes to the offset, and a
// written offset to the datagram, with each simulator's formats.

#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/flightGearProtocol.h"
#include "bridge/mappings.h"
#include "bridge/support/FakeFlightGear.h"
#include "bridge/support/FakeXPlane.h"
#include "bridge/support/LoopbackSimulators.h"
#include "endtoend/Cockpit.h"
#include "endtoend/OffsetClient.h"
#include "support/StampedSocket.h"
#include "support/figures.h"
#include "support/measure.h"

namespace {

using namespace vorlent;

constexpr int Samples = 1000;
/// Of one subscription.
constexpr int MostRequests = 200;
constexpr std::int64_t Limit_ns = 1'000'000'000;
constexpr std::uint32_t Airspeed = 0x02BC;  // knots x 128
constexpr std::uint32_t Lever = 0x088C;

/// A simulator as the measurement needs it.
struct Rig {
  std::function<void(int knots)> prepare;  ///< datagrams with this airspeed
  std::function<void()> send;
  std::function<bool()> takesLever;  ///< whether a datagram with a lever comes now
};

void require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(what);
}

/// From sending to the answer of the first request that shows it. The requests come at the pace of
/// the datagrams, so that the bridge waits in between, as it does for the server.
double inward_ms(const Rig& rig, OffsetClient& client, int knots) {
  rig.prepare(knots);
  const std::int64_t begin_ns = now_ns();
  rig.send();
  while (client.read<std::uint32_t>(Airspeed) != static_cast<std::uint32_t>(knots) * 128)
    require(now_ns() - begin_ns < Limit_ns, "the airspeed does not arrive");
  return static_cast<double>(now_ns() - begin_ns) * 1e-6;
}

/// A request by itself, at the same pace.
double request_ms(OffsetClient& client) {
  const std::int64_t begin_ns = now_ns();
  client.read<std::uint32_t>(Airspeed);
  return static_cast<double>(now_ns() - begin_ns) * 1e-6;
}

double outward_ms(const Rig& rig, OffsetClient& client, int position) {
  const std::int64_t begin_ns = now_ns();
  client.write(Lever, static_cast<std::int16_t>(position));
  while (!rig.takesLever()) require(now_ns() - begin_ns < Limit_ns, "the lever does not arrive");
  return static_cast<double>(now_ns() - begin_ns) * 1e-6;
}

std::string told(const std::vector<double>& samples) {
  return "p50 " + fixed(quantile(samples, 0.5), 3) + ", p99 " + fixed(quantile(samples, 0.99), 3) +
         ", max " + fixed(quantile(samples, 1), 3) + " ms";
}

void waitUntilReady(const Rig& rig, OffsetClient& client) {
  const std::int64_t begin_ns = now_ns();
  while (client.read<std::uint8_t>(0x3364) != 0) {
    require(now_ns() - begin_ns < 20 * Limit_ns, "the bridge does not become ready");
    rig.prepare(200);
    rig.send();
    sleepUntil_ns(now_ns() + 10'000'000);
  }
}

void measureRig(const std::string& simulator, const Rig& rig, const Cockpit& cockpit) {
  OffsetClient client(cockpit.folder / "bus");
  waitUntilReady(rig, client);
  std::mt19937 random(1);
  std::uniform_int_distribution<std::int64_t> pause_ns(5'000'000, 15'000'000);
  std::vector<double> inward;
  std::vector<double> outward;
  std::vector<double> request;
  for (int i = 0; i < Samples; ++i) {
    sleepUntil_ns(now_ns() + pause_ns(random));
    inward.push_back(inward_ms(rig, client, 201 + i % 100));
    sleepUntil_ns(now_ns() + pause_ns(random));
    while (rig.takesLever()) {
    }
    outward.push_back(outward_ms(rig, client, 1000 + 10 * (i % 1000)));
    sleepUntil_ns(now_ns() + pause_ns(random));
    request.push_back(request_ms(client));
  }
  printRow(simulator + "'s datagram to the offset, through the bridge", told(request), told(inward),
           "p99 ≤ 2 ms");
  printRow("written offset to " + simulator + "'s datagram", told(request), told(outward),
           "p99 ≤ 2 ms");
}

std::unique_ptr<Process> bridgeOf(const Cockpit& cockpit, const std::vector<std::string>& options) {
  cockpit.addProgram("vorlent-bridge");
  auto bridge = cockpit.program("vorlent-bridge", options);
  require(bridge->waitForLine("ready").has_value(), "the bridge does not start");
  return bridge;
}

void measureFlightGear() {
  const Cockpit cockpit(1);
  const std::uint16_t port = freePorts(3);
  FakeFlightGear fg(recordProtocolFile(flightGearMapping()),
                    controlProtocolFile(flightGearMapping()));
  fg.start("737-300");
  const LoopbackUdp records(0);
  const LoopbackUdp controls(static_cast<std::uint16_t>(port + 1));
  const auto bridge = bridgeOf(cockpit, {"--flightgear", "--port", std::to_string(port)});
  std::string record;
  const auto prepare = [&](int knots) {
    fg.pass(0.02);
    fg.tree["/velocities/airspeed-kt"] = knots;
    record = fg.record();
  };
  const auto send = [&] { records.send(port, record); };
  const auto takesLever = [&] {
    const std::string text = controls.receive(0);
    if (!text.empty()) fg.takeDatagram(text);
    return !text.empty();
  };
  measureRig("FlightGear", {prepare, send, takesLever}, cockpit);
}

void measureXPlane() {
  const Cockpit cockpit(1);
  FakeXPlane xp;
  const LoopbackUdp socket(0);
  const auto bridge = bridgeOf(
      cockpit, {"--xplane", "--host", "127.0.0.1", "--port", std::to_string(socket.port())});
  std::uint16_t from = 0;
  const auto takesLever = [&] {
    const std::string bytes = socket.receive(0, &from);
    if (!bytes.empty()) xp.takeDatagram(bytes);
    return bytes.starts_with("DREF");
  };
  std::vector<std::string> packets;
  const auto prepare = [&](int knots) {
    for (int i = 0; i < MostRequests; ++i) takesLever();
    xp.values["sim/flightmodel/position/indicated_airspeed"] = static_cast<float>(knots);
    packets = xp.frame();
  };
  const auto send = [&] {
    for (const std::string& packet : packets) socket.send(from, packet);
  };
  measureRig("X-Plane", {prepare, send, takesLever}, cockpit);
}

}  // namespace

void vorlent::measure() {
  measureFlightGear();
  measureXPlane();
}
